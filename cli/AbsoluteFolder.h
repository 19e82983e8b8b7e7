// Folders as other processes find them.
#pragma once

#include "core/Text.h"

namespace orvane::cli {

/// The folder with the current folder before it where it is relative, without a separator at its end. A job
/// file keeps it for other programs, so a Windows path (C:\..., \\server\...) stays as it is everywhere.
Text absoluteFolder(TextView folder);

}  // namespace orvane::cli
