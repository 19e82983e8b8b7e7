// A program outside this project that uses the installed library: consumer FOLDER composes a job and reads it
// back.
#include <orvane.h>
#include <orvane_version.h>

#include <iostream>

int main(int, char** argv) {
  const orvane::Text folder = orvane::fromUtf8(argv[1]);
  orvane::VqDocumenti factory;
  auto composed = factory.NuovoDocumentoStampa();
  composed->Inizializza(u"1", folder);
  composed->Stampante = u"Laser";

  auto loaded = factory.NuovoDocumentoStampa();
  loaded->Carica(folder, u"1.vqs");
  std::cout << "built with orvane " << ORVANE_VERSION << ", prints on "
            << orvane::toUtf8(loaded->Stampante.get()) << "\n";
}
