// The command report.
#include <filesystem>
#include <fstream>

#include "cli/AbsoluteFolder.h"
#include "cli/Commands.h"
#include "cli/JobData.h"
#include "cli/PrettyXml.h"
#include "cli/Progress.h"
#include "cli/ReportPage.h"
#include "cli/Session.h"
#include "core/Apartment.h"
#include "core/Paths.h"

namespace orvane::cli {

namespace {

// A job that can be listed but not loaded, or has a code that cannot be described, has no XML.
std::string xmlOf(const Session& session, const FileName& file) {
  try {
    return prettyXml(toUtf8(toText(call(session.open(file.given).document, u"Xml"))));
  } catch (const Failure&) {
    return {};
  } catch (const Error&) {
    return {};
  }
}

void writeJobs(const Session& session, const ReportOptions& options, const std::vector<JobRow>& rows,
               std::ostream& out) {
  int left = options.details;
  for (const JobRow& row : rows) {
    JsonObject json = jobJson(row);
    if (row.failure.empty() && left-- > 0) {
      json.addText("xml", xmlOf(session, FileName(fromUtf8(options.folder), fromUtf8(row.file))));
    }
    out << (&row == rows.data() ? "\n" : ",\n") << json.text();
  }
}

void writePage(const Session& session, const ReportOptions& options, const std::vector<JobRow>& rows,
               std::ostream& out) {
  const std::string folder = nativePath(absoluteFolder(fromUtf8(options.folder)));
  out << kReportBegin << "{\"folder\":" << jsonText(folder) << ",\"made\":" << jsonDate(Apartment::now())
      << ",\"jobs\":[";
  writeJobs(session, options, rows, out);
  out << "]}" << kReportEnd;
}

}  // namespace

void report(const Console& console, const ReportOptions& options) {
  const Session session(Purpose::Look);
  std::vector<JobRow> rows;
  {
    Progress progress(console.err, console.errorWidth, [&] { return countFiles(options.folder); });
    visitJobs(options.folder, [&](JobRow row) {
      progress.step();
      rows.push_back(std::move(row));
    });
  }
  sortJobs(rows, "age");
  if (options.output == "-") return writePage(session, options, rows, console.out);
  const std::string native = nativePath(FileName(options.output).full());
  std::ofstream file(std::filesystem::path(std::u8string(native.begin(), native.end())), std::ios::binary);
  if (file) writePage(session, options, rows, file);
  file.close();
  if (!file) throw Failure(ErrorNumber::PathFileAccess, options.output);
  console.out << options.output << '\n';
}

}  // namespace orvane::cli
