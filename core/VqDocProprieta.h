// What every document carries, whatever its channel.
#pragma once

#include "codes/CodeValues.h"
#include "codes/VqDocErrore.h"
#include "pages/VqDocCatalogo.h"
#include "pages/VqDocFile.h"

namespace orvane {

/// Section "Proprieta": who made the document, what it is, when, how it is to be handled and what came of it.
/// Nothing is checked: any text, number or date is accepted as it comes.
class VqDocProprieta : public Component, private Owner {
 public:
  VqDocProprieta();
  ~VqDocProprieta() override;

  /// The identity of an object, made when it is first asked for.
  class Identity {
   public:
    using Value = Text;
    Identity() = default;
    Identity(const Identity&) = delete;
    Identity& operator=(const Identity&) = delete;
    const Text& get() const;
    operator const Text&() const { return get(); }
    friend bool operator==(const Identity& a, const Text& b) { return a.get() == b; }

   private:
    mutable Text text_;
  };

  /// "GUID_" and a new GUID in 36 characters, in no file and in no XML. Error 57 where the system has none to
  /// give.
  Identity Guid;

  Stored<Text> Versione{*this, u"Versione"};
  /// The document's identifier, set when the document is bound or loaded.
  ReadOnlyStored<Text, VqDocProprieta> Id{*this, u"Id"};
  Stored<Text> Sigla{*this, u"Sigla"};
  Stored<Text> DittaOrigine{*this, u"DittaOrigine"};
  Stored<Text> DittaDestinazione{*this, u"DittaDestinazione"};

  /// `DittaDestinazione` if it is not empty, else `DittaOrigine`.
  Text Ditta() const {
    return DittaDestinazione.get().empty() ? DittaOrigine.get() : DittaDestinazione.get();
  }

 private:
  ComputedElement<&VqDocProprieta::Ditta> ditta_{*this, u"Ditta"};

  /// A flag that goes to the file which `FileIntestazione` names at the time of the call, whatever file the
  /// rest is bound to.
  class HeaderFlag : public Stored<bool> {
   public:
    HeaderFlag(VqDocProprieta& owner, Name name) : Stored(owner, name), properties_(owner) {}
    using Stored::operator=;
    HeaderFlag& operator=(const HeaderFlag& other) { return *this = other.get(), *this; }

   private:
    std::shared_ptr<JobFile> target() const override { return properties_.headerFile(); }
    const VqDocProprieta& properties_;
  };

 public:
  Stored<Text> Suddivisione{*this, u"Suddivisione"};
  Stored<Date> Data{*this, u"Data"};
  Stored<Date> DataOriginale{*this, u"DataOriginale"};
  Stored<Text> Descrizione{*this, u"Descrizione"};
  Stored<Text> Funzione{*this, u"Funzione"};
  Stored<Text> Utente{*this, u"Utente"};
  Stored<Text> UtenteDescrizione{*this, u"UtenteDescrizione"};
  Stored<Text> Intestatario{*this, u"Intestatario"};
  Stored<Text> IntestatarioDescrizione{*this, u"IntestatarioDescrizione"};
  Stored<Text> Ip{*this, u"Ip"};
  Stored<Text> MacAddress{*this, u"MacAddress"};
  Stored<Text> FormatoPagina{*this, u"FormatoPagina"};
  Stored<std::int32_t> Priorita{*this, u"Priorita"};
  Stored<std::int32_t> RighePagina{*this, u"RighePagina"};
  HeaderFlag OttimizzaAreaPagina{*this, u"OttimizzaAreaPagina"};
  HeaderFlag LetturaFacilitata{*this, u"LetturaFacilitata"};
  Stored<bool> Collegato{*this, u"Collegato"};
  /// Written for the server, which alone reads it: a loaded document starts again from 0.
  Stored<std::int32_t> TentativiElaborazione{*this, u"TentativiElaborazione", Kept::WriteOnly};

  VqDocTipo Tipo;
  VqDocEsito Esito;
  VqDocLingua Lingua;
  VqDocErrore Errore;
  VqDocComando Comando;
  VqDocFile FileCorpo;         ///< `Corpi\<Id>.bvq` beside the job file, where that exists on loading
  VqDocFile FileScript;        ///< `Corpi\<Id>.svq`, likewise
  VqDocBloccato Bloccato;      ///< never in the job file
  VqDocFile FileIntestazione;  ///< the job file itself
  VqDocIntestazione Intestazione;
  VqDocCatalogoSorgente CatalogoSorgente;

  /// The subfolder for body and script files, beside the job file.
  Text bodyFolder() const { return FileIntestazione.Percorso + u"\\Corpi"; }

 protected:
  void ImpostaFile(const std::shared_ptr<JobFile>& file) override;
  void LeggiFile() override;
  void renderParts(XmlWriter& xml) const override;

 private:
  friend class Document;
  void ImpostaId(TextView id) { Id.assign(Text(id)); }
  /// The file that `FileIntestazione` names; the one without a name where that is empty.
  std::shared_ptr<JobFile> headerFile() const;
  void findBodyFile(const char16_t* extension, VqDocFile& reference) const;
};

}  // namespace orvane
