// Names as the interface publishes them (folder\name) and as the operating system takes them.
#pragma once

#include <cstddef>
#include <optional>
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

/// The published name that leads to a native path; nothing where none does (on POSIX, bytes that are no UTF-8
/// or a backslash in a name).
std::optional<Text> publishedPath(const std::string& nativePath);

/// The path of a folder however it was named: absolute, without a separator at its end unless it is a root.
/// The text itself where nothing published leads to the present folder.
Text absolutePath(TextView folder);

/// Length of the folder part of a native path, its last separator included; 0 where there is none.
std::size_t folderLength(const std::string& nativePath);

}  // namespace orvane
