#include "core/VqDocumenti.h"

#include "codes/VqDocResDll.h"
#include "core/Error.h"
#include "core/Paths.h"
#include "core/Stack.h"

namespace orvane {

namespace {

void copyPrintOptions(const VqDocStampa& from, VqDocStampa& to) {
  to.Alimentazione.Codice = from.Alimentazione.Codice;
  to.Copie = from.Copie;
  to.Dimensione.Codice = from.Dimensione.Codice;
  to.Fascicolazione.Codice = from.Fascicolazione.Codice;
  to.FronteRetro.Codice = from.FronteRetro.Codice;
  to.Numero = from.Numero;
  to.Orientamento.Codice = from.Orientamento.Codice;
  to.Stampante = from.Stampante;
  to.StampanteAlternativa = from.StampanteAlternativa;
  to.StampanteOrigine = from.StampanteOrigine;
  to.LayoutPagina.AdattaAllaPagina = from.LayoutPagina.AdattaAllaPagina;
  to.LayoutPagina.Ingrandibile = from.LayoutPagina.Ingrandibile;
  to.LayoutPagina.PosizionePagina.Codice = from.LayoutPagina.PosizionePagina.Codice;
}

void copyProperties(const VqDocProprieta& from, VqDocProprieta& to) {
  to.Versione = from.Versione;
  to.Sigla = from.Sigla;
  to.DittaOrigine = from.DittaOrigine;
  to.DittaDestinazione = from.DittaDestinazione;
  to.Suddivisione = from.Suddivisione;
  to.Lingua.Codice = from.Lingua.Codice;
  to.Data = from.Data;
  to.DataOriginale = from.DataOriginale;
  to.Descrizione = from.Descrizione;
  to.Utente = from.Utente;
  to.UtenteDescrizione = from.UtenteDescrizione;
  to.Ip = from.Ip;
  to.MacAddress = from.MacAddress;
  to.FormatoPagina = from.FormatoPagina;
  to.Priorita = from.Priorita;
  to.RighePagina = from.RighePagina;
  to.OttimizzaAreaPagina = from.OttimizzaAreaPagina;
  to.Intestazione.Codice = from.Intestazione.Codice;
  to.Collegato = from.Collegato;
}

// What was copied before is in the job file before a byte of the file is touched.
void copyBodyFile(const VqDocFile& from, VqDocFile& to, const VqDocProprieta& properties,
                  const char16_t* extension, JobFile& job) {
  const FileSystem& fileSystem = Apartment::fileSystem();
  if (!fileSystem.fileExists(from.File())) return;
  job.landSoFar();
  to.Percorso = properties.bodyFolder();
  to.Nome = properties.Id.get() + extension;
  fileSystem.copyFile(from.File(), to.File());
}

}  // namespace

VqDocumenti::VqDocumenti() {
  Apartment::create([] { return std::make_shared<VqDocResDll>(); });
}

VqDocumenti::~VqDocumenti() { Apartment::release(); }

std::shared_ptr<VqDocStampa> VqDocumenti::NuovoDocumentoStampa() const {
  return std::make_shared<VqDocStampa>();
}
std::shared_ptr<VqDocFax> VqDocumenti::NuovoDocumentoFax() const { return std::make_shared<VqDocFax>(); }
std::shared_ptr<VqDocPFax> VqDocumenti::NuovoDocumentoPFax() const { return std::make_shared<VqDocPFax>(); }
std::shared_ptr<VqDocAnteprima> VqDocumenti::NuovoDocumentoAnteprima() const {
  return std::make_shared<VqDocAnteprima>();
}
std::shared_ptr<VqDocEmail> VqDocumenti::NuovoDocumentoEmail() const {
  return std::make_shared<VqDocEmail>();
}
std::shared_ptr<VqDocPbl> VqDocumenti::NuovoDocumentoPbl() const { return std::make_shared<VqDocPbl>(); }

void VqDocumenti::flushEveryWrite(bool on) const { Apartment::profileAccess().flushEveryWrite(on); }
void VqDocumenti::readOnly(bool on) const { Apartment::profileAccess().readOnly(on); }

void VqDocumenti::DuplicaDocumentoStampa(const std::shared_ptr<VqDocStampa>& DocOriginale,
                                         const std::shared_ptr<VqDocStampa>& DocDestinazione) const {
  checkStack();
  // Either may be owned by a list of links alone, which this changes.
  const auto source = DocOriginale, destination = DocDestinazione;
  if (!source || !destination) throw Error(ErrorNumber::ObjectNotSet);
  const VqDocStampa& from = *source;
  VqDocStampa& to = *destination;
  const auto file = to.file_;
  file->together([&] {
    copyPrintOptions(from, to);
    copyQueue(from, to);
    copyProperties(from.Proprieta, to.Proprieta);
    copyBodyFile(from.Proprieta.FileCorpo, to.Proprieta.FileCorpo, to.Proprieta, u".bvq", *file);
    copyBodyFile(from.Proprieta.FileScript, to.Proprieta.FileScript, to.Proprieta, u".svq", *file);
    to.Proprieta.CatalogoSorgente.copyCodes(from.Proprieta.CatalogoSorgente);
    to.Diretta.CatalogoDestinazione.copyCodes(from.Diretta.CatalogoDestinazione);
    duplicateLinked(from, to);
  });
}

void VqDocumenti::copyQueue(const VqDocStampa& from, VqDocStampa& to) {
  to.Coda.Codice = from.Coda.Codice;
  to.Coda.DataInserimento = from.Coda.DataInserimento;
  to.Coda.copyHistory(from.Coda);
}

void VqDocumenti::duplicateLinked(const VqDocStampa& from, VqDocStampa& to) const {
  to.Collegati.Copie = from.Collegati.Copie;
  to.Collegati.RemoveAll();
  const Text& folder = to.Proprieta.FileIntestazione.Percorso;
  for (const auto& linked : from.Collegati) {
    auto copy = NuovoDocumentoStampa();
    const Text id = to.Proprieta.Id.get() + u'_' + linked->Proprieta.Id.get();
    const auto file = Apartment::profileAccess().open(joinPath(folder, id + copy->kind().linkedExtension));
    file->together([&] {
      copy->Inizializza(id, folder, true);
      DuplicaDocumentoStampa(linked, copy);
    });
    to.Collegati.Add(std::move(copy));
  }
  to.Collegati.Salva();
}

}  // namespace orvane
