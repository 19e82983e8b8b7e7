// Which jobs a list shows, and in which order.
#pragma once

#include <string>
#include <vector>

#include "cli/JobRow.h"

namespace orvane::cli {

struct FilterOptions {
  std::vector<std::string> kinds;
  std::vector<std::string> states;
  bool errors = false;
};

/// Accepts a job of any of the kinds in any of the states; none named means all. A state is named by its code
/// ("vdcf_Respinto"), its text, or what it means on every channel ("rejected").
class JobFilter {
 public:
  /// UsageError, with near names, for a kind or state that there is not.
  explicit JobFilter(const FilterOptions& options);

  bool accepts(const JobRow& row) const;

 private:
  bool isNamed(const JobRow& row, const std::string& state) const;

  std::vector<const JobKind*> kinds_;
  std::vector<std::string> states_;
  bool errors_;
};

/// "vdcf_Respinto"; empty for a number that is no state.
std::string stateName(const JobRow& row);

/// Jobs with errors first, then in the order of `key` (kind, id, state, age, to), then of kind and id; age
/// begins with the oldest. UsageError for any other key.
void sortJobs(std::vector<JobRow>& rows, const std::string& key);

}  // namespace orvane::cli
