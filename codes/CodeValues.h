// The classes that pair one code with its description: paper size, orientation, language, outcome, and the
// line parameters and results of a fax. They are one class in many rows; a row says what is different.
#pragma once

#include "codes/Code.h"
#include "typelib/enumerations.h"

namespace orvane {

/// A row of the family: its section of the job file, its element of the XML, and the names of its code. A
/// class without a section keeps its code in the object and in the XML only.
struct CodeRow {
  Name section;
  TextView element;
  CodeNames names;
  Kept kept = Kept::JobFileAndXml;
};

/// `Codice` with `Descrizione()`. Assigning `Codice` stores any value, writes the code and then its
/// description; `Descrizione` is never read back, it is computed from the code.
template <class Enum, const CodeRow& row>
class CodeValue : public Component {
 public:
  static constexpr const CodeRow& kRow = row;

  CodeValue() : CodeValue(row.section) {}

  Code<Enum> Codice{*this, row.names, row.kept};

  /// The text of the code, or the missing-string text for a code without one. Error 6 near the largest code.
  Text Descrizione() const { return Codice.description(); }

 protected:
  explicit CodeValue(Name section) : Component(section, row.element) {}
};

/// Every row of the family. Text numbers, sections and keys are in job files and in users' tables: never
/// change one.
namespace rows {
inline constexpr CodeRow Lingua{u"Lingua", u"Lingua", {7800}};
inline constexpr CodeRow Orientamento{u"Orientamento", u"Orientamento", {7900}};
inline constexpr CodeRow Pinzatura{u"Pinzatura", u"Pinzatura", {9200}};
inline constexpr CodeRow Alimentazione{u"Alimentazione", u"Alimentazione", {7400}};
inline constexpr CodeRow FronteRetro{u"FronteRetro", u"FronteRetro", {7600}};
inline constexpr CodeRow Fascicolazione{u"Fascicolazione", u"Fascicolazione", {7700}};
inline constexpr CodeRow SmtpAutentica{u"Autenticazione", u"Autenticazione", {8900}};
inline constexpr CodeRow Intestazione{u"Intestazione", u"Intestazione", {8700}};
inline constexpr CodeRow PagineStato{u"Stato", {}, {8600}, Kept::JobFile};
inline constexpr CodeRow Tipo{u"Tipo", u"Tipo", {8300}};
inline constexpr CodeRow Comando{u"Comando", u"Comando", {9500}};
inline constexpr CodeRow PosizionePagina{u"PosizionePagina", u"PosizionePagina", {9000}};
inline constexpr CodeRow TipoCatalogo{{}, u"TipoCatalogo", {9100}};
inline constexpr CodeRow Dimensione{u"Dimensione", u"Dimensione", {7500}};
inline constexpr CodeRow Bloccato{{}, u"Bloccato", {8400}, Kept::Xml};
inline constexpr CodeRow Esito{u"Esito", u"Esito", {9300}};
inline constexpr CodeRow FaxBaudRate{u"FaxTrasmissione_BaudRate", u"BaudRate", {2000, 1}};
inline constexpr CodeRow FaxBFT{u"FaxTrasmissione_BFT", u"BFT", {400, 1}};
inline constexpr CodeRow FaxCompressione{u"FaxTrasmissione_Compressione", u"Compressione", {1500, 1}};
inline constexpr CodeRow FaxECM{u"FaxTrasmissione_ECM", u"ECM", {1400, 1}};
inline constexpr CodeRow FaxErrore{u"FaxTrasmissione_Errore", u"Errore", {10000, 0, true}};
inline constexpr CodeRow FaxRisoluzione{u"FaxTrasmissione_Risoluzione", u"Risoluzione", {300, 1}};
inline constexpr CodeRow FaxTipoFax{u"FaxTrasmissione_TipoFax", u"TipoFax", {600, 1}};
inline constexpr CodeRow FaxTRMStatus{u"FaxTrasmissione_TRMStatus", u"TRMStatus", {1600}};
inline constexpr CodeRow FaxDispositivo{u"FaxTrasmissione_Dispositivo", u"Dispositivo", {500, 1}};
}  // namespace rows

using VqDocLingua = CodeValue<enmVqDocLingua, rows::Lingua>;
using VqDocOrientamento = CodeValue<enmVqDocOrientamento, rows::Orientamento>;
using VqDocPinzatura = CodeValue<enmVqDocPinzatura, rows::Pinzatura>;
using VqDocAlimentazione = CodeValue<enmVqDocAlimentazione, rows::Alimentazione>;
using VqDocFronteRetro = CodeValue<enmVqDocFronteRetro, rows::FronteRetro>;
using VqDocFascicolazione = CodeValue<enmVqDocFascicolazione, rows::Fascicolazione>;
using VqDocSmtpAutentica = CodeValue<enmVqDocSmtpAutentica, rows::SmtpAutentica>;
using VqDocIntestazione = CodeValue<enmVqDocIntestazione, rows::Intestazione>;
using VqDocTipo = CodeValue<enmVqDocTipo, rows::Tipo>;
using VqDocComando = CodeValue<enmVqDocComando, rows::Comando>;
using VqDocPosizionePagina = CodeValue<enmVqDocPosizionePagina, rows::PosizionePagina>;
using VqDocDimensione = CodeValue<enmVqDocDimensione, rows::Dimensione>;
using VqDocBloccato = CodeValue<enmVqDocBloccato, rows::Bloccato>;
using VqDocEsito = CodeValue<enmVqDocEsito, rows::Esito>;
using VqDocFaxBaudRate = CodeValue<enmVqDocFaxTrasmissioneBaudRate, rows::FaxBaudRate>;
using VqDocFaxBFT = CodeValue<enmVqDocFaxTrasmissioneBFT, rows::FaxBFT>;
using VqDocFaxCompressione = CodeValue<enmVqDocFaxTrasmissioneCompressione, rows::FaxCompressione>;
using VqDocFaxECM = CodeValue<enmVqDocFaxTrasmissioneECM, rows::FaxECM>;
using VqDocFaxErrore = CodeValue<enmVqVqDocFaxErrore, rows::FaxErrore>;
using VqDocFaxRisoluzione = CodeValue<enmVqDocFaxTrasmissioneRisoluzione, rows::FaxRisoluzione>;
using VqDocFaxTipoFax = CodeValue<enmVqDocFaxTrasmissioneTipoFax, rows::FaxTipoFax>;
using VqDocFaxTRMStatus = CodeValue<enmVqDocFaxTrasmissioneTRMStatus, rows::FaxTRMStatus>;
using VqDocFaxDispositivo = CodeValue<enmVqDocFaxTrasmissioneDispositivo, rows::FaxDispositivo>;

/// The state of the pages, with the number of pages that the server has composed so far. It has no XML.
class VqDocPagineStato : public CodeValue<enmVqDocPagineStato, rows::PagineStato> {
 public:
  Stored<std::int32_t> PagineScomposte{*this, u"PagineScomposte", Kept::JobFile};
};

/// The character code of a printer's control codes. It has no section of its own: it is kept in its
/// catalog's.
class VqDocTipoCatalogo : public CodeValue<enmVqDocTipoCatalogo, rows::TipoCatalogo> {
 public:
  explicit VqDocTipoCatalogo(Name catalogSection) : CodeValue(catalogSection) {}
};

/// Names of the two codes of `VqDocFaxColore` and `VqDocFaxPagina`. The page's keys are Italian in the job
/// file and English in the XML.
namespace names {
inline constexpr CodeNames FaxGestioneColore{700, 1, false, u"CodiceGestione", u"DescrizioneGestione"};
inline constexpr CodeNames FaxTipoColore{800, 1, false, u"CodiceTipo", u"DescrizioneTipo"};
inline constexpr CodeNames FaxPageWidth{
    1200, 1, false, u"CodiceLarghezza", u"DescrizioneLarghezza", u"CodiceWidth", u"DescrizioneWidth"};
inline constexpr CodeNames FaxPageLength{
    1300, 1, false, u"CodiceLunghezza", u"DescrizioneLunghezza", u"CodiceLength", u"DescrizioneLength"};
}  // namespace names

/// How a fax treats colours, and which.
class VqDocFaxColore : public Component {
 public:
  VqDocFaxColore() : Component(u"FaxTrasmissione_Colore", u"Colore") {}

  Code<enmVqDocFaxTrasmissioneGestioneColore> CodiceGestione{*this, names::FaxGestioneColore};
  Text DescrizioneGestione() const { return CodiceGestione.description(); }

  Code<enmVqDocFaxTrasmissioneTipoColore> CodiceTipo{*this, names::FaxTipoColore};
  Text DescrizioneTipo() const { return CodiceTipo.description(); }
};

/// The width of a fax page in dots. It is written when it is read: assigning only stores, and each reading
/// writes code and description. Servers rely on finding the width that the client has looked at.
class PageWidth : public Code<enmVqDocFaxTrasmissionePageWidth> {
 public:
  explicit PageWidth(Fields& owner) : Code(owner, names::FaxPageWidth) {}

  enmVqDocFaxTrasmissionePageWidth get() const { return writeThrough(), Code::get(); }
  operator enmVqDocFaxTrasmissionePageWidth() const { return get(); }
  PageWidth& operator=(std::int32_t code) { return keep(code), *this; }
  PageWidth& operator=(const PageWidth& other) { return *this = other.get(); }
  friend bool operator==(const PageWidth& a, enmVqDocFaxTrasmissionePageWidth b) { return a.get() == b; }
  friend bool operator==(const PageWidth& a, const PageWidth& b) { return a.get() == b.get(); }
};

/// Width and length of a fax page.
class VqDocFaxPagina : public Component {
 public:
  VqDocFaxPagina() : Component(u"FaxTrasmissione_Pagina", u"Pagina") {}

  PageWidth CodiceWidth{*this};
  Text DescrizioneWidth() const { return CodiceWidth.description(); }

  Code<enmVqDocFaxTrasmissionePageLength> CodiceLength{*this, names::FaxPageLength};
  Text DescrizioneLength() const { return CodiceLength.description(); }
};

}  // namespace orvane
