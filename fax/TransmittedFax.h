// What the fax and the printer-fax have in common.
#pragma once

#include "core/Document.h"
#include "email/VqDocAccount.h"
#include "fax/VqDocCedolino.h"
#include "fax/VqDocFrontespizio.h"
#include "fax/VqDocNumeroFax.h"
#include "fax/VqDocTrasmissioneFax.h"
#include "queues/VqDocCoda.h"
#include "queues/VqDocCollegati.h"

namespace orvane {

/// The five texts are in section "Fax" for both kinds. A fax is always A4: the paper size is set so when the
/// document is bound, and again when a job file has been read, whatever that held.
class TransmittedFax : public Document {
 public:
  VqDocNumeroFax NumeroFax;
  VqDocTrasmissioneFax Trasmissione;
  VqDocFrontespizio Frontespizio;
  VqDocCedolino Cedolino;
  VqDocAccount Account;

  Stored<Text> Oggetto{*this, u"Oggetto"};
  Stored<Text> Mittente{*this, u"Mittente"};
  Stored<Text> Destinatario{*this, u"Destinatario"};
  Stored<Text> SocietaDestinataria{*this, u"SocietaDestinataria"};
  Stored<Text> CodiceSocietaDestinataria{*this, u"CodiceSocietaDestinataria"};

  VqDocDimensione Dimensione;
  VqDocOrientamento Orientamento;
  VqDocCollegatiFax Collegati;

 protected:
  using Document::Document;
  std::int32_t links() const override { return Collegati.Count(); }
  void keepLinks(std::int32_t count) noexcept override { Collegati.keepFirst(count); }
  void initialised() override { Dimensione.Codice = vdd_A4; }
};

}  // namespace orvane
