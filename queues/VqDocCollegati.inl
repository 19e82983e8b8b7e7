// The members of `LinkedDocuments`, for the source files of the documents, which make its three kinds.
#pragma once

#include "core/Numbers.h"
#include "core/Paths.h"
#include "queues/VqDocCollegati.h"

namespace orvane {

template <class Document, class Traits>
void LinkedDocuments<Document, Traits>::Add(Pointer document) {
  if (!document) throw Error(ErrorNumber::ObjectNotSet);
  if (Traits::admits(*document)) documents_.add(document->Proprieta.Id.get(), document);
}

template <class Document, class Traits>
void LinkedDocuments<Document, Traits>::Salva() {
  ProfileAccess& access = Apartment::profileAccess();
  const auto file = jobFile();
  file->together([&] {
    access.ScriviNumero(*file, section(), u"NumeroCollegati", Count());
    std::int32_t position = 0;
    for (const Pointer& document : documents_) {
      const Text index = decimalText(position++);
      const auto& header = document->Proprieta.FileIntestazione;
      access.ScriviTesto(*file, section(), u"Percorso" + index, header.Percorso);
      access.ScriviTesto(*file, section(), u"Nome" + index, header.Nome);
    }
  });
}

template <class Document, class Traits>
void LinkedDocuments<Document, Traits>::LeggiFile() {
  Component::LeggiFile();
  ProfileAccess& access = Apartment::profileAccess();
  const auto file = jobFile();
  const std::int32_t count = access.LeggiQuanti(*file, section(), u"NumeroCollegati");
  const LoadingChain link(file->fullName());
  for (std::int32_t position = 0; position < count; ++position) addListed(access, *file, position);
}

template <class Document, class Traits>
void LinkedDocuments<Document, Traits>::addListed(ProfileAccess& access, JobFile& file,
                                                  std::int32_t position) {
  const Text index = decimalText(position);
  const Text folder = access.LeggiTesto(file, section(), u"Percorso" + index);
  const Text name = access.LeggiTesto(file, section(), u"Nome" + index);
  if (name.empty() || !Apartment::fileSystem().fileExists(joinPath(folder, name))) return;
  auto document = std::make_shared<Document>();
  document->Carica(folder, name);
  Add(std::move(document));
}

}  // namespace orvane
