#include "email/VqDocPbl.h"

namespace orvane {

void VqDocPubblicazione::Salva() {
  ProfileAccess& access = Apartment::profileAccess();
  const auto file = jobFile();
  file->together([&] {
    access.ScriviTesto(*file, section(), u"PblPercorso", FilePbl.Percorso);
    access.ScriviTesto(*file, section(), u"PblNome", FilePbl.Nome);
  });
}

void VqDocPubblicazione::LeggiFile() {
  ProfileAccess& access = Apartment::profileAccess();
  const auto file = jobFile();
  FilePbl.Percorso = access.LeggiTesto(*file, section(), u"PblPercorso");
  FilePbl.Nome = access.LeggiTesto(*file, section(), u"PblNome");
}

VqDocPbl::VqDocPbl() : WrappingDocument(kKind) {}

}  // namespace orvane
