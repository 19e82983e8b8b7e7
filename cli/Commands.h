// What the commands do. Each makes a session of its own; errors leave it as Failure or UsageError.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "cli/Failure.h"
#include "cli/JobFilter.h"

namespace orvane::cli {

/// Where a command writes: results, and remarks that are no results.
struct Console {
  std::ostream& out;
  std::ostream& err;
  std::size_t terminalWidth = 0;  ///< columns of the terminal that `out` is; 0 where it is none
  std::size_t errorWidth = 0;     ///< the same of `err`
};

using Strings = std::vector<std::string>;

struct NewOptions {
  std::string kind, id, folder, inner;
  bool linked = false, force = false;
  Strings assignments;
};

/// Make a job file, set members, print the file's name. Nothing is made where an assignment is not understood
/// or, without `force`, the file exists (failure 58).
void newJob(const Console& console, const NewOptions& options);

struct SetOptions {
  std::string file, pages;
  Strings assignments;
};

/// Change members, all in one write. Nothing is changed where an assignment is not understood. A value that a
/// new loading of the job does not give back is remarked on.
void setMembers(const Console& console, const SetOptions& options);

struct GetOptions {
  std::string file, pages;
  Strings paths;
  bool raw = false;
};

/// Print the value of one path, or `Path=value` for each of many; of an object all its members.
void getMembers(const Console& console, const GetOptions& options);

struct ShowOptions {
  std::string file, pages;
  bool all = false, json = false;
};

/// For people, or all members as JSON.
void show(const Console& console, const ShowOptions& options);

struct XmlOptions {
  std::string file;
  bool pretty = false;
};
void printXml(const Console& console, const XmlOptions& options);

void printCodes(const Console& console, const std::string& className);

struct DuplicateOptions {
  std::string file, id, folder;
};

/// Copy a print job with its body file and its linked jobs, print the new file's name. Failure 445 for
/// another kind, 58 where the new file exists.
void duplicate(const Console& console, const DuplicateOptions& options);

struct AttachOptions {
  std::string file;
  Strings files;
  bool missing = false;
};

/// Attach all files, or none where one is missing (53, unless `missing`) or attached already (457).
void attach(const Console& console, const AttachOptions& options);

struct LinkOptions {
  std::string file;
  Strings others;
};

/// Link all jobs, or none where one is of another kind (13), deleted (445), linked already (457), or leads
/// back to the job (445).
void link(const Console& console, const LinkOptions& options);

struct ListOptions {
  std::string folder, sort = "kind";
  FilterOptions filter;
  bool json = false, unsorted = false;
};

/// A line for each job of the folder, those with errors first; unsorted, each as it is read, in memory that
/// does not grow with the folder. Failure 76 where the folder is missing.
void list(const Console& console, const ListOptions& options);

struct WatchOptions {
  std::string folder;
  FilterOptions filter;
  bool poll = false;
  int count = 0, seconds = 0;  ///< 0 for no end
};

/// The jobs of the folder, then a line for each job that came (+), changed (*) or went (-), until `count`
/// such lines or `seconds` are over. Failure 76 where the folder is missing.
void watch(const Console& console, const WatchOptions& options);

struct ExportOptions {
  std::string folder, format = "csv";
};

/// A line of comma-separated values or of JSON for each job of the folder, as it is read.
void exportJobs(const Console& console, const ExportOptions& options);

struct ReportOptions {
  std::string folder, output = "report.html";
  int details = 1000;  ///< so many jobs at most come with their XML, those with errors first
};

/// Write a page to look at the jobs of the folder, to a file or, for "-", to `console.out`. Failure 76 where
/// the folder is missing, 75 where the page cannot be written.
void report(const Console& console, const ReportOptions& options);

struct DiffOptions {
  std::string a, b;
};

/// The members in which two jobs differ; `Found` where there are any.
ExitCode diff(const Console& console, const DiffOptions& options);

struct CheckOptions {
  Strings paths;
};

/// A line for everything that is wrong with the jobs, each a file or all of a folder; `Found` where there is
/// any.
ExitCode check(const Console& console, const CheckOptions& options);

}  // namespace orvane::cli
