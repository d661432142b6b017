// The clauses that define a repetition's copies, in the order of the clause file, read off those
// that define its block: of a copy nothing is kept, and nothing is ordered.
//
// A clause is ordered by its leading literal first: the first one or, where there are only two, the
// second. Moved up with its copy, it goes where its leading literal goes. So the leading variables
// and nodes fall into windows, each a block's distance above the one before, and a window has the
// clauses of the one before, in the same order, moved up. Only in the outermost windows some are
// missing: those of copies that do not exist.

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "boolform/clause.hpp"
#include "boolform/node.hpp"
#include "boolform/repetition.hpp"

// The regions of the clause file, in order: by the number of literals and the leading one's sign.
enum Region : std::size_t { threeNegative, twoNegative, twoPositive, threePositive };
constexpr std::size_t regions = 4;

constexpr bool isNegative(Region region) { return region <= twoNegative; }
constexpr bool isOfTwo(Region region) { return region == twoNegative || region == twoPositive; }

class CopiedClauses {
 public:
  CopiedClauses() = default;  // of no copies

  // `nodes` is the node table, with the copies. `isDefined` tells, by node, whether there are
  // clauses for it; it says the same of the block and of the first `times` copies.
  CopiedClauses(const Repetition& copies, int times, const std::vector<Triple>& nodes,
                std::span<const std::uint8_t> isDefined);

  // How many copies these clauses define: the first `times`, or none where that is too few.
  int times() const { return times_; }

  // All leading literals have absolute values below this.
  std::int64_t end() const { return std::max(variables_.end(), nodes_.end()); }

  // sink(const Clause&) for every clause of the region whose leading literal has an absolute value
  // of from .. to - 1, in ascending order.
  template <class Sink>
  void forEach(Region region, std::int64_t from, std::int64_t to, Sink&& sink) const {
    if (times_ == 0) return;
    const Windows& first = isNegative(region) ? nodes_ : variables_;
    const Windows& second = isNegative(region) ? variables_ : nodes_;
    first.forEach(*this, region, from, to, sink);
    second.forEach(*this, region, from, to, sink);
  }

 private:
  struct Item {
    Clause clause;
    int copy;  // that has it; 0 is the block itself
  };
  using Items = std::span<const Item>;

  // By the leading literal, a variable or a node. What window 0 has, ascending; the others are
  // numbered upwards and downwards from it.
  struct Windows {
    std::array<std::vector<Item>, regions> items;
    std::int64_t begin = 0;  // the first leading literal of window 0
    std::int64_t size = 1;
    int first = 0;
    int last = -1;

    std::int64_t end() const { return begin + (last + 1) * size; }

    Windows() = default;
    Windows(const std::vector<Clause>& block, bool ofNodes, int times, const Distance& distance);
    Items between(Region region, std::int64_t from, std::int64_t to) const;
    template <class Sink>
    void forEach(const CopiedClauses& all, Region region, std::int64_t from, std::int64_t to,
                 Sink&& sink) const;
  };

  template <class Sink>
  void moveUp(Items items, int window, bool ofTwo, Sink&& sink) const;

  int times_ = 0;
  Distance distance_;
  Windows variables_;
  Windows nodes_;
};

template <class Sink>
void CopiedClauses::Windows::forEach(const CopiedClauses& all, Region region, std::int64_t from,
                                     std::int64_t to, Sink&& sink) const {
  const std::int64_t bottom = begin + first * size;
  const std::int64_t low = std::max(from, bottom);
  const std::int64_t high = std::min(to, end());
  if (low >= high) return;
  const int lowest = first + static_cast<int>((low - bottom) / size);
  const int highest = first + static_cast<int>((high - 1 - bottom) / size);
  for (int i = 0; i <= highest - lowest; ++i) {
    const int window = isNegative(region) ? highest - i : lowest + i;
    const std::int64_t up = window * size;
    const bool isWhole = low <= begin + up && begin + size + up <= high;
    const Items part = isWhole ? Items(items[region]) : between(region, low - up, high - up);
    all.moveUp(part, window, isOfTwo(region), sink);
  }
}

template <class Sink>
void CopiedClauses::moveUp(Items items, int window, bool ofTwo, Sink&& sink) const {
  const Distance up = window * distance_;
  for (const auto& [clause, copy] : items) {
    if (copy + window < 1 || copy + window > times_) continue;
    Clause moved;
    moved.first = ofTwo ? 0 : up.moved(clause.first);
    moved.second = up.moved(clause.second);
    moved.third = up.moved(clause.third);
    sink(moved);
  }
}
