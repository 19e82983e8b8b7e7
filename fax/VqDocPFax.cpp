#include "fax/VqDocPFax.h"

#include "fax/VqDocFax.h"

namespace orvane {

namespace {

constexpr DocumentKind kKind{vdt_PFax, u"Fax", u"PrinterFax", u"VqDocPFax", u".vqpf", u".ldf"};

}  // namespace

VqDocPFax::VqDocPFax() : TransmittedFax(kKind) {}

VqDocPFax::~VqDocPFax() = default;

void VqDocPFax::bindComponents(const std::shared_ptr<JobFile>& file) {
  bind(file, NumeroFax, Coda, Dimensione, Orientamento, Trasmissione, Frontespizio, Cedolino, Collegati,
       Account);
}

void VqDocPFax::loadComponents(const std::shared_ptr<JobFile>& file) {
  bindAndLoad(file, NumeroFax, Coda, Dimensione);
  Dimensione.Codice = vdd_A4;
  bindAndLoad(file, Orientamento, Trasmissione, Frontespizio, Cedolino, Collegati, Account, Pagine);
}

void VqDocPFax::renderComponents(XmlWriter& xml) const {
  render(xml, NumeroFax, Coda, Proprieta, Trasmissione, Frontespizio, Cedolino, Dimensione, Orientamento,
         Account);
}

}  // namespace orvane
