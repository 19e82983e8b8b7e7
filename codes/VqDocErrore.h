// The error that the server reports for a job.
#pragma once

#include "codes/Code.h"
#include "typelib/enumerations.h"

namespace orvane {

/// Section "Errore". The code's text is 11000 plus the code; code -1 stands for a text of the client's or
/// server's own. It is no error that the library raises.
class VqDocErrore : public Component {
 public:
  static constexpr CodeNames kNames{11000};

  VqDocErrore() : Component(u"Errore", u"Errore") {}

  /// `vdec_Personalizzato` (-1) selects the text set last through `Descrizione`; every other code describes
  /// itself.
  class CodiceProperty : public Code<enmVqDocErrore> {
   public:
    explicit CodiceProperty(VqDocErrore& record) : Code(record, kNames), record_(record) {}
    using Code::operator=;
    CodiceProperty& operator=(const CodiceProperty& other) { return *this = other.number(), *this; }
    Text description() const override;

   private:
    friend VqDocErrore;
    const VqDocErrore& record_;
  };

  /// The text of the code. Assigning makes the code -1, keeps the text and writes both.
  class DescrizioneProperty {
   public:
    explicit DescrizioneProperty(VqDocErrore& record) : record_(record) {}
    Text get() const { return record_.Codice.description(); }
    operator Text() const { return get(); }
    DescrizioneProperty& operator=(Text text);
    DescrizioneProperty& operator=(const DescrizioneProperty& other) { return *this = other.get(); }

   private:
    VqDocErrore& record_;
  };

  CodiceProperty Codice{*this};
  DescrizioneProperty Descrizione{*this};

 protected:
  void LeggiFile() override;

 private:
  Text custom_;
};

}  // namespace orvane
