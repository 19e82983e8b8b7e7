#include "core/VqDocStampa.h"

#include "queues/VqDocCollegati.inl"

namespace orvane {

namespace {

constexpr DocumentKind kKind{vdt_Stampa, u"Stampa", u"Stampa", u"VqDocStampa", u".vqs", u".lvq"};

}  // namespace

template class LinkedDocuments<VqDocStampa, PrintLinks>;

VqDocStampa::VqDocStampa() : Document(kKind) {}

VqDocStampa::~VqDocStampa() = default;

void VqDocStampa::bindComponents(const std::shared_ptr<JobFile>& file) {
  bind(file, Coda, Dimensione, Orientamento, Alimentazione, Pinzatura, FronteRetro, Fascicolazione,
       LayoutPagina, Diretta, Collegati);
}

void VqDocStampa::loadComponents(const std::shared_ptr<JobFile>& file) {
  bindAndLoad(file, Coda, Dimensione, Orientamento, Alimentazione, Pinzatura, FronteRetro, Fascicolazione,
              LayoutPagina, Diretta, Collegati);
  bind(file, Pagine);  // clients read limits and state together with the pages
}

void VqDocStampa::renderComponents(XmlWriter& xml) const {
  render(xml, Diretta, Coda, Proprieta, Dimensione, Orientamento, Alimentazione, Pinzatura, FronteRetro,
         Fascicolazione, LayoutPagina, Collegati);
}

}  // namespace orvane
