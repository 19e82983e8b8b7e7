// The published codes have the values that clients compile in.
#include "core/Text.h"
#include "tests/support/Promised.h"
#include "typelib/Members.h"

namespace orvane {
namespace {

TEST(Enumerations, HaveEveryMemberThatWasPromisedWithItsValue) {
  Promised members(ORVANE_ENUMERATIONS);
  EXPECT_EQ(542u, members.size());
  EXPECT_EQ(38u, allEnumerations().size());
  for (const EnumInfo& enumeration : allEnumerations()) {
    for (const EnumMember& member : enumeration.members)
      members.meet(toUtf8(enumeration.name) + " " + toUtf8(member.name) + " " + std::to_string(member.value));
  }
}

}  // namespace
}  // namespace orvane
