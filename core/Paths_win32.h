// Native paths as the wide functions of Windows take them.
#pragma once

#include <string>

namespace orvane {

/// A native path in UTF-16, with the \\?\ prefix where it is too long to go without.
std::wstring widePath(const std::string& nativePath);

}  // namespace orvane
