// How a fax is to be transmitted, and what the server reports of it.
#pragma once

#include "codes/CodeValues.h"

namespace orvane {

/// Section "TrasmissioneFax", element "Trasmissione"; each code keeps a section of its own. Nothing is
/// checked.
class VqDocTrasmissioneFax : public Component, private Owner {
 public:
  VqDocTrasmissioneFax();
  ~VqDocTrasmissioneFax() override;

  VqDocFaxTipoFax TipoFax;
  VqDocFaxDispositivo Dispositivo;
  VqDocFaxCompressione Compressione;
  VqDocFaxBaudRate BaudSend;
  VqDocFaxECM ECM;
  VqDocFaxBFT BFT;
  VqDocFaxPagina Pagina;
  VqDocFaxRisoluzione Risoluzione;
  VqDocFaxColore Colore;
  VqDocFaxTRMStatus TRMStatus;
  VqDocFaxErrore Errore;

  Stored<Date> OraFine{*this, u"OraFine"};
  Stored<Date> OraInizio{*this, u"OraInizio"};
  Stored<Date> OraRichiestaFine{*this, u"OraRichiestaFine"};
  Stored<Date> OraRichiestaInizio{*this, u"OraRichiestaInizio"};
  Stored<bool> TrasmessoConECM{*this, u"TrasmessoConECM"};
  Stored<std::int32_t> Tentativi{*this, u"Tentativi"};
  /// Kept in the object and shown in the XML only: it is gone when the job is loaded again.
  Stored<Date> ProssimoTentativo{*this, u"ProssimoTentativo", Kept::Xml};

 protected:
  void ImpostaFile(const std::shared_ptr<JobFile>& file) override;
  void LeggiFile() override;
  void renderValues(XmlWriter& xml) const override;
  void renderParts(XmlWriter& xml) const override;
};

}  // namespace orvane
