#include "cli/Commands.h"

#include "cli/CodeList.h"
#include "cli/Failure.h"
#include "cli/MemberPath.h"
#include "cli/PrettyXml.h"
#include "cli/Session.h"
#include "cli/Summary.h"
#include "core/Apartment.h"
#include "core/ProfileAccess.h"

namespace orvane::cli {

namespace {

constexpr int kFileExists = 58;

void refuseExisting(const FileName& file) {
  if (fileExists(file)) throw Failure(kFileExists, "File already exists", file.given);
}

// What the new job needs to know of the kind that it wraps.
const JobKind* innerKind(const JobKind& kind, const NewOptions& options) {
  const std::string name = kind.name;
  if (!kind.wraps() && !options.inner.empty())
    throw UsageError("--of is for pbl and anteprima, not for " + name);
  if (!kind.wraps()) return nullptr;
  if (options.linked) throw UsageError("--linked is not for " + name);
  if (options.inner.empty()) throw UsageError(name + " needs --of KIND, the kind of the document inside");
  return &innerKindNamed(options.inner);
}

void initialise(const ObjectRef& document, const NewOptions& options, const JobKind* inner,
                const Text& folder) {
  const Text id = fromUtf8(options.id);
  if (inner) {
    const Variant arguments[] = {id, static_cast<std::int32_t>(inner->type), folder};
    call(document, u"Inizializza", arguments);
  } else {
    const Variant arguments[] = {id, folder, options.linked};
    call(document, u"Inizializza", arguments);
  }
}

// Reading a value is also what writes the one property that is written by reading.
std::string valueAt(const ObjectRef& document, const std::string& path) {
  const Reading reading = readMember(document, path);
  return valueText(reading.value, reading.type, Form::Readable);
}

// What a new loading of the job does not give back is told.
void remarkOnLostValues(const Console& console, const Session& session, const Job& job,
                        const std::string& pages, const std::vector<Assignment>& assignments) {
  std::vector<std::string> values;
  for (const Assignment& each : assignments) values.push_back(valueAt(job.document, each.path()));
  const Job loaded = session.open(job.file.given);
  if (!pages.empty()) session.loadPages(loaded, pages);
  for (std::size_t i = 0; i < values.size(); ++i) {
    const std::string& path = assignments[i].path();
    const std::string kept = valueAt(loaded.document, path);
    if (kept == values[i]) continue;
    console.err << "orvane: note: " << path << " is not kept as it was set; the job loads with "
                << (kept.empty() ? "no value" : '"' + printable(kept) + '"') << '\n';
  }
}

// All in one write, and looked at before it lands: what a server makes of the job then is not ours to remark
// on.
void assign(const Console& console, const Session& session, const Job& job, const std::string& pages,
            const std::vector<Assignment>& assignments) {
  Apartment::profileAccess().open(job.file.full())->together([&] {
    perform(assignments);
    remarkOnLostValues(console, session, job, pages, assignments);
  });
}

Job openWithPages(const Session& session, const std::string& file, const std::string& pages) {
  Job job = session.open(file);
  if (!pages.empty()) session.loadPages(job, pages);
  return job;
}

void printReading(const Console& console, const Reading& reading, Form form) {
  if (const auto* object = std::get_if<ObjectRef>(&reading.value)) {
    if (*object) showMembers(listMembers(*object, form), console.out);
  } else {
    console.out << valueText(reading.value, reading.type, form) << '\n';
  }
}

ObjectRef attachmentsOf(const Job& job) {
  if (findMember(*job.document.type, u"Allegati")) return objectOf(job.document, u"Allegati");
  throw Failure(ErrorNumber::NoSuchMember,
                "a job of kind " + std::string(job.kind->name) + " has no attachments");
}

void attachOne(const ObjectRef& attachments, const std::string& given, bool missing) {
  const FileName file(given);
  about(given, [&] {
    if (!missing && !fileExists(file)) throw Error(ErrorNumber::FileNotFound);
    const Variant arguments[] = {file.folder, file.name};
    if (!toBoolean(call(attachments, u"Add", arguments))) throw Error(ErrorNumber::BadFileName);
  });
}

// Whether the document is that job or has it among its linked documents, at any depth.
bool leadsTo(const ObjectRef& document, const Text& jobFile) {
  const ObjectRef file = objectOf(objectOf(document, u"Proprieta"), u"FileIntestazione");
  if (equalIgnoringCase(toText(call(file, u"File")), jobFile)) return true;
  const Variant linked = get(objectOf(document, u"Collegati"), u"NewEnum");
  for (const Variant& each : std::get<VariantArray>(linked).items) {
    if (leadsTo(std::get<ObjectRef>(each), jobFile)) return true;
  }
  return false;
}

void linkOne(const Session& session, const Job& job, const ObjectRef& links, const std::string& given) {
  const Job other = session.open(given);
  about(given, [&] {
    const std::int32_t before = numberOf(links, u"Count");
    const Variant argument = other.document;
    const MemberInfo& add = *findMember(*links.type, u"Add", MemberKind::Method);
    if (other.document.type != add.parameters[0].type.objectClass) {
      throw Failure(ErrorNumber::TypeMismatch,
                    given + " is a job of kind " + other.kind->name + ", which this job cannot link");
    }
    if (leadsTo(other.document, job.file.full())) {
      throw Failure(ErrorNumber::NotSupportedAction, given + " leads back to " + job.file.given);
    }
    invoke(links, add, Arguments(&argument, 1));
    if (numberOf(links, u"Count") == before) {
      throw Failure(ErrorNumber::NotSupportedAction, given + " is a deleted job");
    }
  });
}

// A linked job's copy is named as one that is linked.
FileName duplicateName(const Job& job, const DuplicateOptions& options) {
  if (job.kind->type != vdt_Stampa) {
    throw Failure(ErrorNumber::NotSupportedAction,
                  "only print jobs can be duplicated, and " + options.file + " is of kind " + job.kind->name);
  }
  const bool linked = isLinkedFile(*job.kind, job.file.name);
  const Text name = fromUtf8(options.id).append(linked ? job.kind->linkedExtension : job.kind->extension);
  return {options.folder.empty() ? job.file.typedFolder : fromUtf8(options.folder), name};
}

}  // namespace

void newJob(const Console& console, const NewOptions& options) {
  const JobKind& kind = jobKindNamed(options.kind);
  const JobKind* inner = innerKind(kind, options);
  if (options.id.empty()) throw UsageError("a job needs an ID");
  const Session session(Purpose::Change);
  Text name = fromUtf8(options.id).append(options.linked ? kind.linkedExtension : kind.extension);
  Job job{&kind, FileName(fromUtf8(options.folder), std::move(name)), session.newDocument(kind, inner)};
  if (!options.force) refuseExisting(job.file);
  const std::vector<Assignment> assignments = resolve(job.document, options.assignments);
  about(options.folder, [&] { initialise(job.document, options, inner, job.file.folder); });
  assign(console, session, job, {}, assignments);
  console.out << job.file.given << '\n';
}

void setMembers(const Console& console, const SetOptions& options) {
  const Session session(Purpose::Change);
  const Job job = openWithPages(session, options.file, options.pages);
  const std::vector<Assignment> assignments = resolve(job.document, options.assignments);
  assign(console, session, job, options.pages, assignments);
}

void getMembers(const Console& console, const GetOptions& options) {
  const Session session(Purpose::Look);
  const Job job = openWithPages(session, options.file, options.pages);
  std::vector<Reading> readings;
  for (const std::string& path : options.paths) readings.push_back(readMember(job.document, path));
  for (std::size_t i = 0; i < readings.size(); ++i) {
    if (readings.size() > 1) console.out << options.paths[i] << '=';
    printReading(console, readings[i], options.raw ? Form::Raw : Form::Readable);
  }
}

void show(const Console& console, const ShowOptions& options) {
  const Session session(Purpose::Look);
  const Job job = openWithPages(session, options.file, options.pages);
  if (options.json) {
    showJobJson(job, console.out);
  } else {
    showJob(session, job, options.all, console.out);
  }
}

void printXml(const Console& console, const XmlOptions& options) {
  const Session session(Purpose::Look);
  const std::string xml = toUtf8(toText(call(session.open(options.file).document, u"Xml")));
  console.out << (options.pretty ? prettyXml(xml) : xml) << '\n';
}

void printCodes(const Console& console, const std::string& className) {
  const Session session(Purpose::Look);
  listCodes(session, className, console.out);
}

void duplicate(const Console& console, const DuplicateOptions& options) {
  const Session session(Purpose::Change);
  const Job job = session.open(options.file);
  const FileName file = duplicateName(job, options);
  refuseExisting(file);
  const ObjectRef copy = session.newDocument(*job.kind);
  about(file.given, [&] {
    const Variant binding[] = {fromUtf8(options.id), file.folder, isLinkedFile(*job.kind, job.file.name)};
    call(copy, u"Inizializza", binding);
    const Variant documents[] = {job.document, copy};
    call(session.factory(), u"DuplicaDocumentoStampa", documents);
  });
  console.out << file.given << '\n';
}

void attach(const Console&, const AttachOptions& options) {
  const Session session(Purpose::Change);
  const Job job = session.open(options.file);
  const ObjectRef attachments = attachmentsOf(job);
  for (const std::string& file : options.files) attachOne(attachments, file, options.missing);
  about(options.file, [&] { call(attachments, u"Salva"); });
}

void link(const Console&, const LinkOptions& options) {
  const Session session(Purpose::Change);
  const Job job = session.open(options.file);
  const ObjectRef links = objectOf(job.document, u"Collegati");
  for (const std::string& other : options.others) linkOne(session, job, links, other);
  about(options.file, [&] { call(links, u"Salva"); });
}

}  // namespace orvane::cli
