// What is thread_local, in the first thread and in two others that end before.
#include <thread>

#include "tests/lifetimes/Program.h"

namespace {

thread_local std::shared_ptr<orvane::VqDocStampa> job;
thread_local std::shared_ptr<orvane::VqDocumenti> held;
thread_local const orvane::VqDocumenti factory;

}  // namespace

int main(int, char** arguments) {
  for (int i = 0; i < 2; ++i) {
    std::thread([] {
      held = std::make_shared<orvane::VqDocumenti>();
      job = held->NuovoDocumentoStampa();
    }).join();
  }
  job = factory.NuovoDocumentoStampa();
  return orvane::test::compose(*job, arguments[1]);
}
