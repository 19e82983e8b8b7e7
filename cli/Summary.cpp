#include "cli/Summary.h"

#include <algorithm>
#include <map>

#include "cli/Json.h"
#include "cli/ValueText.h"
#include "core/Paths.h"

namespace orvane::cli {

namespace {

constexpr std::size_t kWidestPath = 44;
constexpr std::size_t kWidestLabel = 7;

void line(std::ostream& out, const std::string& label, std::size_t width, const std::string& value) {
  const std::string gap(label.size() < width ? width - label.size() : 0, ' ');
  out << label << gap << "  " << printable(value.empty() ? "-" : value) << '\n';
}

// A new document with as many new pages as the job has.
ObjectRef newLike(const Session& session, const Job& job) {
  const ObjectRef document = session.newDocument(*job.kind, innerKindOf(job));
  const ObjectRef pages = objectOf(document, u"Pagine");
  const std::int32_t count = numberOf(objectOf(job.document, u"Pagine"), u"Count");
  for (std::int32_t i = 0; i < count; ++i) {
    const Variant page = call(pages, u"Nuova");
    call(pages, u"Add", Arguments(&page, 1));
  }
  return document;
}

using Values = std::map<std::string, std::string>;

Values valuesOf(const ObjectRef& document) {
  Values values;
  for (MemberLine& member : listMembers(document)) values[member.path] = std::move(member.value);
  return values;
}

// Identity, kind and job file stand at the top.
bool isInHeader(const std::string& path) {
  return path.ends_with("Proprieta.FileIntestazione") || path.ends_with("Proprieta.Id") ||
         path.ends_with("Proprieta.Tipo.Codice");
}

bool isInteresting(const MemberLine& member, const Values& initial) {
  const auto found = initial.find(member.path);
  return (found == initial.end() || found->second != member.value) && !isInHeader(member.path);
}

std::string codeOf(const ObjectRef& object, TextView part) {
  const ObjectRef record = objectOf(object, part);
  return codeText(record, *findMember(*record.type, u"Codice", MemberKind::Get));
}

void showHeader(const Job& job, std::ostream& out) {
  const ObjectRef properties = objectOf(job.document, u"Proprieta");
  const JobKind* inner = innerKindOf(job);
  const std::string kind = job.kind->name + (inner ? std::string(" of ") + inner->name : std::string());
  line(out, "Job", kWidestLabel, textOf(properties, u"Id"));
  line(out, "Kind", kWidestLabel, kind);
  line(out, "File", kWidestLabel, nativePath(job.file.full()));
  line(out, "State", kWidestLabel, codeOf(job.document, u"Coda"));
  line(out, "Outcome", kWidestLabel, codeOf(properties, u"Esito"));
  if (numberOf(objectOf(properties, u"Errore"), u"Codice") != 0) {
    line(out, "Error", kWidestLabel, codeOf(properties, u"Errore"));
  }
}

std::string memberJson(const MemberLine& member, const MemberLine& raw) {
  JsonObject json;
  json.addText("path", member.path).addText("text", member.value);
  if (raw.value != member.value) json.addText("raw", raw.value);
  return json.text();
}

}  // namespace

void showJobJson(const Job& job, std::ostream& out) {
  const std::vector<MemberLine> lines = listMembers(job.document);
  const std::vector<MemberLine> raw = listMembers(job.document, Form::Raw);
  JsonObject json;
  json.addText("kind", job.kind->name).addText("id", textOf(objectOf(job.document, u"Proprieta"), u"Id"));
  json.addText("file", nativePath(job.file.full()));
  std::string members;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    members += (i == 0 ? "\n" : ",\n") + memberJson(lines[i], raw[i]);
  }
  out << json.add("members", '[' + members + "\n]").text() << '\n';
}

void showMembers(const std::vector<MemberLine>& lines, std::ostream& out) {
  std::size_t width = 0;
  for (const MemberLine& member : lines) width = std::max(width, std::min(member.path.size(), kWidestPath));
  for (const MemberLine& member : lines) line(out, member.path, width, member.value);
}

void showJob(const Session& session, const Job& job, bool all, std::ostream& out) {
  showHeader(job, out);
  std::vector<MemberLine> lines = listMembers(job.document);
  if (!all) {
    const Values initial = valuesOf(newLike(session, job));
    std::erase_if(lines, [&](const MemberLine& member) { return !isInteresting(member, initial); });
  }
  if (lines.empty()) return;
  out << '\n';
  showMembers(lines, out);
}

}  // namespace orvane::cli
