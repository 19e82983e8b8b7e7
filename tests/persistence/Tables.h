// The tables of persistence: what each published member has in the job file. Stated from the job file's
// description, not from the classes.
//
// A path names a member from its document or page: "Trasmissione.OraInizio", "Messaggio.Nota(7)". The path of
// a control code without an index is all its bytes, and its value an array.
#pragma once

#include <string>
#include <vector>

#include "core/Values.h"

namespace orvane::test {

enum KindSet : unsigned {
  kStampa = 1,
  kFax = 2,
  kPFax = 4,
  kEmail = 8,
  kPbl = 16,
  kAnteprima = 32,
  kPagina = 64,  ///< a page with its header file
  kComposed = kStampa | kFax | kPFax | kEmail,
};

enum class Written { AtOnce, WhenRead, BySalva };

/// A member that comes back with its file.
template <class Path, class String, class Value>
struct KeptRow {
  unsigned kinds;
  Path path;
  String section;
  String key;
  Value value;
  String stored;
  String descriptionKey = {};  ///< of a code: where its description is written in the same section
  String description = {};
  Written written = Written::AtOnce;
};
using KeptMember = KeptRow<std::string, Text, Variant>;

/// A member that does not come back: `loaded` is what a loaded object has instead, where kFolder and kFile
/// stand for the folder and name of the file. Without a section, the value never reaches the file.
template <class Path, class String, class Value>
struct UnkeptRow {
  unsigned kinds;
  Path path;
  Value value;
  Value loaded;
  String section = {};
  String key = {};
  String stored = {};
  Written written = Written::AtOnce;
};
using UnkeptMember = UnkeptRow<std::string, Text, Variant>;

inline constexpr char16_t kFolder[] = u"<folder>";
inline constexpr char16_t kFile[] = u"<file>";

/// A member of the queue record that clients only read: entering the state `code` sets it.
struct QueueMember {
  unsigned kinds;
  std::string path;
  Text section;
  Text key;
  std::int32_t code;
};

const std::vector<KeptMember>& keptMembers();
const std::vector<UnkeptMember>& unkeptMembers();
const std::vector<QueueMember>& queueMembers();

}  // namespace orvane::test
