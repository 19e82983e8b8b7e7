// Direct (raw) output to a printer.
#pragma once

#include "pages/VqDocCatalogo.h"
#include "pages/VqDocFile.h"

namespace orvane {

class VqDocProprieta;

/// Section "Diretta". When a job is loaded, `FileDiretto` becomes the prepared file `<Id>\<Id>.vqd` of the
/// documents folder if that exists.
class VqDocDiretta : public Component, private Owner {
 public:
  /// `properties` of the same document say where the prepared file lies.
  explicit VqDocDiretta(const VqDocProprieta& properties)
      : Component(u"Diretta", u"Diretta"), properties_(properties) {}

  VqDocFile FileDiretto;
  Stored<bool> FinePagina{*this, u"FinePagina"};
  Stored<bool> FoglioBianco{*this, u"FoglioBianco"};
  Stored<std::int32_t> RigheBianche{*this, u"RigheBianche"};
  Stored<Text> NomeFileOutput{*this, u"NomeFileOutput"};
  VqDocCatalogoDestinaz CatalogoDestinazione;

 protected:
  void ImpostaFile(const std::shared_ptr<JobFile>& file) override;
  void LeggiFile() override;
  void renderValues(XmlWriter& xml) const override {
    renderEach(xml, FinePagina, RigheBianche, NomeFileOutput, FoglioBianco);
  }
  void renderParts(XmlWriter& xml) const override;

 private:
  const VqDocProprieta& properties_;
};

}  // namespace orvane
