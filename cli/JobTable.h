// Jobs in columns.
#pragma once

#include <array>
#include <ostream>
#include <string>
#include <vector>

#include "cli/JobRow.h"

namespace orvane::cli {

/// Columns that a terminal needs to show UTF-8 text: two for wide letters, none for combining marks.
std::size_t displayWidth(const std::string& text);

/// The text in that many columns, cut with an ellipsis or filled with blanks.
std::string fitted(const std::string& text, std::size_t width);

/// "12s", "5m", "3h", "8d"; "-" for a date that is not set, "0s" for one to come.
std::string ageText(Date since, Date now);

/// Lines of kind, id, state, age, outcome, destination and error.
class JobTable {
 public:
  static constexpr std::size_t kColumns = 7;
  using Cells = std::array<std::string, kColumns>;
  using Widths = std::array<std::size_t, kColumns>;

  /// `terminalWidth` is 0 where the output is no terminal: then there is no colour and nothing is cut.
  JobTable(std::ostream& out, std::size_t terminalWidth, Date now);

  /// Makes the columns as wide as these rows need, and all together no wider than the terminal. Without it
  /// they have a usual width.
  void fitTo(const std::vector<JobRow>& rows);

  void printHeader();

  /// `mark` is put before the line, if the table has marks.
  void print(const JobRow& row, const char* mark = "");

 private:
  Cells cellsOf(const JobRow& row) const;
  void shrink();
  void printCells(const Cells& cells, const char* colour);

  std::ostream& out_;
  std::size_t terminalWidth_;
  bool coloured_;
  Date now_;
  Widths widths_;
};

}  // namespace orvane::cli
