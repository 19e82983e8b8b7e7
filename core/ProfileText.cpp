#include "core/ProfileText.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "core/ProfileValue.h"
#include "core/Units.h"

namespace orvane {

namespace {

static_assert(std::endian::native == std::endian::little, "the text is kept as it is stored");

constexpr char16_t kMark = 0xFEFF;
constexpr TextView kLineEnd = u"\r\n";
constexpr std::size_t kSmallestTable = 64;

// Of equal names under different owners no two have one hash: the factor is odd.
std::uint32_t hashUnder(std::uint32_t owner, Name name) { return name.hash() + owner * 0x9E3779B1; }

bool endsLine(char16_t unit) { return unit == u'\r' || unit == u'\n'; }

std::size_t findLineEnd(TextView text, std::size_t at) {
  const auto isControl = [](std::uint64_t four) { return marksBelow(four, u' '); };
  std::size_t end = findMarked(text, at, isControl);
  while (end < text.size() && !endsLine(text[end])) end = findMarked(text, end + 1, isControl);
  return end;
}

std::size_t afterLineEnd(TextView text, std::size_t end) {
  if (end == text.size()) return end;
  const bool both = text[end] == u'\r' && end + 1 < text.size() && text[end + 1] == u'\n';
  return end + (both ? 2 : 1);
}

bool isPlain(char16_t unit) { return unit > u' ' && unit < 0x7F && unit != u'[' && unit != u';'; }

// The sign behind the name that begins at `at`, where the name has nothing odd at its ends and no controls;
// otherwise 0.
std::size_t plainNameEnd(TextView text, std::size_t at, char16_t sign) {
  const std::size_t end =
      findMarked(text, at, [=](std::uint64_t four) { return marksBelow(four, u' ') | marksOf(four, sign); });
  return end < text.size() && text[end] == sign && end > at && isPlain(text[at]) && isPlain(text[end - 1])
             ? end
             : 0;
}

void appendUtf16(Text& out, std::string_view bytes, bool swapped) {
  const std::size_t before = out.size();
  out.resize(before + (bytes.size() + 1) / 2);
  std::memcpy(out.data() + before, bytes.data(), bytes.size());
  if (!swapped) return;
  std::for_each(out.begin() + static_cast<std::ptrdiff_t>(before), out.end(),
                [](char16_t& unit) { unit = static_cast<char16_t>(unit << 8 | unit >> 8); });
}

// Each line by itself, so that one foreign line does not spoil the others.
void appendMixedLines(Text& out, std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = std::min(bytes.find_first_of("\r\n"), bytes.size() - 1) + 1;
    const std::string_view line = bytes.substr(0, length);
    out += isUtf8(line) ? fromUtf8(line) : fromWindows1252(line);
    bytes.remove_prefix(length);
  }
}

}  // namespace

ProfileText::ProfileText() : text_(1, kMark), table_(kSmallestTable, kNone) {}

std::string_view ProfileText::bytes() const {
  return {reinterpret_cast<const char*>(text_.data()), text_.size() * sizeof(char16_t)};
}

void ProfileText::parse(std::string_view bytes) {
  decode(bytes);
  index();
}

void ProfileText::decode(std::string_view bytes) {
  using namespace std::string_view_literals;
  text_.assign(1, kMark);
  if (bytes.starts_with("\xFF\xFE"sv) || bytes.starts_with("\xFE\xFF"sv)) {
    appendUtf16(text_, bytes.substr(2), bytes.starts_with("\xFE\xFF"sv));
  } else if (bytes.starts_with("\xEF\xBB\xBF"sv)) {
    appendMixedLines(text_, bytes.substr(3));
  } else {
    text_ += isUtf8(bytes) ? fromUtf8(bytes) : fromWindows1252(bytes);
  }
}

void ProfileText::index() {
  constexpr std::size_t kShortLine = 16;  // so that the table need not grow for most files
  entries_.clear();
  entries_.reserve(text_.size() / kShortLine);
  table_.assign(std::max(kSmallestTable, std::bit_ceil(text_.size() / (kShortLine / 2))), kNone);
  lastSection_ = kNone;
  std::uint32_t section = kNone;
  const TextView text = text_;
  for (std::size_t at = 1; at < text.size();) {
    const std::size_t name = text[at] == u'[' ? at + 1 : at;
    const std::size_t sign = plainNameEnd(text, name, name > at ? u']' : u'=');
    const std::size_t end = findLineEnd(text, std::max(at, sign));
    const std::size_t next = afterLineEnd(text, end);
    const TextView line(text.data() + at, end - at);
    if (sign == 0) {
      indexLine(withoutOuterBlanks(line), next, section);
    } else if (name > at) {
      section = indexSection({text.data() + name, sign - name}, next);
    } else if (section != kNone) {
      endSection(section, next);
      indexKey({text.data() + at, sign - at}, {text.data() + sign + 1, end - sign - 1}, section);
    }
    at = next;
  }
}

void ProfileText::indexLine(TextView line, std::size_t next, std::uint32_t& section) {
  if (line.empty()) return;
  if (line.front() == u'[' && line.find(u']') != TextView::npos) {
    section = indexHeader(line, next);
    return;
  }
  if (section == kNone) return;
  endSection(section, next);
  const std::size_t sign = line.find(u'=');
  if (sign == TextView::npos) return;
  const TextView key = withoutOuterBlanks(line.substr(0, sign));
  if (canBeKey(key)) indexKey(key, line.substr(sign + 1), section);
}

inline void ProfileText::indexKey(TextView key, TextView value, std::uint32_t section) {
  value = withoutOuterBlanks(value);
  add({.hash = hashUnder(section, key),
       .owner = section,
       .name = placeOf(key),
       .nameLength = static_cast<std::uint32_t>(key.size()),
       .value = placeOf(value),
       .valueLength = static_cast<std::uint32_t>(value.size())});
}

std::uint32_t ProfileText::indexHeader(TextView line, std::size_t next) {
  const TextView name = withoutOuterBlanks(line.substr(1, line.find(u']') - 1));
  return canBeSection(name) ? indexSection(name, next) : kNone;
}

// A section of a name that has been there, or of none, is none of ours.
std::uint32_t ProfileText::indexSection(TextView name, std::size_t next) {
  return add({.hash = hashUnder(kNone, name),
              .owner = kNone,
              .name = placeOf(name),
              .nameLength = static_cast<std::uint32_t>(name.size()),
              .value = static_cast<std::uint32_t>(next),
              .valueLength = 0});
}

// Where the entry of that name stands in the table, or would.
inline std::size_t ProfileText::slotOf(TextView name, std::uint32_t hash) const {
  const std::size_t mask = table_.size() - 1;
  std::size_t slot = hash & mask;
  for (; table_[slot] != kNone; slot = (slot + 1) & mask) {
    const Entry& entry = entries_[table_[slot]];
    if (entry.hash == hash && (same(nameOf(entry), name) || equalIgnoringCase(nameOf(entry), name))) break;
  }
  return slot;
}

inline std::uint32_t ProfileText::lookUp(std::uint32_t owner, Name name) const {
  return table_[slotOf(name, hashUnder(owner, name))];
}

// Keys are asked for section by section.
inline std::uint32_t ProfileText::findSection(Name name) const {
  if (lastSection_ != kNone && same(nameOf(entries_[lastSection_]), name)) return lastSection_;
  const std::uint32_t found = lookUp(kNone, name);
  if (found != kNone) lastSection_ = found;
  return found;
}

inline std::uint32_t ProfileText::findKey(Name section, Name key) const {
  const std::uint32_t owner = findSection(section);
  return owner == kNone ? kNone : lookUp(owner, key);
}

inline std::uint32_t ProfileText::add(const Entry& entry) {
  const std::size_t slot = slotOf(nameOf(entry), entry.hash);
  if (table_[slot] != kNone) return kNone;
  const auto added = static_cast<std::uint32_t>(entries_.size());
  table_[slot] = added;
  entries_.push_back(entry);
  if (2 * entries_.size() > table_.size()) growTable();
  return added;
}

void ProfileText::growTable() {
  table_.assign(4 * table_.size(), kNone);
  const std::size_t mask = table_.size() - 1;
  for (std::uint32_t entry = 0; entry < entries_.size(); ++entry) {
    std::size_t slot = entries_[entry].hash & mask;
    while (table_[slot] != kNone) slot = (slot + 1) & mask;
    table_[slot] = entry;
  }
}

std::optional<TextView> ProfileText::find(Name section, Name key) const {
  const std::uint32_t found = findKey(section, key);
  if (found == kNone) return std::nullopt;
  return valueOf(entries_[found]);
}

bool ProfileText::set(Name section, Name key, TextView value) {
  const std::uint32_t found = findKey(section, key);
  if (found == kNone) {
    const std::uint32_t owner = findSection(section);
    insertKey(owner == kNone ? appendSection(section) : owner, key, value);
    return true;
  }
  if (valueOf(entries_[found]) == value) return false;
  splice(entries_[found].value, entries_[found].valueLength, value);
  entries_[found].valueLength = static_cast<std::uint32_t>(value.size());
  return true;
}

// Whatever section ends with the text, its next key goes behind its own last line.
void ProfileText::endLastLine() {
  const std::size_t before = text_.size();
  if (before == 1 || endsLine(text_.back())) return;
  text_ += kLineEnd;
  for (Entry& entry : entries_) {
    if (entry.owner == kNone && entry.value == before) entry.value = static_cast<std::uint32_t>(text_.size());
  }
}

std::uint32_t ProfileText::appendSection(Name name) {
  endLastLine();
  const std::size_t at = text_.size();
  text_.append(1, u'[').append(name).append(1, u']').append(kLineEnd);
  return add({.hash = hashUnder(kNone, name),
              .owner = kNone,
              .name = static_cast<std::uint32_t>(at + 1),
              .nameLength = name.size(),
              .value = static_cast<std::uint32_t>(text_.size()),
              .valueLength = 0});
}

void ProfileText::insertKey(std::uint32_t section, Name key, TextView value) {
  const std::size_t before = entries_[section].value;
  const bool ended = endsLine(text_[before - 1]);
  line_.assign(ended ? TextView() : kLineEnd).append(key).append(1, u'=').append(value).append(kLineEnd);
  const std::size_t at = before + (ended ? 0 : kLineEnd.size());
  splice(before, 0, line_);
  add({.hash = hashUnder(section, key),
       .owner = section,
       .name = static_cast<std::uint32_t>(at),
       .nameLength = key.size(),
       .value = static_cast<std::uint32_t>(at + key.size() + 1),
       .valueLength = static_cast<std::uint32_t>(value.size())});
}

// Names and values that begin behind the change move with it, and so do the places for new keys at its end.
void ProfileText::splice(std::size_t at, std::size_t removed, TextView inserted) {
  text_.replace(at, removed, inserted);
  const auto delta = static_cast<std::uint32_t>(inserted.size() - removed);
  if (delta == 0) return;
  for (Entry& entry : entries_) {
    if (entry.name > at) entry.name += delta;
    if (entry.owner == kNone ? entry.value >= at : entry.value > at) entry.value += delta;
  }
}

}  // namespace orvane
