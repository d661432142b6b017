#include "boolform/copiedclauses.hpp"

#include <cstdlib>
#include <limits>

namespace {

int leading(const Clause& c) { return c.first != 0 ? c.first : c.second; }

Region regionOf(const Clause& c) {
  if (c.first != 0) return c.first < 0 ? threeNegative : threePositive;
  return c.second < 0 ? twoNegative : twoPositive;
}

Clause moved(const Clause& c, const Distance& up) {
  Clause result;
  result.first = c.first == 0 ? 0 : up.moved(c.first);
  result.second = up.moved(c.second);
  result.third = up.moved(c.third);
  return result;
}

}  // namespace

CopiedClauses::CopiedClauses(const Repetition& copies, int times, const std::vector<Triple>& nodes,
                             std::span<const std::uint8_t> isDefined)
    : times_(times), distance_(copies.distance()) {
  if (times == 0) return;
  std::vector<Clause> block;
  const auto size = static_cast<std::size_t>(distance_.nodes);
  for (std::size_t i = copies.begin() - size; i < copies.begin(); ++i) {
    if (isDefined[i] == 0) continue;
    define(nodes[i].op, nodes[i].left, nodes[i].right, firstNodeNr + static_cast<int>(i),
           [&](int x, int y, int z = 0) { block.emplace_back(x, y, z); });
  }
  nodes_ = Windows(block, true, times, distance_);
  variables_ = Windows(block, false, times, distance_);
  // Window 0 is put together from the first copies.
  if (std::min(nodes_.first, variables_.first) < 1 - times) *this = CopiedClauses();
}

// The block's clauses span some windows: they belong to window 0 once moved up, as far as the
// window of the highest.
CopiedClauses::Windows::Windows(const std::vector<Clause>& block, bool ofNodes, int times,
                                const Distance& distance)
    : size(ofNodes ? distance.nodes : distance.variables) {
  int least = std::numeric_limits<int>::max();
  int greatest = 0;
  const auto isHere = [=](const Clause& c) { return isNodeNr(leading(c)) == ofNodes; };
  for (const Clause& c : block) {
    if (!isHere(c)) continue;
    least = std::min(least, std::abs(leading(c)));
    greatest = std::max(greatest, std::abs(leading(c)));
  }
  if (greatest == 0) return;
  const int step = static_cast<int>(size);
  const int windows = (greatest - least) / step;  // that it reaches below the highest
  begin = least + windows * size;
  first = 1 - windows;
  last = times;
  if (windows > times) return;
  for (const Clause& c : block) {
    if (!isHere(c)) continue;
    const int copy = windows - (std::abs(leading(c)) - least) / step;
    items[regionOf(c)].push_back({moved(c, copy * distance), copy});
  }
  for (std::vector<Item>& ordered : items)
    std::sort(ordered.begin(), ordered.end(),
              [](const Item& a, const Item& b) { return a.clause < b.clause; });
}

CopiedClauses::Items CopiedClauses::Windows::between(Region region, std::int64_t from,
                                                     std::int64_t to) const {
  const std::vector<Item>& all = items[region];
  const auto firstOf = [&](std::int64_t least, std::int64_t most) {
    return std::partition_point(all.begin(), all.end(), [=](const Item& item) {
      const int at = std::abs(leading(item.clause));
      return isNegative(region) ? at > most : at < least;
    });
  };
  // Those up to `from`, or down to `to`, come before; then those in between.
  const auto left = firstOf(from, to - 1);
  const auto right = firstOf(to, from - 1);
  return {left, right};
}
