#include "fax/VqDocFax.h"

#include "queues/VqDocCollegati.inl"

namespace orvane {

namespace {

constexpr DocumentKind kKind{vdt_Fax, u"Fax", u"Fax", u"VqDocFax", u".vqf", u".ldf"};

}  // namespace

template class LinkedDocuments<VqDocFax, TransmittedLinks<vdcf_Eliminato>>;

VqDocFax::VqDocFax() : TransmittedFax(kKind) {}

VqDocFax::~VqDocFax() = default;

void VqDocFax::bindComponents(const std::shared_ptr<JobFile>& file) {
  bind(file, NumeroFax, Coda, Dimensione, Orientamento, LayoutPagina, Trasmissione, Frontespizio, Cedolino,
       Collegati, Account, Allegati);
}

void VqDocFax::loadComponents(const std::shared_ptr<JobFile>& file) {
  bindAndLoad(file, NumeroFax, Coda, Dimensione);
  Dimensione.Codice = vdd_A4;
  bindAndLoad(file, Orientamento, LayoutPagina, Trasmissione, Frontespizio, Cedolino, Collegati, Account,
              Allegati, Pagine);
}

void VqDocFax::renderComponents(XmlWriter& xml) const {
  render(xml, NumeroFax, Coda, Proprieta, Trasmissione, Frontespizio, Cedolino, Dimensione, Orientamento,
         LayoutPagina, Allegati, Account);
  renderFile(xml, u"FileTif", FileTif);
}

}  // namespace orvane
