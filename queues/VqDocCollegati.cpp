#include "queues/VqDocCollegati.h"

#include <algorithm>
#include <vector>

namespace orvane {

namespace {

constexpr std::size_t kDeepest = 64;  // levels of links; each takes a few kilobytes of stack

thread_local std::vector<Text> loading;

}  // namespace

LoadingChain::LoadingChain(const Text& jobFile) {
  const bool again = std::find(loading.begin(), loading.end(), jobFile) != loading.end();
  if (again || loading.size() == kDeepest) throw Error(ErrorNumber::OutOfStackSpace);
  loading.push_back(jobFile);
}

LoadingChain::~LoadingChain() { loading.pop_back(); }

}  // namespace orvane
