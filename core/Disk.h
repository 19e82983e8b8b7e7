// A job file on the disk: read whole, replaced whole.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "core/FolderLock.h"
#include "core/Text.h"

namespace orvane {

/// What the file system tells of a file. Two equal stamps of a file mean one content, if the time of change
/// is exact or was old enough when the content was read.
struct Stamp {
  bool exists = false;
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::uint64_t size = 0;         ///< bytes
  std::int64_t modified = 0;      ///< nanoseconds since 1970; time of the last change of the content
  std::int64_t changed = 0;       ///< the same for any change; on Windows the time of creation
  std::uint32_t permissions = 0;  ///< permission bits on POSIX, attributes on Windows
  std::uint32_t owner = 0;
  std::uint32_t group = 0;

  bool operator==(const Stamp&) const = default;
};

/// Nanoseconds since 1970.
std::int64_t presentTime();

/// True where the file had last been changed so long before `time` that any change after it is sure to give
/// another stamp: 50 ms, or 2 s where the file system keeps whole seconds only.
bool isSettled(const Stamp& stamp, std::int64_t time);

/// The time to give to the next content of a file seen as `old`: now, but later than `old` and unlike the
/// time that the operating system would give to a change of this very tick.
std::int64_t timeOfChange(const Stamp& old);

/// One file name on the disk. A symbolic link stands for its target. Failures raise the run-time error of
/// their cause; a name that cannot be one raises 52.
class DiskFile {
 public:
  explicit DiskFile(TextView fullName);
  DiskFile(const DiskFile&) = delete;
  DiskFile& operator=(const DiskFile&) = delete;

  /// Removes what the last durable `replace` has kept. Raises nothing.
  ~DiskFile();

  /// A missing file or folder gives a stamp with `exists` false; a directory in its place raises 75.
  Stamp stamp() const;

  /// The whole content, as it was at one moment, and its stamp.
  Stamp read(std::string& bytes) const;

  /// Keeps other writers of the same file away. Raises 70 after ten seconds, 76 where the folder is missing.
  JobLock lock();

  /// Raises what `replace` of the file seen as `old` would raise for want of the folder (76) or of a right
  /// (70). Makes the lock file where that is missing.
  void checkWritable(const Stamp& old);

  struct Replaced {
    Stamp stamp;
    bool exact;  ///< the stamp is sure to differ from that of any later content
  };

  /// Exchanges the file, seen as `old` under the lock that the caller holds, for one that holds `bytes`. At
  /// any instant the name leads to the old content or to the new one. Permissions stay. With `durable` the
  /// new content and its name are on the device when this returns, and the old file may stay under the name
  /// of a temporary, to be written again by the next durable `replace`. On failure the old file is intact.
  Replaced replace(std::string_view bytes, const Stamp& old, bool durable);

  /// Puts the file and its name on the device. A missing file is none to flush.
  void flush();

 private:
  static std::string targetOf(std::string path);
  void settle();
  FolderLock& folderLock();
  void checkRights(const Stamp& old) const;
  bool tryStamp(Stamp& stamp) const noexcept;
  void writeTemporary(std::string_view bytes, const Stamp& old, std::int64_t modified, bool durable);
  bool writeSpare(const Stamp& spare, std::string_view bytes, const Stamp& old, std::int64_t modified);
  bool exchangeFiles(const Stamp& old);
  void putInPlace(bool durable);
  void removeTemporary() const noexcept;
  void flushFolder() const;
  void keepPermissions(Stamp& now, const Stamp& old) const noexcept;

  std::string path_;    // native; from `settle` on, which reading does not need, the target of a link
  std::string folder_;  // with its separator, or empty
  std::uint32_t lockNumber_ = 0;
  std::string temporary_;  // empty until `settle`
  std::shared_ptr<FolderLock> folderLock_;
  Stamp plain_;  // owner, group and permissions that a new file of this process is known to get
  Stamp made_;   // the file as the last `replace` has left it
  Stamp spare_;  // a former file under the temporary's name, to be written again; known not to be the file on
                 // the device either
};

/// The byte of the folder's lock file that stands for a file name: FNV-1a, 32 bits, over the UTF-8 of the
/// name in lower case.
std::uint32_t lockNumberOf(TextView fileName);

/// True for the name of a temporary that `replace` makes.
bool isTemporaryName(TextView fileName);

}  // namespace orvane
