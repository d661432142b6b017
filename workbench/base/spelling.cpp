#include "workbench/base/spelling.hpp"

#include <algorithm>
#include <utility>

namespace tpn {

std::size_t editDistance(std::string_view from, std::string_view to) {
  std::vector<std::size_t> before;
  std::vector<std::size_t> last(to.size() + 1);
  for (std::size_t j = 0; j <= to.size(); ++j) last[j] = j;
  for (std::size_t i = 1; i <= from.size(); ++i) {
    std::vector<std::size_t> row(to.size() + 1);
    row[0] = i;
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const std::size_t changed = from[i - 1] == to[j - 1] ? 0 : 1;
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + changed});
      const bool swapped = i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1];
      if (swapped) row[j] = std::min(row[j], before[j - 2] + 1);
    }
    before = std::exchange(last, row);
  }
  return last[to.size()];
}

std::string nearest(std::string_view word, const std::vector<std::string>& candidates) {
  constexpr std::size_t longest = 64;  // the distance costs the product of the lengths
  if (word.size() > longest) return "";
  std::string best;
  std::size_t least = 1 + std::min<std::size_t>(3, (word.size() + 1) / 3);
  for (const std::string& candidate : candidates) {
    if (candidate.size() > longest) continue;
    const std::size_t distance = editDistance(word, candidate);
    if (distance < least && distance < candidate.size()) {
      least = distance;
      best = candidate;
    }
  }
  return best;
}

}  // namespace tpn
