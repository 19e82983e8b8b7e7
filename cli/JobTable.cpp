#include "cli/JobTable.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>

#include "cli/ValueText.h"

namespace orvane::cli {

namespace {

const JobTable::Cells kTitles{"KIND", "ID", "STATE", "AGE", "OUTCOME", "TO", "ERROR"};
constexpr JobTable::Widths kUsual{15, 14, 26, 4, 12, 24, 30};  // 26: "In attesa di pubblicazione"
constexpr std::size_t kGap = 2, kNarrowest = 5;
constexpr const char* kEllipsis = "\u2026";

struct Range {
  char32_t first, last;
};
constexpr Range kWide[] = {{0x1100, 0x115F},   {0x2E80, 0x303E},   {0x3041, 0xA4CF},  {0xAC00, 0xD7A3},
                           {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},  {0xFFE0, 0xFFE6},
                           {0x1F300, 0x1F64F}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};
constexpr Range kCombining[] = {{0x300, 0x36F}, {0x200B, 0x200F}, {0xFE00, 0xFE0F}};

template <std::size_t Count>
bool isIn(const Range (&ranges)[Count], char32_t letter) {
  return std::any_of(std::begin(ranges), std::end(ranges),
                     [&](const Range& range) { return letter >= range.first && letter <= range.last; });
}

std::size_t widthOf(char32_t letter) { return isIn(kCombining, letter) ? 0 : isIn(kWide, letter) ? 2 : 1; }

std::size_t lengthAt(const std::string& text, std::size_t at) {
  std::size_t end = at + 1;
  while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) ++end;
  return end - at;
}

char32_t letterAt(const std::string& text, std::size_t at, std::size_t length) {
  const auto first = static_cast<unsigned char>(text[at]);
  if (length == 1) return first;
  char32_t letter = first & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i)
    letter = letter << 6 | (static_cast<unsigned char>(text[at + i]) & 0x3F);
  return letter;
}

// The most letters of the text that fit.
std::string cut(const std::string& text, std::size_t width) {
  std::size_t at = 0;
  for (std::size_t used = 0; at < text.size();) {
    const std::size_t length = lengthAt(text, at);
    used += widthOf(letterAt(text, at, length));
    if (used > width) break;
    at += length;
  }
  return text.substr(0, at);
}

const char* colourOf(const JobRow& row) {
  if (row.failed()) return "\x1B[31m";
  switch (row.phase) {
    case Phase::Working:
      return "\x1B[33m";
    case Phase::Done:
      return "\x1B[32m";
    case Phase::Withdrawn:
      return "\x1B[2m";
    default:
      return "";
  }
}

std::string kindText(const JobRow& row) {
  const std::string kind = row.kind->name;
  if (row.kind->wraps()) return row.inner ? kind + '/' + row.inner->name : kind;
  return row.linked ? kind + '+' : kind;
}

std::string orDash(const std::string& text) { return text.empty() ? "-" : printable(text); }

}  // namespace

std::size_t displayWidth(const std::string& text) {
  std::size_t width = 0;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = lengthAt(text, at);
    width += widthOf(letterAt(text, at, length));
    at += length;
  }
  return width;
}

std::string fitted(const std::string& text, std::size_t width) {
  const std::size_t has = displayWidth(text);
  if (has <= width) return text + std::string(width - has, ' ');
  const std::string shown = cut(text, width - 1) + kEllipsis;
  return shown + std::string(width - std::min(width, displayWidth(shown)), ' ');
}

std::string ageText(Date since, Date now) {
  if (since.days == 0) return "-";
  constexpr std::pair<double, char> units[] = {{1, 'd'}, {1.0 / 24, 'h'}, {1.0 / 1440, 'm'}};
  constexpr double aSecond = 1.0 / 86400;
  const double age = std::max(0.0, now.days - since.days) + aSecond / 10;
  for (const auto& [days, letter] : units) {
    if (age >= days) return std::to_string(static_cast<long long>(age / days)) + letter;
  }
  return std::to_string(static_cast<long long>(age / aSecond)) + 's';
}

JobTable::JobTable(std::ostream& out, std::size_t terminalWidth, Date now)
    : out_(out),
      terminalWidth_(terminalWidth),
      coloured_(terminalWidth > 0 && std::getenv("NO_COLOR") == nullptr),
      now_(now),
      widths_(kUsual) {
  shrink();
}

void JobTable::fitTo(const std::vector<JobRow>& rows) {
  for (std::size_t i = 0; i < kColumns; ++i) widths_[i] = kTitles[i].size();
  for (const JobRow& row : rows) {
    const Cells cells = cellsOf(row);
    for (std::size_t i = 0; i < kColumns; ++i) widths_[i] = std::max(widths_[i], displayWidth(cells[i]));
  }
  shrink();
}

// Takes from the widest column until the line fits.
void JobTable::shrink() {
  if (terminalWidth_ == 0) return;
  const auto total = [&] { return std::accumulate(widths_.begin(), widths_.end(), kGap * (kColumns - 1)); };
  while (total() > terminalWidth_) {
    const auto widest = std::max_element(widths_.begin(), widths_.end());
    if (*widest <= kNarrowest) return;
    --*widest;
  }
}

void JobTable::printHeader() { printCells(kTitles, "\x1B[1m"); }

void JobTable::print(const JobRow& row, const char* mark) {
  out_ << mark;
  printCells(cellsOf(row), colourOf(row));
}

JobTable::Cells JobTable::cellsOf(const JobRow& row) const {
  if (!row.failure.empty()) return {kindText(row), orDash(row.id), "unreadable", "-", "-", "-", row.failure};
  return {kindText(row),           orDash(row.id),          orDash(row.stateText), ageText(row.created, now_),
          orDash(row.outcomeText), orDash(row.destination), orDash(row.errorText)};
}

void JobTable::printCells(const Cells& cells, const char* colour) {
  std::string line;
  for (std::size_t i = 0; i < kColumns; ++i) {
    const bool cuts = terminalWidth_ > 0 || displayWidth(cells[i]) <= widths_[i];
    line += (i == 0 ? "" : std::string(kGap, ' ')) + (cuts ? fitted(cells[i], widths_[i]) : cells[i]);
  }
  line.erase(line.find_last_not_of(' ') + 1);
  const bool coloured = coloured_ && *colour != '\0';
  out_ << (coloured ? colour : "") << line << (coloured ? "\x1B[0m" : "") << '\n';
}

}  // namespace orvane::cli
