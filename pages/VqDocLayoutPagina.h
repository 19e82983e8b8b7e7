// How a page image is fitted on the sheet.
#pragma once

#include "codes/CodeValues.h"

namespace orvane {

/// Section "LayoutPagina".
class VqDocLayoutPagina : public Component, private Owner {
 public:
  VqDocLayoutPagina() : Component(u"LayoutPagina", u"LayoutPagina") {}

  Stored<bool> AdattaAllaPagina{*this, u"AdattaAllaPagina", Kept::JobFileAndXml, true};
  Stored<bool> Ingrandibile{*this, u"Ingrandibile"};
  VqDocPosizionePagina PosizionePagina;

 protected:
  void ImpostaFile(const std::shared_ptr<JobFile>& file) override {
    Component::ImpostaFile(file);
    bind(file, PosizionePagina);
  }
  void LeggiFile() override {
    Component::LeggiFile();
    load(PosizionePagina);
  }
  void renderParts(XmlWriter& xml) const override { render(xml, PosizionePagina); }
};

}  // namespace orvane
