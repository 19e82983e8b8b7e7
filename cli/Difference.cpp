#include "cli/Difference.h"

#include <map>

#include "cli/MemberList.h"

namespace orvane::cli {

namespace {

using Values = std::map<std::string, std::string>;

bool isIdentity(const std::string& path) {
  return path.ends_with("Proprieta.Id") || path.ends_with("Proprieta.FileIntestazione");
}

// Beside the members the kind, which is no member of a publication or preview.
std::vector<MemberLine> linesOf(const Job& job) {
  std::vector<MemberLine> lines{{"Kind", job.kind->name}};
  for (MemberLine& line : listMembers(job.document)) {
    if (!isIdentity(line.path)) lines.push_back(std::move(line));
  }
  return lines;
}

Values valuesOf(const std::vector<MemberLine>& lines) {
  Values values;
  for (const MemberLine& line : lines) values[line.path] = line.value;
  return values;
}

class Printer {
 public:
  explicit Printer(std::ostream& out) : out_(out) {}

  void print(char sign, const std::string& path, const std::string& value) {
    out_ << sign << path << '=' << printable(value) << '\n';
    any_ = true;
  }
  bool any() const { return any_; }

 private:
  std::ostream& out_;
  bool any_ = false;
};

}  // namespace

bool printDifferences(const Job& a, const Job& b, std::ostream& out) {
  const std::vector<MemberLine> linesA = linesOf(a), linesB = linesOf(b);
  const Values valuesA = valuesOf(linesA), valuesB = valuesOf(linesB);
  Printer printer(out);
  for (const MemberLine& line : linesA) {
    const auto other = valuesB.find(line.path);
    if (other != valuesB.end() && other->second == line.value) continue;
    printer.print('-', line.path, line.value);
    if (other != valuesB.end()) printer.print('+', line.path, other->second);
  }
  for (const MemberLine& line : linesB) {
    if (!valuesA.contains(line.path)) printer.print('+', line.path, line.value);
  }
  return printer.any();
}

}  // namespace orvane::cli
