// The states of the six queues as lists and pages show them.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "cli/JobKind.h"
#include "codes/Code.h"
#include "typelib/Members.h"

namespace orvane::cli {

/// What a state means for the job, whatever its channel.
enum class Phase : unsigned char { Waiting, Working, Done, Rejected, Withdrawn, Unknown };

/// "waiting", "working", "done", "rejected", "withdrawn", "unknown".
const char* phaseName(Phase phase);

struct QueueInfo {
  Name section;                ///< of the job file
  const CodeNames* names;      ///< of its code
  const EnumInfo* states;      ///< numbers and names
  std::vector<Name> dateKeys;  ///< by state; empty where the state stamps no date

  /// The key of the date that entering the state stamps; empty for none.
  TextView dateKey(std::int32_t state) const;

  /// A date that begins a work makes its state a working one, and of the states that share the date of the
  /// end the first is done and the second rejected.
  Phase phase(std::int32_t state) const;
};

/// The queue of the jobs of that kind.
const QueueInfo& queueOf(const JobKind& kind);

}  // namespace orvane::cli
