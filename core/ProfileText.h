// The text of a profile file: `[section]` lines and `key=value` lines among lines that are nobody's business.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "core/Name.h"

namespace orvane {

/// A profile file's whole text in memory, with an index of its values. Lines that it does not understand,
/// comments and blank lines stay where they are. Of several sections of one name, and of several keys of one
/// name in a section, the first counts; names compare without case. Memory only; raises nothing but
/// allocation failures.
class ProfileText {
 public:
  ProfileText();

  /// Takes the bytes of a file: UTF-16 with byte-order mark, UTF-8 with or without, otherwise Windows-1252.
  void parse(std::string_view bytes);

  /// The value as it stands in the file, without outer blanks; valid until the text changes.
  std::optional<TextView> find(Name section, Name key) const;

  /// Puts `value`, which must be a `storedValue`, under names that `canBeSection` and `canBeKey`. False where
  /// it stood there already.
  bool set(Name section, Name key, TextView value);

  /// The bytes to store: UTF-16LE with byte-order mark. Valid until the text changes.
  std::string_view bytes() const;

 private:
  // A section has `owner` kNone, and its `value` is the place for its next key.
  struct Entry {
    std::uint32_t hash;
    std::uint32_t owner;
    std::uint32_t name;
    std::uint32_t nameLength;
    std::uint32_t value;
    std::uint32_t valueLength;
  };

  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  void decode(std::string_view bytes);
  void index();
  void indexLine(TextView line, std::size_t next, std::uint32_t& section);
  std::uint32_t indexHeader(TextView line, std::size_t next);
  std::uint32_t indexSection(TextView name, std::size_t next);
  void indexKey(TextView key, TextView value, std::uint32_t section);
  std::size_t slotOf(TextView name, std::uint32_t hash) const;
  std::uint32_t lookUp(std::uint32_t owner, Name name) const;
  std::uint32_t findSection(Name name) const;
  std::uint32_t findKey(Name section, Name key) const;
  std::uint32_t add(const Entry& entry);  // kNone where one of that name is there
  void growTable();
  void endLastLine();
  std::uint32_t appendSection(Name name);
  void insertKey(std::uint32_t section, Name key, TextView value);
  void endSection(std::uint32_t section, std::size_t next) {  // whose next key goes to `next`
    entries_[section].value = static_cast<std::uint32_t>(next);
  }
  void splice(std::size_t at, std::size_t removed, TextView inserted);
  std::uint32_t placeOf(TextView part) const {
    return static_cast<std::uint32_t>(part.data() - text_.data());
  }
  TextView nameOf(const Entry& entry) const { return {text_.data() + entry.name, entry.nameLength}; }
  TextView valueOf(const Entry& entry) const { return {text_.data() + entry.value, entry.valueLength}; }

  Text text_;  // begins with the byte-order mark
  Text line_;  // where a new line is put together
  std::vector<Entry> entries_;
  std::vector<std::uint32_t> table_;  // open addressing, kNone is free; its size is a power of two
  mutable std::uint32_t lastSection_ = kNone;
};

}  // namespace orvane
