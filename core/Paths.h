// Names as the interface publishes them (folder\name) and as the operating system takes them.
#pragma once

#include <cstddef>
#include <string>

#include "core/Text.h"

namespace orvane {

/// `folder` & "\" & `name`, with nothing added or taken away.
Text joinPath(TextView folder, TextView name);

/// The path that the operating system takes for a published name, in UTF-8. On POSIX a backslash becomes a
/// slash; on Windows the path is made absolute and trailing dots and blanks of the name go.
/// Raises 52 for a text that cannot name a file: NUL inside, a lone surrogate where names are bytes, a device
/// of Windows.
std::string nativePath(TextView published);

/// Length of the folder part of a native path, its last separator included; 0 where there is none.
std::size_t folderLength(const std::string& nativePath);

}  // namespace orvane
