// The commands for a whole folder: list and export.
#include "cli/Commands.h"
#include "cli/Failure.h"
#include "cli/JobData.h"
#include "cli/JobTable.h"
#include "cli/Progress.h"
#include "cli/Session.h"
#include "core/Apartment.h"

namespace orvane::cli {

namespace {

// The jobs that the filter accepts, as they are read.
template <class Visit>
void forEachJob(const ListOptions& options, Visit visit) {
  const JobFilter filter(options.filter);
  visitJobs(options.folder, [&](const JobRow& row) {
    if (filter.accepts(row)) visit(row);
  });
}

std::vector<JobRow> sortedJobs(const Console& console, const ListOptions& options) {
  std::vector<JobRow> rows;
  sortJobs(rows, options.sort);  // a misspelt order is refused before the folder is read
  const JobFilter filter(options.filter);
  Progress progress(console.err, console.errorWidth, [&] { return countFiles(options.folder); });
  visitJobs(options.folder, [&](JobRow row) {
    progress.step();
    if (filter.accepts(row)) rows.push_back(std::move(row));
  });
  sortJobs(rows, options.sort);
  return rows;
}

template <class Visit>
void inOrder(const Console& console, const ListOptions& options, Visit visit) {
  if (options.unsorted) return forEachJob(options, visit);
  for (const JobRow& row : sortedJobs(console, options)) visit(row);
}

void listJson(const Console& console, const ListOptions& options) {
  const char* between = "[\n";
  inOrder(console, options, [&](const JobRow& row) {
    console.out << between << jobJson(row).text();
    between = ",\n";
  });
  console.out << (*between == '[' ? "[]\n" : "\n]\n");
}

void listTable(const Console& console, const ListOptions& options) {
  JobTable table(console.out, console.terminalWidth, Apartment::now());
  if (options.unsorted) {
    table.printHeader();
    return forEachJob(options, [&](const JobRow& row) { table.print(row); });
  }
  const std::vector<JobRow> rows = sortedJobs(console, options);
  table.fitTo(rows);
  table.printHeader();
  for (const JobRow& row : rows) table.print(row);
}

}  // namespace

void list(const Console& console, const ListOptions& options) {
  const Session session(Purpose::Look);
  options.json ? listJson(console, options) : listTable(console, options);
}

void exportJobs(const Console& console, const ExportOptions& options) {
  const Session session(Purpose::Look);
  const bool csv = options.format == "csv";
  if (!csv && options.format != "jsonl") throw UsageError("--format is csv or jsonl, not " + options.format);
  if (csv) console.out << csvHeader() << '\n';
  visitJobs(options.folder,
            [&](const JobRow& row) { console.out << (csv ? csvLine(row) : jobJson(row).text()) << '\n'; });
}

}  // namespace orvane::cli
