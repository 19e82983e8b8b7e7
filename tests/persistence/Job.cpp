#include "tests/persistence/Job.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace orvane::test {

namespace {

const Kind kWrappers[] = {
    {"Pubblicazione", kPbl, u"NuovoDocumentoPbl", u"lavoro.vqpb"},
    {"Anteprima", kAnteprima, u"NuovoDocumentoAnteprima", u"lavoro.vqa"},
};
constexpr std::int32_t kTypeCodes[kComposedKinds] = {2, 1, 4, 3};
constexpr char16_t kPages[] = u"Pagine";

std::vector<Kind> makeKinds() {
  std::vector<Kind> kinds{
      {"Stampa", kStampa, u"NuovoDocumentoStampa", u"lavoro.vqs"},
      {"Fax", kFax, u"NuovoDocumentoFax", u"lavoro.vqf"},
      {"PFax", kPFax, u"NuovoDocumentoPFax", u"lavoro.vqpf"},
      {"Email", kEmail, u"NuovoDocumentoEmail", u"lavoro.vqe"},
  };
  for (const Kind& wrapper : kWrappers) {
    for (std::size_t i = 0; i < kComposedKinds; ++i) {
      kinds.push_back(wrapper);
      kinds.back().name += kinds[i].name;
      kinds.back().inner = kTypeCodes[i];
    }
  }
  kinds.push_back({"Pagina", kPagina, u"NuovoDocumentoStampa", u"p001.dpg"});
  return kinds;
}

void setFile(const ObjectRef& file, const Text& folder, const Text& name) {
  let(file, u"Percorso", folder);
  let(file, u"Nome", name);
}

ObjectRef objectAt(const ObjectRef& root, const std::string& path) {
  return std::get<ObjectRef>(getAt(root, path));
}

}  // namespace

const std::vector<Kind>& kinds() {
  static const std::vector<Kind> all = makeKinds();
  return all;
}

const Kind& innerKind(const Kind& kind) {
  const auto place = std::find(std::begin(kTypeCodes), std::end(kTypeCodes), kind.inner);
  return kinds().at(static_cast<std::size_t>(place - std::begin(kTypeCodes)));
}

std::string shown(const Variant& value) {
  if (const auto* array = std::get_if<VariantArray>(&value)) {
    std::string items;
    for (const Variant& item : array->items) items += shown(item) + ';';
    return '{' + items + '}';
  }
  return value.isEmpty() ? "Empty" : toUtf8(toText(value));
}

Job::Job(const Kind& kind) : kind_(kind), document_(newDocument()) {
  initialise(document_);
  root_ = kind.set == kPagina ? newPage(document_) : document_;
}

Text Job::file() const {
  return kind_.set == kPagina ? folder_.file(kPages) + u'\\' + kind_.fileName : folder_.file(kind_.fileName);
}

ObjectRef Job::newDocument() const { return std::get<ObjectRef>(call(factory_, kind_.factoryMethod)); }

void Job::initialise(const ObjectRef& document) const {
  std::vector<Variant> args{u"lavoro", folder()};
  if (kind_.inner != 0) args.insert(args.begin() + 1, kind_.inner);
  call(document, u"Inizializza", args);
}

ObjectRef Job::newPage(const ObjectRef& document) const {
  std::filesystem::create_directory(folder_.native(kPages));
  const ObjectRef page = std::get<ObjectRef>(callAt(document, "Pagine.Nuova"));
  setFile(objectAt(page, "FileIntestazione"), folder_.file(kPages), kind_.fileName);
  callAt(document, "Pagine.Add", std::vector<Variant>{page});
  return page;
}

Text Job::storedForm(TextView section, TextView key) const {
  const std::string bytes = folder_.read(file().substr(folder().size() + 1));
  Text text;
  for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
    text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                  static_cast<unsigned char>(bytes[i + 1]) << 8);
  }
  const auto from = text.find(u'[' + Text(section) + u"]\r\n");
  const auto line = text.find(u"\r\n" + Text(key) + u'=', from == Text::npos ? text.size() : from);
  if (line == Text::npos) return kAbsent;
  const auto begin = line + key.size() + 3;
  return text.substr(begin, text.find(u"\r\n", begin) - begin);
}

void Job::edit(TextView section, TextView key, TextView value) const {
  JobContent all = content();
  for (JobSection& s : all.sections) {
    if (s.name == section) std::erase_if(s.keys, [&](const JobKey& k) { return k.name == key; });
  }
  all.sections.push_back({Text(section), {}});
  for (JobSection& s : all.sections) {
    if (s.name != section) continue;
    s.keys.push_back({Text(key), Text(value)});
    break;
  }
  if (all.sections.back().keys.empty()) all.sections.pop_back();
  writeJobFile(file(), all.lines());
}

void Job::assign(const std::string& path, const Variant& value, Written written) const {
  letAt(root_, path, value);
  if (written == Written::WhenRead) getAt(root_, path);
  if (written != Written::BySalva) return;
  callAt(root_, kind_.set == kPagina ? "Salva" : path.substr(0, path.find('.')) + ".Salva");
}

ObjectRef Job::loaded() const {
  if (kind_.set == kPagina) return loadedPage();
  const ObjectRef document = newDocument();
  call(document, u"Carica", std::vector<Variant>{folder(), kind_.fileName});
  callAt(document, "Pagine.Carica", std::vector<Variant>{folder_.file(kPages)});
  return document;
}

ObjectRef Job::loadedPage() const {
  const ObjectRef document = newDocument();
  callAt(document, "Pagine.Carica", std::vector<Variant>{folder_.file(kPages)});
  return objectAt(document, "Pagine.Item(1)");
}

}  // namespace orvane::test
