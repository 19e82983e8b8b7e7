// A job as a page to read.
#pragma once

#include <ostream>

#include "cli/MemberList.h"
#include "cli/Session.h"

namespace orvane::cli {

/// Kind, id, file, queue state and outcome, then the members that are not as in a new document, or all.
void showJob(const Session& session, const Job& job, bool all, std::ostream& out);

/// Kind, id, file and all members as one JSON object: each member with its path, its text, and, where that is
/// another, its raw value.
void showJobJson(const Job& job, std::ostream& out);

/// The members of a part of a job.
void showMembers(const std::vector<MemberLine>& lines, std::ostream& out);

}  // namespace orvane::cli
