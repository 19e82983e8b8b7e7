#include "tests/persistence/Tables.h"

#include <array>
#include <string_view>

namespace orvane::test {

namespace {

// The tables are constants, so that the compiler is quick with them: values of the types that rows name.
struct Bytes {
  std::array<std::uint8_t, 7> items{};
  std::size_t count = 0;
};

template <class... Items>
constexpr Bytes bytes(Items... items) {
  return {{static_cast<std::uint8_t>(items)...}, sizeof...(items)};
}

using Literal = std::variant<std::int32_t, bool, Date, Currency, TextView, Bytes>;
using KeptLiteral = KeptRow<std::string_view, TextView, Literal>;
using UnkeptLiteral = UnkeptRow<std::string_view, TextView, Literal>;

constexpr KeptLiteral kKept[] = {
#include "tests/persistence/members.inc"
};

constexpr UnkeptLiteral kUnkept[] = {
#include "tests/persistence/unkept.inc"
};

struct ToVariant {
  Variant operator()(TextView text) const { return Text(text); }
  Variant operator()(const Bytes& bytes) const {
    VariantArray array{};
    array.items.assign(bytes.items.begin(), bytes.items.begin() + static_cast<std::ptrdiff_t>(bytes.count));
    array.dimensions = {{0, static_cast<std::uint32_t>(bytes.count)}};
    return array;
  }
  template <class Value>
  Variant operator()(Value value) const {
    return value;
  }
};

Variant variantOf(const Literal& literal) { return std::visit(ToVariant(), literal); }

}  // namespace

const std::vector<KeptMember>& keptMembers() {
  static const auto rows = [] {
    std::vector<KeptMember> members;
    for (const KeptLiteral& r : kKept) {
      members.push_back({r.kinds, std::string(r.path), Text(r.section), Text(r.key), variantOf(r.value),
                         Text(r.stored), Text(r.descriptionKey), Text(r.description), r.written});
    }
    return members;
  }();
  return rows;
}

const std::vector<UnkeptMember>& unkeptMembers() {
  static const auto rows = [] {
    std::vector<UnkeptMember> members;
    for (const UnkeptLiteral& r : kUnkept) {
      members.push_back({r.kinds, std::string(r.path), variantOf(r.value), variantOf(r.loaded),
                         Text(r.section), Text(r.key), Text(r.stored), r.written});
    }
    return members;
  }();
  return rows;
}

const std::vector<QueueMember>& queueMembers() {
  static const std::vector<QueueMember> rows{
#include "tests/persistence/queues.inc"
  };
  return rows;
}

}  // namespace orvane::test
