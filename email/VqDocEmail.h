// The e-mail job.
#pragma once

#include "core/Document.h"
#include "email/VqDocAccount.h"
#include "email/VqDocAllegati.h"
#include "email/VqDocDestinatari.h"
#include "email/VqDocMessaggio.h"
#include "email/VqDocTrasmissioneEmail.h"
#include "fax/VqDocCedolino.h"
#include "pages/VqDocLayoutPagina.h"
#include "queues/VqDocCoda.h"
#include "queues/VqDocCollegati.h"

namespace orvane {

/// Job file `Id`.vqe, or `Id`.lde for one that is linked; its own value is in section "Email".
class VqDocEmail : public Document {
 public:
  VqDocEmail();
  ~VqDocEmail() override;

  VqDocAccount Account;
  VqDocDestinatariA A;
  VqDocDestinatariCc Cc;
  VqDocDestinatariCcn Ccn;
  VqDocMessaggio Messaggio;
  VqDocCodaEmail Coda;
  VqDocDimensione Dimensione;
  VqDocOrientamento Orientamento;
  VqDocLayoutPagina LayoutPagina;
  VqDocCedolino Cedolino;
  VqDocAllegati Allegati;
  VqDocCollegatiEmail Collegati;
  VqDocTrasmissioneEmail Trasmissione;
  Stored<Text> Oggetto{*this, u"Oggetto"};

 protected:
  void bindComponents(const std::shared_ptr<JobFile>& file) override;
  void loadComponents(const std::shared_ptr<JobFile>& file) override;
  void renderComponents(XmlWriter& xml) const override;
  std::int32_t links() const override { return Collegati.Count(); }
  void keepLinks(std::int32_t count) noexcept override { Collegati.keepFirst(count); }
};

}  // namespace orvane
