#include "cli/Session.h"

#include "cli/AbsoluteFolder.h"
#include "cli/Failure.h"
#include "core/Apartment.h"
#include "core/Document.h"
#include "core/Paths.h"

namespace orvane::cli {

namespace {

constexpr int kInvalidFormat = 321;

struct Parts {
  Text folder;
  Text name;
};

// A file without a folder lies in the current one.
Parts split(const Text& file) {
  const std::size_t last = file.find_last_of(u"/\\");
  if (last == Text::npos) return {u".", file};
  return {file.substr(0, last == 0 ? 1 : last), file.substr(last + 1)};
}

}  // namespace

FileName::FileName(const std::string& typed) : given(typed) {
  Parts parts = split(fromUtf8(typed));
  typedFolder = std::move(parts.folder);
  folder = absoluteFolder(typedFolder);
  name = std::move(parts.name);
}

FileName::FileName(Text inFolder, Text fileName)
    : given(nativePath(inFolder + u'\\' + fileName)),
      typedFolder(std::move(inFolder)),
      folder(absoluteFolder(typedFolder)),
      name(std::move(fileName)) {}

Session::Session(Purpose purpose) : factory_(newVqDocumenti()) {
  Apartment::profileAccess().readOnly(purpose == Purpose::Look);
}

ObjectRef Session::newDocument(const JobKind& kind, const JobKind* inner) const {
  const ObjectRef document = std::get<ObjectRef>(call(factory_, kind.factoryMethod));
  if (kind.wraps() && inner) {
    const Variant type = static_cast<std::int32_t>(inner->type);
    call(document, u"ImpostaDocumento", Arguments(&type, 1));
  }
  return document;
}

Job Session::open(const std::string& given) const {
  FileName file(given);
  return about(given, [&] {
    return loading(false, file.folder, file.name, [&](const auto&) {
      const JobKind& kind = kindOf(file);
      ObjectRef document = newDocument(kind);
      const Variant arguments[] = {file.folder, file.name};
      call(document, u"Carica", arguments);
      return Job{&kind, std::move(file), std::move(document)};
    });
  });
}

const JobKind& Session::kindOf(const FileName& file) const {
  const std::vector<const JobKind*> kinds = jobKindsOfFile(file.name);
  if (kinds.size() == 1) return *kinds.front();
  ProfileAccess& access = Apartment::profileAccess();
  const auto jobFile = access.open(file.full());
  if (const JobKind* kind = jobKindOfType(access.LeggiNumero(*jobFile, u"Tipo", u"Codice", -1))) return *kind;
  if (!kinds.empty()) return *kinds.front();
  throw Failure(kInvalidFormat, "Invalid file format",
                file.given + " has no job's extension, and no section Tipo that says its kind");
}

void Session::loadPages(const Job& job, const std::string& folder) const {
  about(folder, [&] {
    const Text path = absoluteFolder(fromUtf8(folder));
    if (!folderExists(path)) throw Error(ErrorNumber::PathNotFound);
    const Variant argument = path;
    call(objectOf(job.document, u"Pagine"), u"Carica", Arguments(&argument, 1));
  });
}

const JobKind* innerKindOf(const Job& job) {
  return job.kind->wraps() ? &jobKindOfClass(objectOf(job.document, u"Documento").type->name) : nullptr;
}

bool fileExists(const FileName& file) { return Apartment::fileSystem().fileExists(file.full()); }
bool folderExists(TextView folder) { return Apartment::fileSystem().folderExists(folder); }

ObjectRef objectOf(const ObjectRef& document, TextView member) {
  return std::get<ObjectRef>(get(document, member));
}

std::int32_t numberOf(const ObjectRef& document, TextView member) { return toLong(get(document, member)); }
std::string textOf(const ObjectRef& document, TextView member) {
  return toUtf8(toText(get(document, member)));
}

}  // namespace orvane::cli
