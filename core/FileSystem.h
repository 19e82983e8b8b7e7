// The file system and the clock as the documents see them: small seams, one implementation a platform,
// replaced in tests.
#pragma once

#include <vector>

#include "core/Text.h"
#include "core/Values.h"

namespace orvane {

/// Folder and file tests, copying and listing. Names are published names: folders joined to
/// files by a backslash, which reaches a POSIX file system as its separator.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// False for an empty name, for anything that is no folder and for a text that cannot name a file.
  virtual bool folderExists(TextView folder) const = 0;

  /// False for an empty name, for a folder and for a text that cannot name a file.
  virtual bool fileExists(TextView file) const = 0;

  /// Copies the content, replacing `to` as a whole: a reader finds the old file or the new one. Error 53
  /// where `from` is missing, 76 where the folder of `to` is, else 70, 61, 75 or 57 by cause.
  virtual void copyFile(TextView from, TextView to) const = 0;

  /// The own path of a folder that exists, whatever led to it: absolute, without a separator at its end
  /// unless it is a root. It leads there also when the current folder is another.
  virtual Text folderPath(TextView folder) const = 0;

  /// Names (without the folder) of the folder's files: on Windows in the order in which the system lists
  /// them, elsewhere, where that order is none, by their units. A file whose name is no text, or leads
  /// elsewhere when published, is left out.
  virtual std::vector<Text> files(TextView folder) const = 0;

  /// The first `most` bytes of a file. Error 53 where it is missing.
  virtual std::string readBytes(TextView file, std::size_t most) const = 0;
};

/// Present local time, to the second.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual Date now() const = 0;
};

/// The implementations of this platform; they live as long as the process.
std::shared_ptr<FileSystem> systemFileSystem();
std::shared_ptr<Clock> systemClock();

/// The serial number of a calendar date and time of day.
Date dateOf(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

}  // namespace orvane
