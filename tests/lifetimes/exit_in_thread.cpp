// Static objects that end in another thread than that which made them.
#include <cstdlib>
#include <thread>

#include "tests/lifetimes/Program.h"

namespace {

std::shared_ptr<orvane::VqDocStampa> job;
const orvane::VqDocumenti factory;

}  // namespace

int main(int, char** arguments) {
  job = factory.NuovoDocumentoStampa();
  const int code = orvane::test::compose(*job, arguments[1]);
  std::thread([code] { std::exit(code); }).join();
}
