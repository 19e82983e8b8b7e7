#include "email/VqDocAllegati.h"

#include <algorithm>

#include "core/Numbers.h"

namespace orvane {

bool VqDocAllegati::Add(TextView Percorso, TextView Nome) {
  if (Nome.empty()) return false;
  auto file = std::make_shared<VqDocFile>();
  file->Percorso = Percorso;
  file->Nome = Nome;
  files_.add(file->File(), file);
  return true;
}

void VqDocAllegati::Salva() {
  ProfileAccess& access = Apartment::profileAccess();
  const auto file = jobFile();
  file->together([&] {
    access.ScriviTesto(*file, section(), u"PdfPercorso", FilePdf.Percorso);
    access.ScriviTesto(*file, section(), u"PdfNome", FilePdf.Nome);
    access.ScriviNumero(*file, section(), u"NumeroAllegati", Count());
    std::int32_t position = 0;
    for (const auto& attachment : files_) {
      const Text index = decimalText(position++);
      access.ScriviTesto(*file, section(), u"Percorso" + index, attachment->Percorso);
      access.ScriviTesto(*file, section(), u"Nome" + index, attachment->Nome);
    }
  });
}

bool VqDocAllegati::VerificaEsistenzaFile() const {
  return std::all_of(begin(), end(),
                     [](const auto& file) { return Apartment::fileSystem().fileExists(file->File()); });
}

void VqDocAllegati::LeggiFile() {
  ProfileAccess& access = Apartment::profileAccess();
  const auto file = jobFile();
  FilePdf.Percorso = access.LeggiTesto(*file, section(), u"PdfPercorso");
  FilePdf.Nome = access.LeggiTesto(*file, section(), u"PdfNome");
  const std::int32_t count = access.LeggiQuanti(*file, section(), u"NumeroAllegati");
  RemoveAll();
  for (std::int32_t position = 0; position < count; ++position) {
    const Text index = decimalText(position);
    const Text folder = access.LeggiTesto(*file, section(), u"Percorso" + index);
    Add(folder, access.LeggiTesto(*file, section(), u"Nome" + index));
  }
}

void VqDocAllegati::renderParts(XmlWriter& xml) const {
  renderFile(xml, u"FilePdf", FilePdf);
  xml.element(u"NumeroAllegati", Count());
  std::int32_t position = 0;
  for (const auto& file : files_) renderFile(xml, u"FileAllegato_" + decimalText(position++), *file);
}

}  // namespace orvane
