// A job that is composed, loaded and rendered only when static objects end, with a factory that outlives
// them.
#include <cstdlib>

#include "tests/lifetimes/Program.h"

namespace {

std::unique_ptr<orvane::VqDocumenti> factory;

struct Composer {
  ~Composer() {
    const auto job = factory->NuovoDocumentoStampa();
    orvane::test::compose(*job, folder);
    job->Coda.Codice = orvane::vdcs_InStampa;
    job->Collegati.Salva();
    const auto loaded = factory->NuovoDocumentoStampa();
    loaded->Carica(orvane::fromUtf8(folder), u"1.vqs");
    if (loaded->Copie != 3 || loaded->Coda.DataInStampa.get().days == 0) std::abort();
    if (loaded->Xml() != job->Xml()) std::abort();
  }
  const char* folder = nullptr;
} composer;

}  // namespace

int main(int, char** arguments) {
  factory = std::make_unique<orvane::VqDocumenti>();
  if (factory->NuovoDocumentoStampa()->Xml().empty()) return 1;
  composer.folder = arguments[1];
  return 7;
}
