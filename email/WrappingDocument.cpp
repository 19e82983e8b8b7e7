#include "email/WrappingDocument.h"

#include "core/Error.h"

namespace orvane {

namespace {

InnerDocument newDocument(enmVqDocTipo kind) {
  switch (kind) {
    case vdt_Fax:
      return std::make_shared<VqDocFax>();
    case vdt_Stampa:
      return std::make_shared<VqDocStampa>();
    case vdt_Email:
      return std::make_shared<VqDocEmail>();
    case vdt_PFax:
      return std::make_shared<VqDocPFax>();
    default:
      return {};
  }
}

// What `use` makes of the document, of whichever kind it is. Error 91 where there is none.
template <class Result, class Use>
Result visitDocument(const InnerDocument& document, Use use) {
  return std::visit(
      [&](const auto& pointer) -> Result {
        if constexpr (std::is_same_v<decltype(pointer), const std::monostate&>) {
          throw Error(ErrorNumber::ObjectNotSet);
        } else {
          return use(pointer);
        }
      },
      document);
}

}  // namespace

Document& WrappingDocument::inner() const {
  return visitDocument<Document&>(document_, [](const auto& pointer) -> Document& { return *pointer; });
}

InnerLinks WrappingDocument::Collegati() const {
  return visitDocument<InnerLinks>(document_, [](const auto& pointer) {
    using Links = std::remove_reference_t<decltype(pointer->Collegati)>;
    return InnerLinks(std::shared_ptr<Links>(pointer, &pointer->Collegati));
  });
}

bool WrappingDocument::ImpostaDocumento(enmVqDocTipo Tipo) {
  if (Tipo == vdt_Sconosciuto) throw Error(ErrorNumber::NotSupportedAction);
  if (document_.index() == 0) document_ = newDocument(Tipo);
  return true;
}

void WrappingDocument::Inizializza(TextView Id, enmVqDocTipo Tipo, TextView PercorsoDocumenti) {
  checkBinding(Inizializzato, PercorsoDocumenti);
  ImpostaDocumento(Tipo);
  inner().InizializzaDocumento(Id, PercorsoDocumenti, Text(Id) + kind_.extension, false);
  bindParts(inner().file_);
  Inizializzato = true;
}

void WrappingDocument::Carica(TextView Percorso, TextView NomeFile) {
  const InnerDocument before = document_;
  try {
    loading(Inizializzato, Percorso, NomeFile, [&](const std::shared_ptr<JobFile>& file) {
      const auto type = Apartment::profileAccess().LeggiIntero(*file, u"Tipo", u"Codice", -1);
      ImpostaDocumento(static_cast<enmVqDocTipo>(type));
      inner().Carica(Percorso, NomeFile);
      loadParts(inner().file_);
    });
  } catch (...) {
    if (document_.index() != 0 && inner().Inizializzato) document_ = before;
    throw;
  }
  Inizializzato = true;
}

Text WrappingDocument::Xml() const {
  XmlWriter xml;
  xml.begin(kind_.element);
  xml.text(kind_.className);
  renderParts(xml);
  renderInner(xml);
  xml.end(kind_.element);
  return xml.result();
}

// The inner document is in the XML for as long as its own kind is one of the four.
void WrappingDocument::renderInner(XmlWriter& xml) const {
  const std::int32_t kind = inner().Proprieta.Tipo.Codice.number();
  if (kind >= vdt_Fax && kind <= vdt_PFax) inner().NodoXml(xml);
}

}  // namespace orvane
