// The job that asks for the publication of a document.
#pragma once

#include "email/WrappingDocument.h"

namespace orvane {

/// Which file to publish: section and element "Pubblicazione". Its parts are set freely and written by
/// `Salva`, both in one replacement.
class VqDocPubblicazione : public Component, private Owner {
 public:
  VqDocPubblicazione() : Component(u"Pubblicazione", u"Pubblicazione") {}

  VqDocFile FilePbl;
  void Salva();

 protected:
  void LeggiFile() override;
  void renderParts(XmlWriter& xml) const override { renderFile(xml, u"FilePbl", FilePbl); }
};

/// Job file `Id`.vqpb, whatever the inner kind. The root of its XML and the element of `Pubblicazione` in it
/// have the same name.
class VqDocPbl final : public WrappingDocument {
 public:
  VqDocPbl();

  VqDocCodaPbl Coda;
  /// In the same section of the job file as the attachments of an inner fax or e-mail: the last `Salva`
  /// counts.
  VqDocAllegati Allegati;
  VqDocPubblicazione Pubblicazione;

 private:
  static constexpr Kind kKind{u"Pubblicazione", u"VqDocPbl", u".vqpb"};
  void bindParts(const std::shared_ptr<JobFile>& file) override { bind(file, Coda, Allegati, Pubblicazione); }
  void loadParts(const std::shared_ptr<JobFile>& file) override {
    bindAndLoad(file, Coda, Allegati, Pubblicazione);
  }
  void renderParts(XmlWriter& xml) const override { render(xml, Coda, Allegati, Pubblicazione); }
};

}  // namespace orvane
