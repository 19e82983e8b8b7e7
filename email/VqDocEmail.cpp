#include "email/VqDocEmail.h"

#include "queues/VqDocCollegati.inl"

namespace orvane {

namespace {

constexpr DocumentKind kKind{vdt_Email, u"Email", u"Email", u"VqDocEmail", u".vqe", u".lde"};

}  // namespace

template class LinkedDocuments<VqDocEmail, TransmittedLinks<vdce_Eliminato>>;

VqDocEmail::VqDocEmail() : Document(kKind) {}

VqDocEmail::~VqDocEmail() = default;

void VqDocEmail::bindComponents(const std::shared_ptr<JobFile>& file) {
  bind(file, A, Account, Cc, Ccn, Messaggio, Coda, Dimensione, Orientamento, LayoutPagina, Cedolino, Allegati,
       Collegati, Trasmissione);
}

void VqDocEmail::loadComponents(const std::shared_ptr<JobFile>& file) {
  bindAndLoad(file, Account, A, Cc, Ccn, Messaggio, Coda, Dimensione, Orientamento, LayoutPagina, Cedolino,
              Allegati, Collegati, Trasmissione, Pagine);
}

void VqDocEmail::renderComponents(XmlWriter& xml) const {
  render(xml, Account, A, Cc, Ccn, Messaggio, Coda, Proprieta, Dimensione, Orientamento, LayoutPagina,
         Allegati, Cedolino, Trasmissione);
}

}  // namespace orvane
