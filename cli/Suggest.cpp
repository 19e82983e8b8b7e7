#include "cli/Suggest.h"

#include <algorithm>
#include <utility>

namespace orvane::cli {

namespace {

using Row = std::vector<std::size_t>;

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c; }
bool same(char a, char b) { return lower(a) == lower(b); }

bool isSwap(std::string_view a, std::string_view b, std::size_t i, std::size_t j) {
  return i > 1 && j > 1 && same(a[i - 1], b[j - 2]) && same(a[i - 2], b[j - 1]);
}

bool beginsWith(std::string_view text, std::string_view start) {
  return start.size() >= 3 && text.size() >= start.size() &&
         std::equal(start.begin(), start.end(), text.begin(), same);
}

using Ranked = std::pair<std::size_t, std::string>;

// A third of the letters may be wrong; what only lacks its end is always near.
std::vector<Ranked> nearest(std::string_view name, const std::vector<std::string>& candidates) {
  const std::size_t most = std::max<std::size_t>(1, name.size() / 3);
  std::vector<Ranked> ranked;
  for (const std::string& candidate : candidates) {
    const std::size_t distance = editDistance(name, candidate);
    if (distance <= most || beginsWith(candidate, name)) ranked.emplace_back(distance, candidate);
  }
  std::sort(ranked.begin(), ranked.end());
  ranked.erase(std::unique(ranked.begin(), ranked.end()), ranked.end());
  if (ranked.size() > 3) ranked.resize(3);
  return ranked;
}

}  // namespace

std::size_t editDistance(std::string_view a, std::string_view b) {
  Row before(b.size() + 1), previous(b.size() + 1), current(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) current[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    before = std::exchange(previous, current);
    current[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = previous[j - 1] + (same(a[i - 1], b[j - 1]) ? 0 : 1);
      current[j] = std::min({replaced, previous[j] + 1, current[j - 1] + 1});
      if (isSwap(a, b, i, j)) current[j] = std::min(current[j], before[j - 2] + 1);
    }
  }
  return current[b.size()];
}

std::string suggestion(std::string_view name, const std::vector<std::string>& candidates) {
  const std::vector<Ranked> near = nearest(name, candidates);
  std::string list;
  for (std::size_t i = 0; i < near.size(); ++i) {
    list += i == 0 ? "" : i + 1 == near.size() ? " or " : ", ";
    list += near[i].second;
  }
  return list.empty() ? list : "; did you mean " + list + "?";
}

}  // namespace orvane::cli
