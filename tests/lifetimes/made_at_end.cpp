// A factory that is made only when static objects end, long after the last one.
#include "tests/lifetimes/Program.h"

namespace {

struct Composer {
  ~Composer() {
    const orvane::VqDocumenti factory;
    orvane::test::compose(*factory.NuovoDocumentoStampa(), folder);
  }
  const char* folder = nullptr;
} composer;

}  // namespace

int main(int, char** arguments) {
  const orvane::VqDocumenti factory;
  if (factory.NuovoDocumentoStampa()->Xml().empty()) return 1;
  composer.folder = arguments[1];
  return 7;
}
