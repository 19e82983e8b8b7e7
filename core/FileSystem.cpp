#include "core/FileSystem.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>

#include "core/Error.h"
#include "core/OfThread.h"
#include "core/PathKind.h"
#include "core/Paths.h"
#include "core/SystemError.h"

namespace orvane {

namespace {

namespace fs = std::filesystem;

fs::path pathOf(TextView published) {
  const std::string utf8 = nativePath(published);
  return std::u8string(utf8.begin(), utf8.end());
}

// On Windows they are UTF-16.
constexpr bool kNamesAreBytes = sizeof(fs::path::value_type) == 1;

// The name by which the library can find that file again, if there is one.
template <class Native>
std::optional<Text> publishedName(const Native& name) {
  if constexpr (kNamesAreBytes) {
    return publishedPath(name);
  } else {
    return Text(name.begin(), name.end());
  }
}

PathKind kindOfNamed(TextView published) {
  try {
    return kindOf(nativePath(published));
  } catch (const Error& error) {
    if (error.number() != static_cast<int>(ErrorNumber::BadFileName)) throw;
    return PathKind::Nothing;
  }
}

[[noreturn]] void raise(const std::error_code& failure) { throw Error(errorNumberOf(failure)); }

class SystemFileSystem : public FileSystem {
 public:
  bool folderExists(TextView folder) const override {
    return !folder.empty() && kindOfNamed(folder) == PathKind::Folder;
  }

  bool fileExists(TextView file) const override {
    return !file.empty() && kindOfNamed(file) == PathKind::File;
  }

  void copyFile(TextView from, TextView to) const override {
    if (!fileExists(from)) throw Error(ErrorNumber::FileNotFound);
    const fs::path target = pathOf(to);
    std::error_code failure;
    if (!fs::is_directory(target.parent_path(), failure)) throw Error(ErrorNumber::PathNotFound);
    fs::path partial = target;
    partial += ".orvane-copy.tmp";
    fs::copy_file(pathOf(from), partial, fs::copy_options::overwrite_existing, failure);
    if (!failure) fs::rename(partial, target, failure);
    if (!failure) return;
    std::error_code ignored;
    fs::remove(partial, ignored);
    raise(failure);
  }

  Text folderPath(TextView folder) const override { return absolutePath(folder); }

  std::vector<Text> files(TextView folder) const override {
    std::vector<Text> names;
    std::error_code failure;
    for (fs::directory_iterator entry(pathOf(folder), failure), end; !failure && entry != end;
         entry.increment(failure)) {
      auto name = publishedName(entry->path().filename().native());
      if (name && fileExists(joinPath(folder, *name))) names.push_back(std::move(*name));
    }
    if (failure) raise(failure);
    if (kNamesAreBytes) std::sort(names.begin(), names.end());
    return names;
  }

  std::string readBytes(TextView file, std::size_t most) const override {
    if (!fileExists(file)) throw Error(ErrorNumber::FileNotFound);
    std::ifstream stream(pathOf(file), std::ios::binary);
    if (!stream) throw Error(ErrorNumber::PermissionDenied);
    stream.seekg(0, std::ios::end);
    const auto size = static_cast<std::size_t>(std::max<std::streamoff>(0, stream.tellg()));
    std::string bytes(std::min(size, most), '\0');
    stream.seekg(0);
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(stream.gcount()));
    return bytes;
  }
};

// Days from 1 March 0000 of the proleptic calendar to the first of a month counted from March.
constexpr std::int64_t daysBefore(std::int64_t year, int month) {
  const std::int64_t y = month < 3 ? year - 1 : year;
  const std::int64_t m = month < 3 ? month + 9 : month - 3;
  return 365 * y + y / 4 - y / 100 + y / 400 + (153 * m + 2) / 5;
}

}  // namespace

std::shared_ptr<FileSystem> systemFileSystem() { return ofProcess<SystemFileSystem>(); }

Date dateOf(int year, int month, int day, int hour, int minute, int second) {
  const std::int64_t days = daysBefore(year, month) + day - (daysBefore(1899, 12) + 30);
  const double fraction = (hour * 3600 + minute * 60 + second) / 86400.0;
  // Before the epoch the fraction still counts forward from midnight, so it is taken away from a negative
  // whole.
  return {days < 0 ? static_cast<double>(days) - fraction : static_cast<double>(days) + fraction};
}

}  // namespace orvane
