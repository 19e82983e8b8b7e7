// The control codes of a printer: of the one that a text was made for, and of the one that prints it.
#pragma once

#include "codes/CodeValues.h"
#include "pages/ControlCode.h"

namespace orvane {

/// One function of a catalog: its bytes, as seven characters, and as three digits each.
#define ORVANE_CONTROL_CODE(function)                                  \
  ControlCode function{*this, u## #function, u"StrAsc" u## #function}; \
  Text StrChr##function() const { return function.characters(); }      \
  Text StrAsc##function() const { return function.digits(); }

/// Ten functions, each switched on and off by up to seven bytes, kept in one section under the function's
/// name. Loading raises error 13 for a piece that is no number, 6 for one that is no byte, 9 for more than
/// seven pieces that end in ";". The two catalogs differ in the names of section and element alone.
class VqDocCatalogo : public Component, private Owner {
 public:
  VqDocTipoCatalogo Tipo;

  ORVANE_CONTROL_CODE(GrassettoOn)
  ORVANE_CONTROL_CODE(GrassettoOff)
  ORVANE_CONTROL_CODE(CompressoOn)
  ORVANE_CONTROL_CODE(CompressoOff)
  ORVANE_CONTROL_CODE(DoppiaAltezzaOn)
  ORVANE_CONTROL_CODE(DoppiaAltezzaOff)
  ORVANE_CONTROL_CODE(RipassaOn)
  ORVANE_CONTROL_CODE(RipassaOff)
  ORVANE_CONTROL_CODE(DodicesimiOn)
  ORVANE_CONTROL_CODE(DodicesimiOff)
  ORVANE_CONTROL_CODE(LetterQualityOn)
  ORVANE_CONTROL_CODE(LetterQualityOff)
  ORVANE_CONTROL_CODE(SottolineatoOn)
  ORVANE_CONTROL_CODE(SottolineatoOff)
  ORVANE_CONTROL_CODE(CustomAOn)
  ORVANE_CONTROL_CODE(CustomAOff)
  ORVANE_CONTROL_CODE(CustomBOn)
  ORVANE_CONTROL_CODE(CustomBOff)
  ORVANE_CONTROL_CODE(CustomCOn)
  ORVANE_CONTROL_CODE(CustomCOff)

  /// Take over all control codes of another catalog, `Tipo` excepted.
  void copyCodes(const VqDocCatalogo& from);

 protected:
  VqDocCatalogo(Name section, TextView element);
  ~VqDocCatalogo() override;

  void ImpostaFile(const std::shared_ptr<JobFile>& file) override;
  void LeggiFile() override;
};

#undef ORVANE_CONTROL_CODE

/// The printer that receives direct output.
class VqDocCatalogoDestinaz : public VqDocCatalogo {
 public:
  VqDocCatalogoDestinaz() : VqDocCatalogo(u"CatalogoDestinazione", u"CatalogoDestinazione") {}
};

/// The printer that the text was made for. Servers read its section under a name with a blank, unlike its
/// element.
class VqDocCatalogoSorgente : public VqDocCatalogo {
 public:
  VqDocCatalogoSorgente() : VqDocCatalogo(u"Catalogo sorgente", u"CatalogoSorgente") {}
};

}  // namespace orvane
