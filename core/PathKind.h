// What a path leads to.
#pragma once

#include <string>

namespace orvane {

enum class PathKind : unsigned char { Nothing, File, Folder };

/// Follows links. What may not be looked at is nothing; a device that fails is error 57, not a missing file.
PathKind kindOf(const std::string& nativePath);

}  // namespace orvane
