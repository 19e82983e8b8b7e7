// What is wrong with jobs before anybody prints or sends them.
#pragma once

#include <functional>
#include <string>

#include "cli/Session.h"

namespace orvane::cli {

/// Told of each finding: the file, and what is wrong in a sentence without a point.
using Report = std::function<void(const std::string& file, const std::string& finding)>;

/// One job: that it can be loaded, that every code but those of a new document has a text, that its body file
/// is there (not of a linked job, a publication or a preview), and the files of its pages in the folder of
/// its id, its attachments and its linked jobs.
void checkJob(const Session& session, const std::string& file, const Report& report);

/// All jobs of the folder, in the order of their names, and temporaries that a killed writer has left: older
/// than a writer may wait. Failure 76 where the folder is missing.
void checkFolder(const Session& session, const std::string& folder, const Report& report);

}  // namespace orvane::cli
