// Names that a misspelt one may have been meant for.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::cli {

/// How many letters must be put in, left out, replaced or swapped with their neighbour to make `b` of `a`.
/// ASCII letters count as equal whatever their case.
std::size_t editDistance(std::string_view a, std::string_view b);

/// `; did you mean Copie or Coda?` with the nearest candidates, three at most, or an empty text where
/// none is near.
std::string suggestion(std::string_view name, const std::vector<std::string>& candidates);

}  // namespace orvane::cli
