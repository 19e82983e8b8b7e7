#include "cli/JobKind.h"

#include <algorithm>

#include "cli/Failure.h"
#include "cli/Suggest.h"

namespace orvane::cli {

namespace {

constexpr JobKind kKinds[] = {
    {"stampa", u"VqDocStampa", u"NuovoDocumentoStampa", vdt_Stampa, u".vqs", u".lvq"},
    {"fax", u"VqDocFax", u"NuovoDocumentoFax", vdt_Fax, u".vqf", u".ldf"},
    {"pfax", u"VqDocPFax", u"NuovoDocumentoPFax", vdt_PFax, u".vqpf", u".ldf"},
    {"email", u"VqDocEmail", u"NuovoDocumentoEmail", vdt_Email, u".vqe", u".lde"},
    {"pbl", u"VqDocPbl", u"NuovoDocumentoPbl", vdt_Sconosciuto, u".vqpb"},
    {"anteprima", u"VqDocAnteprima", u"NuovoDocumentoAnteprima", vdt_Sconosciuto, u".vqa"},
};

bool endsWith(TextView text, TextView end) {
  return !end.empty() && text.size() >= end.size() &&
         equalIgnoringCase(text.substr(text.size() - end.size()), end);
}

template <class Accept>
const JobKind& kindNamed(const std::string& name, Accept accept) {
  std::vector<std::string> names;
  for (const JobKind& kind : kKinds) {
    if (!accept(kind)) continue;
    if (equalIgnoringCase(fromUtf8(name), fromUtf8(kind.name))) return kind;
    names.push_back(kind.name);
  }
  std::string list;
  for (const std::string& known : names) list += (list.empty() ? "" : ", ") + known;
  throw UsageError('"' + name + "\" is none of the kinds " + list + suggestion(name, names));
}

}  // namespace

std::span<const JobKind> allJobKinds() { return kKinds; }

const JobKind& jobKindNamed(const std::string& name) {
  return kindNamed(name, [](const JobKind&) { return true; });
}

const JobKind& innerKindNamed(const std::string& name) {
  return kindNamed(name, [](const JobKind& kind) { return !kind.wraps(); });
}

const JobKind& jobKindOfClass(TextView className) {
  return *std::find_if(std::begin(kKinds), std::end(kKinds),
                       [&](const JobKind& kind) { return kind.className == className; });
}

std::vector<const JobKind*> jobKindsOfFile(TextView fileName) {
  std::vector<const JobKind*> kinds;
  for (const JobKind& kind : kKinds) {
    if (endsWith(fileName, kind.extension) || endsWith(fileName, kind.linkedExtension))
      kinds.push_back(&kind);
  }
  return kinds;
}

bool isLinkedFile(const JobKind& kind, TextView fileName) { return endsWith(fileName, kind.linkedExtension); }

const JobKind* jobKindOfType(double type) {
  const auto kind = std::find_if(std::begin(kKinds), std::end(kKinds), [&](const JobKind& row) {
    return !row.wraps() && static_cast<double>(row.type) == type;
  });
  return kind == std::end(kKinds) ? nullptr : kind;
}

}  // namespace orvane::cli
