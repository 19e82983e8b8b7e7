// A job as one line of a list.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "cli/QueueStates.h"
#include "core/ProfileText.h"

namespace orvane::cli {

struct Stamped {
  TextView key;  ///< "DataInStampa", or "DataInserimento"
  Date date;
};

/// What a list tells of a job. Texts are in UTF-8.
struct JobRow {
  const JobKind* kind = nullptr;
  const JobKind* inner = nullptr;  ///< of a publication or preview; null where the job file does not say
  bool linked = false;             ///< by the name of its file
  std::string file;                ///< its name, without the folder
  std::string id;                  ///< the name without its extension where the job file has none
  std::string user, description;
  std::string destination;  ///< printer, number, or recipients
  std::int32_t state = 0, outcome = 0, error = 0;
  Phase phase = Phase::Waiting;
  std::string stateText, outcomeText, errorText;
  std::vector<Stamped> stamps;  ///< the dates of its queue that are set, earliest first
  Date created;                 ///< insertion, else the earliest of its queue, else its own date, else 0
  std::string failure;  ///< why the file could not be read; then nothing above but kind and names holds

  /// Unreadable, with an error code, rejected, or with a failed outcome.
  bool failed() const;
};

/// Reads rows straight from job files: a few keys of each, through room that is used again.
class JobReader {
 public:
  explicit JobReader(Text folder) : folder_(std::move(folder)) {}

  /// Nothing where the name is no job's or the file is gone. A file that cannot be read is a row with
  /// `failure`.
  std::optional<JobRow> read(const Text& fileName);

 private:
  bool fill(JobRow& row, const Text& fileName);
  void fillQueue(JobRow& row);
  void fillResult(JobRow& row);
  std::string destinationOf(const JobKind& kind);
  std::optional<TextView> plainAt(Name section, Name key);
  std::string textAt(Name section, Name key);
  std::optional<double> numberAt(Name section, Name key);
  std::int32_t codeAt(Name section, Name key);
  const std::string& describeCode(const CodeNames& names, std::int32_t code);

  Text folder_;
  std::string bytes_;
  Text room_;
  ProfileText text_;
  std::map<std::pair<std::int32_t, std::int32_t>, std::string> texts_;  // of base and code
};

/// Calls `visit` for every file of the folder, in no order and without keeping the names. Failure 76 where
/// the folder is missing.
void visitFiles(const std::string& folder, const std::function<void(const Text& fileName)>& visit);

std::size_t countFiles(const std::string& folder);

/// The same for jobs.
void visitJobs(const std::string& folder, const std::function<void(JobRow row)>& visit);

}  // namespace orvane::cli
