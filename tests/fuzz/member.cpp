// Any text as "path=value" of `orvane set`: what is refused leaves the job file as it was, what is accepted
// is read back as set, from the object and from the file.
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "cli/Failure.h"
#include "cli/MemberPath.h"
#include "cli/Session.h"
#include "core/ProfileAccess.h"
#include "tests/persistence/Tables.h"

namespace {

using namespace orvane;
using namespace orvane::cli;

void insist(bool holds, const std::string& text, const std::string& found = {}) {
  if (holds) return;
  std::fprintf(stderr, "%s: %s\n", text.c_str(), found.c_str());
  std::abort();
}

std::string lowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return text;
}

// One bound job of each kind, put back before every input, in a temporary folder that stays: fuzzers just
// stop.
class Jobs {
 public:
  Jobs() {
    std::string pattern = std::filesystem::temp_directory_path().string() + "/orvane-fuzz-XXXXXX";
    folder_ = ::mkdtemp(pattern.data());
    for (const JobKind& kind : allJobKinds()) make(kind);
  }
  Jobs(const Jobs&) = delete;
  Jobs& operator=(const Jobs&) = delete;

  const std::string& reset(std::size_t kind) const {
    const File& file = files_[kind % files_.size()];
    if (contentOf(file.path) != file.content) std::ofstream(file.path, std::ios::binary) << file.content;
    return file.path;
  }

  bool isAsBefore(std::size_t kind) const {
    const File& file = files_[kind % files_.size()];
    return contentOf(file.path) == file.content;
  }

 private:
  struct File {
    std::string path, content;
  };

  void make(const JobKind& kind) {
    const Session session(Purpose::Change);
    const JobKind* inner = kind.wraps() ? &jobKindNamed("stampa") : nullptr;
    const ObjectRef document = session.newDocument(kind, inner);
    const Text folder = fromUtf8(folder_);
    if (inner) {
      const Variant arguments[] = {Text(u"5"), static_cast<std::int32_t>(inner->type), folder};
      call(document, u"Inizializza", arguments);
    } else {
      const Variant arguments[] = {Text(u"5"), folder, false};
      call(document, u"Inizializza", arguments);
    }
    const std::string path = folder_ + "/5" + toUtf8(kind.extension);
    files_.push_back({path, contentOf(path)});
  }

  static std::string contentOf(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  std::string folder_;
  std::vector<File> files_;
};

// Paths of members that are meant not to come back with the file.
const std::set<std::string>& unkept() {
  static const std::set<std::string> paths = [] {
    std::set<std::string> found;
    for (const auto& member : test::unkeptMembers()) found.insert(lowerCase(member.path));
    return found;
  }();
  return paths;
}

// The number of a kind that no document inside can have makes a job that cannot be loaded; nothing else does.
bool mayRefuseToLoad(const Job& job, const std::string& path, const std::string& message) {
  if (!job.kind->wraps() || !lowerCase(path).ends_with("tipo.codice")) return false;
  const auto is = [&](ErrorNumber number) { return message == Failure(number, job.file.given).what(); };
  return is(ErrorNumber::NotSupportedAction) || is(ErrorNumber::ObjectNotSet);
}

const std::string& pathAt(std::size_t index) {
  const auto& members = test::keptMembers();
  return members[index % members.size()].path;
}

std::string rawValue(const ObjectRef& document, const std::string& path) {
  const Reading reading = readMember(document, path);
  return valueText(reading.value, reading.type, Form::Raw);
}

std::string cutAsInTheFile(const std::string& value) {
  return toUtf8(fromUtf8(value).substr(0, ProfileAccess::kLongestText));
}

// False where the text is refused.
bool assign(const Job& job, const std::string& text) {
  try {
    const Assignment assignment(job.document, text);
    assignment.perform();
    return true;
  } catch (const UsageError&) {
  } catch (const Failure&) {
  }
  return false;
}

void check(const Session& session, const Job& job, const std::string& text) {
  const std::string path = text.substr(0, text.find('='));
  const std::string wanted = text.substr(path.size() + 1);
  const Reading reading = readMember(job.document, path);
  const std::string held = valueText(reading.value, reading.type, Form::Raw);
  const Variant meant = parseValue(wanted, reading.type);
  const bool isCopies = lowerCase(path).ends_with("copie") && held == "1";
  insist(isCopies || held == valueText(meant, reading.type, Form::Raw), text, held);
  if (unkept().contains(lowerCase(path))) return;
  try {
    const Job loaded = session.open(job.file.given);
    session.loadPages(loaded, toUtf8(job.file.folder));  // the pages' own members come back with them
    const std::string kept = rawValue(loaded.document, path);
    insist(kept == cutAsInTheFile(held), text, kept);
  } catch (const Failure& failure) {
    insist(mayRefuseToLoad(job, path, failure.what()), text, failure.what());
  }
}

}  // namespace

// The first byte is the kind, the rest the assignment; "=" and two bytes stand for a path that there is.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Jobs jobs;
  if (size == 0) return 0;
  std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  if (text.size() >= 3 && text[0] == '=') text = pathAt(data[2] + 256u * data[3]) + '=' + text.substr(3);
  const Session session(Purpose::Change);
  const Job job = session.open(jobs.reset(data[0]));
  if (assign(job, text)) {
    check(session, job, text);
  } else {
    insist(jobs.isAsBefore(data[0]), text, "refused, but written");
  }
  return 0;
}
