#include "pages/VqDocPagina.h"

#include "core/Numbers.h"

namespace orvane {

namespace {

// How the values of a page travel through its header file.
class Header {
 public:
  explicit Header(const Text& name) : file_(access_.open(name)) {}
  template <class Work>
  void together(Work work) {
    file_->together(work);
  }

  void write(TextView section, TextView key, bool value) {
    access_.ScriviBooleano(*file_, section, key, value);
  }
  void write(TextView section, TextView key, std::int32_t value) {
    access_.ScriviNumero(*file_, section, key, value);
  }
  void write(TextView section, TextView key, Currency value) {
    access_.ScriviNumero(*file_, section, key, toDouble(value));
  }
  void write(TextView section, TextView key, const Text& value) {
    access_.ScriviTesto(*file_, section, key, value);
  }

  void read(Name section, Name key, bool& value) { value = access_.LeggiBooleano(*file_, section, key); }
  void read(Name section, Name key, Currency& value) {
    value = toCurrency(access_.LeggiNumero(*file_, section, key));
  }
  void read(Name section, Name key, Text& value, TextView missing = {}) {
    value = access_.LeggiTesto(*file_, section, key, missing);
  }
  std::int32_t readLong(Name section, Name key) { return access_.LeggiIntero(*file_, section, key); }
  void read(Name section, Name key, std::int32_t& value) { value = readLong(section, key); }
  template <class Enum>
  requires std::is_enum_v<Enum>
  void read(Name section, Name key, Enum& value) { value = static_cast<Enum>(readLong(section, key)); }

 private:
  ProfileAccess& access_ = Apartment::profileAccess();
  std::shared_ptr<JobFile> file_;
};

constexpr Name kProperties = u"Proprieta", kLanguage = u"Lingua", kUserFile = u"FileUtente",
               kTextFile = u"FileTesto", kValidity = u"Validita", kName = u"Nome", kFolder = u"Percorso",
               kCode = u"Codice";

}  // namespace

void VqDocPagina::DistruggiArray() {
  for (VariantArray* array : {&ArrayTxt, &ArrayScriptA, &ArrayScriptB}) *array = {};
}

template <class Visit>
void VqDocPagina::visitProperties(Visit visit) {
  visit(u"RighePagina", RighePagina);
  visit(u"AltezzaRiga", AltezzaRiga);
  visit(u"NuovoFoglio", NuovoFoglio);
  visit(u"Tipo", Tipo);
  visit(u"OttimizzaArea", OttimizzaArea);
  visit(u"LetturaFacilitata", LetturaFacilitata);
  visit(u"Suddivisione", Suddivisione);
}

void VqDocPagina::Salva() {
  Header header(FileIntestazione.File());
  header.together([&] {
    visitProperties([&](TextView key, const auto& value) { header.write(kProperties, key, value); });
    header.write(kLanguage, kCode, Lingua.Codice.number());
    header.write(kLanguage, u"Descrizione", Lingua.Descrizione());
    header.write(kUserFile, kName, FileUtente.Nome);
    header.write(kUserFile, kFolder, FileUtente.Percorso);
    header.write(kTextFile, kName, FileTxt.Nome);
    header.write(kTextFile, kFolder, FileTxt.Percorso);
    header.write(kValidity, kCode, static_cast<std::int32_t>(Validita));
  });
}

// Not the mirror of `Salva`, and meant so: the user file is looked for beside the header wherever it was
// saved, and the text file is found by its name, not by what was saved.
void VqDocPagina::LeggiFile() {
  Header header(FileIntestazione.File());
  header.together([&] {
    visitProperties([&](TextView key, auto& value) { header.read(kProperties, key, value); });
    Lingua.Codice = header.readLong(kLanguage, kCode);
    header.read(kUserFile, kName, FileUtente.Nome, Text(FileUtente.Nome));
    FileUtente.Percorso = FileIntestazione.Percorso;
    header.read(kValidity, kCode, Validita);
  });
  findCompanions();
}

void VqDocPagina::findCompanions() {
  const auto dot = FileIntestazione.Nome.rfind(u'.');
  if (dot == Text::npos) return;
  const Text stem = FileIntestazione.Nome.substr(0, dot);
  const auto find = [&](const char16_t* extension, VqDocFile& reference) {
    const VqDocFile companion{FileIntestazione.Percorso, stem + extension};
    if (Apartment::fileSystem().fileExists(companion.File())) reference = companion;
  };
  find(u".vvq", FileVvq);
  find(u".bmp", FileBmp);
  find(u".txt", FileTxt);
}

}  // namespace orvane
