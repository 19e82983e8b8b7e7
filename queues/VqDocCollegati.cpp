#include "queues/VqDocCollegati.h"

#include <functional>
#include <new>
#include <vector>

#include "core/Stack.h"

namespace orvane {

namespace {

thread_local const LoadingChain* innermost = nullptr;

// What waits to be let go while a document is.
thread_local std::vector<std::shared_ptr<void>>* waiting = nullptr;

}  // namespace

LoadingChain::LoadingChain(const Text& jobFile)
    : jobFile_(jobFile), hash_(std::hash<Text>()(jobFile)), outer_(innermost) {
  checkStack();
  for (const LoadingChain* link = outer_; link != nullptr; link = link->outer_) {
    if (link->hash_ == hash_ && link->jobFile_ == jobFile) throw Error(ErrorNumber::OutOfStackSpace);
  }
  innermost = this;
}

LoadingChain::~LoadingChain() { innermost = outer_; }

void releaseLinked(std::shared_ptr<void> document) noexcept {
  if (waiting != nullptr) {
    try {
      waiting->push_back(std::move(document));
    } catch (const std::bad_alloc&) {
      document.reset();
    }
    return;
  }
  std::vector<std::shared_ptr<void>> released;
  waiting = &released;
  for (document.reset(); !released.empty(); document.reset()) {
    document = std::move(released.back());
    released.pop_back();
  }
  waiting = nullptr;
}

}  // namespace orvane
