// The job file: named sections of keyed texts, shared with the output server.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "core/Disk.h"
#include "core/ProfileText.h"
#include "core/Text.h"

namespace orvane {

/// One job file as one apartment sees it; used by one thread at a time. Its format and the protocol that
/// writers follow are in docs/job-file.md.
///
/// A write is a read-modify-write under the lock of the file and an atomic replace: other processes see the
/// old file or the new one, and nobody's values are lost. An empty name reads as nothing and takes no writes.
///
/// Errors: 70 access refused, or the lock not had within ten seconds; 76 the folder is missing (writing
/// only); 61 no room; 57 the device failed; 52 a name that cannot be a file's; 67 no handle left; 7 a file of
/// more than 2 GB; 75 anything else, as a directory of that name. After an error the file is what it was;
/// after that of a flush it may be the new one, not known to be on the device. A write that changes nothing
/// writes nothing.
class JobFile {
 public:
  /// `fullName` is folder\name. Touches nothing.
  explicit JobFile(Text fullName);
  JobFile(const JobFile&) = delete;
  JobFile& operator=(const JobFile&) = delete;

  /// Puts the file on the device if this object has changed it since the last flush. Raises nothing.
  ~JobFile();

  const Text& fullName() const { return fullName_; }

  /// The text under `section` and `key`, whatever their case; nothing where the key, the file or its folder
  /// is missing. The view is valid until the next call.
  std::optional<TextView> read(Name section, Name key);

  /// Whether the disk has the file, inside `together` at the time of the snapshot; errors as for reading it.
  bool exists();

  /// Characters of the text that the last `read` looked at; less than 2^31.
  std::size_t length() const { return image_.bytes().size() / sizeof(char16_t); }

  /// Visible to every process when this returns. Raises 5 for names that cannot stand in the file (see
  /// `canBeSection`, `canBeKey`).
  void write(TextView section, TextView key, TextView value);

  /// Inside `together`: lands what has been written so far, so that what comes next is done only if it is in
  /// the file. The scope goes on with a new snapshot.
  void landSoFar();

  /// Puts the file and its name on the device. Inside `together` this is done after the writes have landed.
  void flush();

  /// Whether every later write is flushed before it returns; false at first.
  void flushEveryWrite(bool flushed) { flushed_ = flushed; }

  /// Does `work` with one snapshot of the file for all its reads, which see its writes too; all its writes
  /// land in one replace at its end. Nests: the outermost lands. If `work` throws, what it has written so far
  /// lands and the exception goes on, whatever becomes of the landing.
  ///
  /// The first write that changes something raises where the file cannot be replaced for want of its folder
  /// or of a right. What only a try shows (a device that is full or fails, a lock that is not had in time) is
  /// raised at the end, by the landing: then none of the writes is in the file, and `work` has been done.
  template <class Work>
  decltype(auto) together(Work&& work) {
    Scope scope(*this);
    if constexpr (std::is_void_v<std::invoke_result_t<Work>>) {
      std::forward<Work>(work)();
      scope.leave();
    } else {
      decltype(auto) result = std::forward<Work>(work)();
      scope.leave();
      return static_cast<std::invoke_result_t<Work>>(std::forward<decltype(result)>(result));
    }
  }

 private:
  class Scope {
   public:
    explicit Scope(JobFile& file) : file_(&file) { ++file.depth_; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
    ~Scope() {
      if (file_) file_->leaveQuietly();
    }
    void leave() { std::exchange(file_, nullptr)->leave(); }

   private:
    JobFile* file_;
  };

  // What is written, kept until it has landed. The names and the stored value stand in a row in `words_`.
  struct Change {
    std::size_t at, sectionLength, keyLength, valueLength;
  };

  DiskFile& disk();
  void look() {
    if (!snapshot_) depth_ > 0 ? takeSnapshot() : validate();
  }
  void validate();
  void load();
  void takeSnapshot();
  void note(TextView section, TextView key, TextView value);
  void applyInScope();
  void apply();
  bool changesNothing();
  void landUnlessDone();
  void land();
  void exchangeFile();
  void forgetChanges() noexcept;
  void forgetImage() noexcept;
  void leave();
  void leaveQuietly() noexcept;
  TextView sectionOf(const Change& c) const { return TextView(words_).substr(c.at, c.sectionLength); }
  TextView keyOf(const Change& c) const {
    return TextView(words_).substr(c.at + c.sectionLength, c.keyLength);
  }
  TextView valueOf(const Change& c) const {
    return TextView(words_).substr(c.at + c.sectionLength + c.keyLength, c.valueLength);
  }

  Text fullName_;
  std::unique_ptr<DiskFile> disk_;
  ProfileText image_;  // what the file of stamp `stamp_` holds, with the first `applied_` changes made
  Stamp stamp_;
  bool trusted_ = false;   // no other content can have that stamp
  bool edited_ = false;    // the changes made have changed the image
  bool writable_ = false;  // as far as could be told when the scope first changed it
  Text words_;
  std::vector<Change> changes_;
  std::size_t applied_ = 0;
  Text room_;  // of the text last read
  int depth_ = 0;
  bool snapshot_ = false;    // the image serves until the outermost scope is left
  bool flushed_ = false;     // every write is flushed
  bool flushAtEnd_ = false;  // of the outermost scope
  bool unflushed_ = false;   // this object has changed the file since the last flush
};

}  // namespace orvane
