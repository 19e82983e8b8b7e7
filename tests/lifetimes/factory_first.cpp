// Global objects; the factory ends first.
#include "tests/lifetimes/Program.h"

namespace {

std::shared_ptr<orvane::VqDocStampa> job;
const orvane::VqDocumenti factory;

}  // namespace

int main(int, char** arguments) {
  job = factory.NuovoDocumentoStampa();
  return orvane::test::compose(*job, arguments[1]);
}
