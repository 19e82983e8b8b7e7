// The commands that compare and check: diff and check.
#include "cli/AbsoluteFolder.h"
#include "cli/Check.h"
#include "cli/Commands.h"
#include "cli/Difference.h"
#include "cli/ValueText.h"

namespace orvane::cli {

ExitCode diff(const Console& console, const DiffOptions& options) {
  const Session session(Purpose::Look);
  const Job a = session.open(options.a), b = session.open(options.b);
  return printDifferences(a, b, console.out) ? ExitCode::Found : ExitCode::Ok;
}

ExitCode check(const Console& console, const CheckOptions& options) {
  const Session session(Purpose::Look);
  bool any = false;
  const Report report = [&](const std::string& file, const std::string& finding) {
    any = true;
    const bool named = finding.find(file) != std::string::npos;
    console.out << printable(named ? finding : file + ": " + finding) << '\n';
  };
  for (const std::string& path : options.paths) {
    const bool isFolder = folderExists(absoluteFolder(fromUtf8(path)));
    isFolder ? checkFolder(session, path, report) : checkJob(session, path, report);
  }
  return any ? ExitCode::Found : ExitCode::Ok;
}

}  // namespace orvane::cli
