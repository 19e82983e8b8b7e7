// Typed access to job files: texts, numbers, dates and booleans under a section and a key.
#pragma once

#include <memory>
#include <unordered_map>

#include "core/JobFile.h"
#include "core/Values.h"

namespace orvane {

/// One per thread, made and released by the factory. A file with an empty name reads as empty and swallows
/// what is written. Errors of the store (70, 61, 75, 57, 52, 76) pass through.
class ProfileAccess {
 public:
  /// Texts longer than this are cut to it on reading; the library always passes it.
  static constexpr std::size_t kLongestText = 255;

  /// The job file of that name; documents of this thread that use one file share it while any of them holds
  /// it.
  std::shared_ptr<JobFile> open(const Text& fullName);

  /// The same for a file that may not be there: where nobody holds it, a new one that `open` does not know
  /// before `keep`.
  std::shared_ptr<JobFile> probe(const Text& fullName) const;
  void keep(const std::shared_ptr<JobFile>& file);

  /// The file without a name, which every component has until it is bound.
  static const std::shared_ptr<JobFile>& noFile();

  /// Valid until the file is next read or written.
  TextView VediTesto(JobFile& file, Name section, Name key, TextView missing = {},
                     std::size_t most = kLongestText) const;
  Text LeggiTesto(JobFile& file, Name section, Name key, TextView missing = {},
                  std::size_t most = kLongestText) const;
  /// `missing` also where the stored value is no number.
  double LeggiNumero(JobFile& file, Name section, Name key, double missing = 0) const;
  /// The same, rounded; error 6 where it is no Long.
  std::int32_t LeggiIntero(JobFile& file, Name section, Name key, std::int32_t missing = 0) const;
  /// The length of a stored list: a Long that is not negative (error 6 where it is none), and no more than
  /// the file has characters, so that reading a list takes time in proportion to the file.
  std::int32_t LeggiQuanti(JobFile& file, Name section, Name key) const;
  Date LeggiData(JobFile& file, Name section, Name key, Date missing = {}) const;
  /// True is any number but 0, and the word True; `missing` where the value is neither number nor truth
  /// value.
  bool LeggiBooleano(JobFile& file, Name section, Name key, bool missing = false) const;

  void ScriviTesto(JobFile& file, TextView section, TextView key, TextView value);
  /// -1 for True, 0 for False.
  void ScriviBooleano(JobFile& file, TextView section, TextView key, bool value);
  /// The shortest decimal that reads back to the same number, or a word for one that is not finite.
  void ScriviNumero(JobFile& file, TextView section, TextView key, double value);
  /// As its serial number, so that it can be read as a number too.
  void ScriviData(JobFile& file, TextView section, TextView key, Date value);

  /// From now on every write of this thread reaches the device before it returns, which costs milliseconds;
  /// off by default.
  void flushEveryWrite(bool on);

  /// From now on what this thread's documents write stays in the objects and reaches no file; off by default.
  void readOnly(bool on) { readOnly_ = on; }

 private:
  void write(JobFile& file, TextView section, TextView key, TextView value) const;
  std::shared_ptr<JobFile> find(const Text& fullName) const;
  std::shared_ptr<JobFile> make(const Text& fullName) const;

  std::unordered_map<Text, std::weak_ptr<JobFile>> files_;
  // The table of names is cleared of released files when it grows past this.
  static constexpr std::size_t kLeastSweep = 64;
  std::size_t sweepAt_ = kLeastSweep;
  bool flushEveryWrite_ = false;
  bool readOnly_ = false;
};

}  // namespace orvane
