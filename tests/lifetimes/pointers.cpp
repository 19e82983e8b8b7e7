// Pointers that end after all that the library has made since.
#include "tests/lifetimes/Program.h"

namespace {

std::shared_ptr<orvane::VqDocStampa> job;
std::unique_ptr<orvane::VqDocumenti> factory;

}  // namespace

int main(int, char** arguments) {
  factory = std::make_unique<orvane::VqDocumenti>();
  job = factory->NuovoDocumentoStampa();
  return orvane::test::compose(*job, arguments[1]);
}
