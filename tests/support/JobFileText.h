// Job files read and written from the description of their form alone, without the library.
#pragma once

#include <vector>

#include "core/Text.h"

namespace orvane::test {

/// What stands for a value that is not there.
inline constexpr char16_t kAbsent[] = u"(absent)";

struct JobKey {
  Text name;
  Text value;
};

struct JobSection {
  Text name;
  std::vector<JobKey> keys;
};

/// The sections and keys of a file, in its order. Names are compared to the letter.
struct JobContent {
  std::vector<JobSection> sections;

  /// The value, `kAbsent` where there is none.
  Text value(TextView section, TextView key) const;
  bool has(TextView section, TextView key) const { return value(section, key) != kAbsent; }
  bool hasSection(TextView section) const;

  /// "[section]" and "key=value", a line each, ended by a line feed: the whole file, or one section of it.
  Text lines() const;
  Text lines(TextView section) const;
};

/// `path` as published (backslashes). A missing file has no sections. Throws where the file is not UTF-16LE
/// with byte-order mark and CRLF, or holds a line that is neither section nor key nor blank nor comment.
JobContent readJobFile(TextView path);

/// A file that holds `lines` (ended by line feeds) to the letter, in the stored form.
void writeJobFile(TextView path, TextView lines);

}  // namespace orvane::test
