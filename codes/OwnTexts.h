// The numbered texts as compiled in, in ascending order of their numbers.
#pragma once

#include <cstdint>
#include <span>

#include "core/Text.h"

namespace orvane {

struct NumberedText {
  std::int32_t id;
  TextView text;
};

std::span<const NumberedText> numberedTexts();

/// The text of that number; empty where there is none.
Text compiledText(std::int32_t id);

}  // namespace orvane
