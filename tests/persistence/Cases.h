// Parameters of tests: the rows of a table in every kind of document that they belong to.
#pragma once

#include <gtest/gtest.h>

#include "tests/persistence/Job.h"

namespace orvane::test {

template <class Member>
struct MemberCase {
  const Kind& kind;
  const Member& member;
  friend std::ostream& operator<<(std::ostream& out, const MemberCase& c) {
    return out << c.kind.name << ' ' << c.member.path;
  }
};

template <class Member, class Accept>
auto casesWhere(const std::vector<Member>& rows, Accept accept) {
  std::vector<MemberCase<Member>> cases;
  for (const Kind& kind : kinds()) {
    for (const Member& member : rows) {
      if (kind.isIn(member.kinds) && accept(member)) cases.push_back({kind, member});
    }
  }
  return testing::ValuesIn(cases);
}

template <class Member>
auto allCases(const std::vector<Member>& rows) {
  return casesWhere(rows, [](const Member&) { return true; });
}

template <class Accept>
auto kindsWhere(Accept accept) {
  std::vector<Kind> some;
  for (const Kind& kind : kinds()) {
    if (accept(kind)) some.push_back(kind);
  }
  return testing::ValuesIn(some);
}

/// Last arguments of INSTANTIATE_TEST_SUITE_P.
inline constexpr auto memberName = [](const auto& info) {
  return info.param.kind.name + plainPath(info.param.member.path);
};
inline constexpr auto kindName = [](const auto& info) { return info.param.name; };

}  // namespace orvane::test
