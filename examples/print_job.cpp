// Composes print jobs: print_job [FOLDER [TEXT_FILE]]
//
// FOLDER becomes a documents folder with job 123 (a text file as body, pages, paper, printer, control codes),
// two jobs linked to it, and job 200, a duplicate of the whole. Then everything is loaded back in new
// objects.
#include <orvane.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace fs = std::filesystem;
using orvane::Text;

namespace {

constexpr std::size_t kLinesOfPage = 20;

std::vector<std::string> readLines(const fs::path& file) {
  std::ifstream in(file);
  if (!in) throw std::runtime_error("cannot read " + file.string());
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

void writeFile(const fs::path& file, const std::string& content) {
  std::ofstream out(file, std::ios::binary);
  if (!out.write(content.data(), static_cast<std::streamsize>(content.size()))) {
    throw std::runtime_error("cannot write " + file.string());
  }
}

std::string littleEndian(unsigned value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> 8 * i & 0xFF);
  return text;
}

// A black and white picture of 32 by 32 points: a frame.
std::string framePicture() {
  std::string rows;
  for (int y = 0; y < 32; ++y) {
    const bool edge = y == 0 || y == 31;
    rows += edge ? std::string(4, '\xFF') : std::string("\x80\0\0\x01", 4);
  }
  const std::string info = littleEndian(40, 4) + littleEndian(32, 4) + littleEndian(32, 4) +
                           littleEndian(1, 2) + littleEndian(1, 2) + littleEndian(0, 4) +
                           littleEndian(128, 4) + littleEndian(2835, 4) + littleEndian(2835, 4) +
                           littleEndian(2, 4) + littleEndian(2, 4);
  const std::string colours = littleEndian(0xFFFFFF, 4) + littleEndian(0, 4);
  return "BM" + littleEndian(62 + 128, 4) + littleEndian(0, 4) + littleEndian(62, 4) + info + colours + rows;
}

std::string linesOf(const std::vector<std::string>& lines, std::size_t page) {
  std::string text;
  const std::size_t end = std::min(lines.size(), (page + 1) * kLinesOfPage);
  for (std::size_t i = page * kLinesOfPage; i < end; ++i) text += lines[i] + "\r\n";
  return text;
}

// A page is a header file (.dpg) of its own; the files beside it that have its name belong to it.
void addPage(orvane::VqDocStampa& stampa, const fs::path& folder, std::size_t number,
             const std::string& text) {
  const std::string name = "p00" + std::to_string(number + 1);
  writeFile(folder / (name + ".txt"), text);
  writeFile(folder / (name + ".bmp"), framePicture());
  writeFile(folder / (name + ".vvq"), "FRAME 10 10 200 287\r\n");

  const auto pagina = stampa.Pagine.Nuova();
  pagina->FileIntestazione.Percorso = folder.u16string();
  pagina->FileIntestazione.Nome = orvane::fromUtf8(name + ".dpg");
  pagina->FileUtente.Nome = orvane::fromUtf8(name + ".txt");
  pagina->RighePagina = kLinesOfPage;
  pagina->AltezzaRiga = orvane::Currency{42333};  // 4.2333
  pagina->Tipo = number % 2 == 0 ? orvane::vdpt_Fronte : orvane::vdpt_Retro;
  pagina->Validita = orvane::vdpv_Stampa;
  pagina->Salva();
  stampa.Pagine.Add(pagina);
}

void addPages(orvane::VqDocStampa& stampa, const fs::path& folder, const std::vector<std::string>& lines) {
  fs::create_directories(folder);
  const std::size_t count = std::max<std::size_t>(1, (lines.size() + kLinesOfPage - 1) / kLinesOfPage);
  for (std::size_t page = 0; page < count; ++page) addPage(stampa, folder, page, linesOf(lines, page));
  stampa.Pagine.Stato.PagineScomposte = stampa.Pagine.Count();
  stampa.Pagine.Stato.Codice = orvane::vdps_Scomposte;
}

void describe(orvane::VqDocProprieta& proprieta) {
  proprieta.Descrizione = u"Guida del progetto, perché tutti la leggano";
  proprieta.Utente = u"mrossi";
  proprieta.UtenteDescrizione = u"Maria Rossi";
  proprieta.DittaOrigine = u"Officine Perù S.r.l.";
  proprieta.Data = orvane::dateOf(2026, 11, 21);
  proprieta.Lingua.Codice = orvane::vdl_Italiano;
  proprieta.Priorita = 5;
}

void choosePaper(orvane::VqDocStampa& stampa) {
  stampa.StampanteOrigine = u"Aghi ufficio";
  stampa.StampanteAlternativa = u"Laser magazzino";
  stampa.Stampante = u"Laser ufficio";
  stampa.Copie = 2;
  stampa.Dimensione.Codice = orvane::vdd_A4;
  stampa.Orientamento.Codice = orvane::vdo_Verticale;
  stampa.Alimentazione.Codice = orvane::vda_CassettoSuperiore;
  stampa.FronteRetro.Codice = orvane::vdfr_Verticale;
  stampa.Fascicolazione.Codice = orvane::vdf_Fascicolato;
  stampa.Pinzatura.Codice = orvane::vdpnz_Singola;
  stampa.Diretta.CatalogoDestinazione.CompressoOn(0) = 27;
  stampa.Diretta.CatalogoDestinazione.CompressoOn(1) = 15;
}

// A linked job has a job file of its own; the job that it is linked to lists it.
void linkJob(const orvane::VqDocumenti& fabbrica, orvane::VqDocStampa& stampa, const Text& folder,
             const Text& id) {
  const auto collegato = fabbrica.NuovoDocumentoStampa();
  collegato->Inizializza(id, folder, true);
  collegato->Stampante = u"Laser archivio";
  collegato->Proprieta.Collegato = true;
  collegato->Proprieta.Descrizione = u"Copia per l'archivio " + id;
  stampa.Collegati.Add(collegato);
}

std::shared_ptr<orvane::VqDocStampa> compose(const orvane::VqDocumenti& fabbrica, const fs::path& folder,
                                             const fs::path& textFile) {
  const auto stampa = fabbrica.NuovoDocumentoStampa();
  stampa->Inizializza(u"123", folder.u16string());  // from here on each assignment is in the job file at once
  describe(stampa->Proprieta);
  choosePaper(*stampa);

  stampa->Proprieta.FileCorpo.Percorso = stampa->Proprieta.bodyFolder();
  stampa->Proprieta.FileCorpo.Nome = u"123.bvq";
  fs::create_directories(folder / "Corpi");
  fs::copy_file(textFile, folder / "Corpi" / "123.bvq", fs::copy_options::overwrite_existing);
  addPages(*stampa, folder / "123", readLines(textFile));

  linkJob(fabbrica, *stampa, folder.u16string(), u"7");
  linkJob(fabbrica, *stampa, folder.u16string(), u"8");
  stampa->Collegati.Salva();
  return stampa;
}

void walkQueue(orvane::VqDocStampa& stampa) {
  stampa.Coda.DataInserimento = orvane::Apartment::now();
  for (const auto stato : {orvane::vdcs_DaStampare, orvane::vdcs_InStampa, orvane::vdcs_Stampato}) {
    stampa.Coda.Codice = stato;
    std::cout << "  " << orvane::toUtf8(stampa.Coda.Descrizione()) << '\n';
  }
  stampa.Proprieta.Esito.Codice = orvane::vde_Ok;
}

void loadBack(const orvane::VqDocumenti& fabbrica, const Text& folder, const Text& file) {
  const auto stampa = fabbrica.NuovoDocumentoStampa();
  stampa->Carica(folder, file);
  stampa->Pagine.Carica(folder + u'\\' + stampa->Proprieta.Id.get());
  std::cout << "  " << orvane::toUtf8(file) << ": " << stampa->Copie.get() << " x "
            << orvane::toUtf8(stampa->Dimensione.Descrizione()) << " on "
            << orvane::toUtf8(stampa->Stampante.get()) << ", " << stampa->Pagine.Count() << " pages, "
            << stampa->Collegati.Count() << " linked, " << orvane::toUtf8(stampa->Coda.Descrizione()) << '\n';
}

void run(const fs::path& folder, const fs::path& textFile) {
  const orvane::VqDocumenti fabbrica;
  fs::create_directories(folder);
  std::cout << "Job 123 goes through the queue:\n";
  const auto stampa = compose(fabbrica, folder, textFile);
  walkQueue(*stampa);

  const auto copia = fabbrica.NuovoDocumentoStampa();
  copia->Inizializza(u"200", folder.u16string());
  fabbrica.DuplicaDocumentoStampa(stampa, copia);

  std::cout << "Loaded back in new objects:\n";
  for (const Text file : {u"123.vqs", u"7.lvq", u"8.lvq", u"200.vqs", u"200_7.lvq", u"200_8.lvq"}) {
    loadBack(fabbrica, folder.u16string(), file);
  }
}

}  // namespace

int main(int count, char** arguments) {
  try {
    const fs::path folder = fs::absolute(count > 1 ? arguments[1] : "print_job-jobs");
    fs::create_directories(folder);
    const fs::path text = count > 2 ? fs::path(arguments[2]) : folder / "letter.txt";
    if (count <= 2) writeFile(text, "Gentile cliente,\r\n\r\nla merce è pronta.\r\n");
    run(folder, text);
    return 0;
  } catch (const orvane::Error& error) {
    std::cerr << "print_job: " << error.what() << " (" << error.number() << ")\n";
  } catch (const std::exception& error) {
    std::cerr << "print_job: " << error.what() << '\n';
  }
  return 1;
}
