#include "codes/OwnTexts.h"

#include <algorithm>
#include <iterator>

namespace orvane {

namespace {

constexpr NumberedText kTexts[] = {
#include "texts.inc"
};

static_assert(std::is_sorted(std::begin(kTexts), std::end(kTexts),
                             [](const NumberedText& a, const NumberedText& b) { return a.id <= b.id; }),
              "numbers ascend and none stands twice");

}  // namespace

std::span<const NumberedText> numberedTexts() { return kTexts; }

Text compiledText(std::int32_t id) {
  const auto row = std::lower_bound(std::begin(kTexts), std::end(kTexts), id,
                                    [](const NumberedText& a, std::int32_t b) { return a.id < b; });
  return row != std::end(kTexts) && row->id == id ? Text(row->text) : Text();
}

}  // namespace orvane
