#include "fax/VqDocTrasmissioneFax.h"

namespace orvane {

VqDocTrasmissioneFax::VqDocTrasmissioneFax() : Component(u"TrasmissioneFax", u"Trasmissione") {}

VqDocTrasmissioneFax::~VqDocTrasmissioneFax() = default;

void VqDocTrasmissioneFax::ImpostaFile(const std::shared_ptr<JobFile>& file) {
  Component::ImpostaFile(file);
  bind(file, TipoFax, Dispositivo, Compressione, BaudSend, ECM, BFT, Pagina, Risoluzione, Colore, TRMStatus,
       Errore);
}

void VqDocTrasmissioneFax::LeggiFile() {
  Component::LeggiFile();
  load(TipoFax, Dispositivo, Compressione, BaudSend, Pagina, Risoluzione, Colore, TRMStatus, Errore, ECM,
       BFT);
}

void VqDocTrasmissioneFax::renderValues(XmlWriter& xml) const {
  renderEach(xml, OraRichiestaInizio, OraRichiestaFine, TrasmessoConECM, Tentativi, ProssimoTentativo,
             OraInizio, OraFine);
}

void VqDocTrasmissioneFax::renderParts(XmlWriter& xml) const {
  render(xml, TipoFax, Dispositivo, Compressione, BaudSend, Pagina, Risoluzione, Colore, ECM, BFT, TRMStatus,
         Errore);
}

}  // namespace orvane
