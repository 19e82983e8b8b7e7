// Rows of parameterised tests.
#pragma once

#include <gtest/gtest.h>

#include <ostream>

namespace orvane::test {

/// The base of a row: its name stands in the test's name and where the row is printed. Letters and digits
/// only.
struct Row {
  const char* name;
  friend std::ostream& operator<<(std::ostream& out, const Row& row) { return out << row.name; }
};

/// Last argument of INSTANTIATE_TEST_SUITE_P.
inline constexpr auto rowName = [](const auto& info) { return std::string(info.param.name); };

}  // namespace orvane::test
