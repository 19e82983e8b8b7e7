// The print job.
#pragma once

#include "core/Document.h"
#include "pages/VqDocDiretta.h"
#include "pages/VqDocLayoutPagina.h"
#include "queues/VqDocCoda.h"
#include "queues/VqDocCollegati.h"

namespace orvane {

/// Job file `Id`.vqs, or `Id`.lvq for one that is linked; its own values are in section "Stampa".
///
///   auto stampa = fabbrica.NuovoDocumentoStampa();
///   stampa->Inizializza(u"123", u"C:\\Lavori");
///   stampa->Stampante = u"Laser";
class VqDocStampa : public Document {
 public:
  VqDocStampa();
  ~VqDocStampa() override;

  VqDocCodaStampa Coda;

  Stored<Text> StampanteOrigine{*this, u"StampanteOrigine"};

  /// The printer to fall back on. What is written under its key is the present `StampanteOrigine`, which is
  /// what a reload then gives: servers count on it.
  class Fallback : public Stored<Text> {
   public:
    Fallback(VqDocStampa& document, Name name) : Stored(document, name), document_(document) {}
    using Stored::operator=;
    Fallback& operator=(const Fallback& other) { return *this = other.get(), *this; }

   private:
    void write(ProfileAccess& access, JobFile& file, Name section) const override {
      access.ScriviTesto(file, section, name(), document_.StampanteOrigine.get());
    }
    const VqDocStampa& document_;
  };
  Fallback StampanteAlternativa{*this, u"StampanteAlternativa"};

  Stored<Text> Stampante{*this, u"Stampante"};
  Stored<std::int32_t> Numero{*this, u"Numero"};

  /// Not in the XML: servers read it from the job file. What is loaded is not held to 1.
  Copies Copie{*this, Kept::JobFile};

  VqDocDimensione Dimensione;
  VqDocOrientamento Orientamento;
  VqDocAlimentazione Alimentazione;
  VqDocFronteRetro FronteRetro;
  VqDocFascicolazione Fascicolazione;
  VqDocLayoutPagina LayoutPagina;
  VqDocDiretta Diretta{Proprieta};
  VqDocPinzatura Pinzatura;
  VqDocCollegatiStampa Collegati;

 protected:
  void bindComponents(const std::shared_ptr<JobFile>& file) override;
  void loadComponents(const std::shared_ptr<JobFile>& file) override;
  void renderComponents(XmlWriter& xml) const override;
  std::int32_t links() const override { return Collegati.Count(); }
  void keepLinks(std::int32_t count) noexcept override { Collegati.keepFirst(count); }
  void initialised() override { Copie.reset(); }
};

}  // namespace orvane
