#include "cli/Check.h"

#include <set>

#include "cli/AbsoluteFolder.h"
#include "cli/Failure.h"
#include "cli/JobRow.h"
#include "cli/MemberList.h"
#include "codes/VqDocResDll.h"
#include "core/Apartment.h"
#include "core/Disk.h"
#include "core/Numbers.h"
#include "core/Paths.h"
#include "core/ProfileAccess.h"

namespace orvane::cli {

namespace {

constexpr std::int64_t kSecond = 1'000'000'000;
constexpr std::int64_t kLongestWrite = 10 * kSecond;

bool isThere(const Text& file) { return Apartment::fileSystem().fileExists(file); }

class JobCheck {
 public:
  JobCheck(const Session& session, const Job& job, const Report& report)
      : session_(session), job_(job), report_(report) {}

  void run() {
    checkBody();
    checkPages();
    checkAttachments();
    checkLinked();
    checkCodes();
  }

 private:
  void found(const std::string& finding) const { report_(job_.file.given, finding); }

  void checkBody() const {
    if (job_.kind->wraps() || isLinkedFile(*job_.kind, job_.file.name)) return;
    const ObjectRef properties = objectOf(job_.document, u"Proprieta");
    const Text name = u"Corpi\\" + fromUtf8(textOf(properties, u"Id")) + u".bvq";
    if (!isThere(joinPath(job_.file.folder, name))) found("no body file " + toUtf8(name));
  }

  void checkPages() const {
    const std::string id = textOf(objectOf(job_.document, u"Proprieta"), u"Id");
    const Text folder = joinPath(job_.file.folder, fromUtf8(id));
    if (id.empty() || !folderExists(folder)) return;
    session_.loadPages(job_, nativePath(folder));
    const std::set<Text> names = pageFiles(folder);
    std::int32_t decomposed = 0;
    for (const Text& name : names) decomposed += name.ends_with(u".dpg") ? 1 : 0;
    for (const Text& name : names) checkPage(name, names);
    checkPageCount(decomposed);
  }

  static std::set<Text> pageFiles(const Text& folder) {
    const std::vector<Text> files = Apartment::fileSystem().files(folder);
    return {files.begin(), files.end()};
  }

  // A page is shown from its picture or its text.
  void checkPage(const Text& name, const std::set<Text>& names) const {
    if (!name.ends_with(u".dpg")) return;
    const Text stem = name.substr(0, name.size() - 4);
    const bool any =
        names.contains(stem + u".vvq") || names.contains(stem + u".bmp") || names.contains(stem + u".txt");
    if (!any) found("page " + toUtf8(name) + " has no file .vvq, .bmp or .txt beside it");
  }

  void checkPageCount(std::int32_t count) const {
    ProfileAccess& access = Apartment::profileAccess();
    const auto file = access.open(job_.file.full());
    const std::int32_t meant = access.LeggiIntero(*file, u"Stato", u"PagineScomposte");
    if (meant > count)
      found(std::to_string(meant) + " pages are composed, " + std::to_string(count) + " are there");
  }

  void checkAttachments() const { checkListed(u"Allegati", u"NumeroAllegati", "attachment"); }
  void checkLinked() const { checkListed(u"Collegati", u"NumeroCollegati", "linked job"); }

  // Straight from the job file: loading passes over linked jobs that are missing.
  void checkListed(TextView section, TextView countKey, const char* what) const {
    ProfileAccess& access = Apartment::profileAccess();
    const auto file = access.open(job_.file.full());
    const std::int32_t count = access.LeggiIntero(*file, section, countKey);
    for (std::int32_t i = 0; i < count; ++i) {
      const Text folder = access.LeggiTesto(*file, section, u"Percorso" + decimalText(i));
      const Text name = access.LeggiTesto(*file, section, u"Nome" + decimalText(i));
      const Text path = joinPath(folder, name);
      if (name.empty() || !isThere(path)) found(std::string(what) + ' ' + toUtf8(path) + " is missing");
    }
  }

  // Some codes of a new document have no text either.
  void checkCodes() const {
    std::set<std::string> usual;
    for (const MemberLine& line : listMembers(session_.newDocument(*job_.kind, innerKindOf(job_)))) {
      usual.insert(line.path + line.value);
    }
    for (const MemberLine& line : listMembers(job_.document)) {
      if (!usual.contains(line.path + line.value)) checkCode(line);
    }
  }

  void checkCode(const MemberLine& line) const {
    const std::size_t text = line.value.find(toUtf8(VqDocResDll::kMissing));
    const bool isCode = line.path.find("Codice") != std::string::npos;
    if (isCode && text != std::string::npos) {
      found(line.path + " is " + withoutEnd(line.value.substr(0, text)) + ", a code without a text");
    }
  }

  static std::string withoutEnd(const std::string& text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
  }

  const Session& session_;
  const Job& job_;
  const Report& report_;
};

void checkTemporary(const std::string& file, const Report& report) {
  const Stamp stamp = DiskFile(FileName(file).full()).stamp();
  const std::int64_t age = presentTime() - stamp.modified;
  if (stamp.exists && age > kLongestWrite) {
    report(file, "a temporary " + std::to_string(age / kSecond) +
                     " seconds old: left by a killed writer, or kept by one that flushes every write");
  }
}

}  // namespace

void checkJob(const Session& session, const std::string& file, const Report& report) {
  try {
    const Job job = session.open(file);
    JobCheck(session, job, report).run();
  } catch (const Failure& failure) {
    report(file, failure.what());
  } catch (const Error& error) {
    report(file, Failure(error, file).what());
  }
}

void checkFolder(const Session& session, const std::string& folder, const Report& report) {
  std::set<Text> names;
  visitFiles(folder, [&](const Text& name) {
    if (isTemporaryName(name) || !jobKindsOfFile(name).empty()) names.insert(name);
  });
  for (const Text& name : names) {
    const std::string file = FileName(fromUtf8(folder), name).given;
    isTemporaryName(name) ? checkTemporary(file, report) : checkJob(session, file, report);
  }
}

}  // namespace orvane::cli
