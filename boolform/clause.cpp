#include "boolform/clause.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <utility>

Clause::Clause(int a, int b, int c) : first(a), second(b), third(c) {
  // Only strictly smaller values move: x and its negation keep their order.
  if (std::abs(second) < std::abs(first)) std::swap(first, second);
  if (std::abs(third) < std::abs(first)) std::swap(first, third);
  if (std::abs(third) < std::abs(second)) std::swap(second, third);
  if (third == first || third == second) third = 0;
  if (second == first) second = 0;
}

namespace {

constexpr int maxDigitBits = 12;  // 4096 counters stay in the first-level cache

struct Column {
  int Clause::*slot;
  int lowest;

  // The distance from the column's lowest value.
  std::uint32_t key(const Clause& c) const {
    return static_cast<std::uint32_t>(c.*slot) - static_cast<std::uint32_t>(lowest);
  }
};

// One counting pass over the digit at `shift`; stable. False, with `to` unset, where all clauses
// have the same digit.
bool sortByDigit(const Column& column, int shift, std::uint32_t mask,
                 const std::vector<Clause>& from, std::vector<Clause>& to) {
  std::array<std::size_t, std::size_t{1} << maxDigitBits> next{};
  const auto digit = [&](const Clause& c) { return column.key(c) >> shift & mask; };
  for (const Clause& c : from) ++next[digit(c)];
  if (next[digit(from.front())] == from.size()) return false;
  std::size_t start = 0;
  for (std::size_t& n : next) start += std::exchange(n, start);
  to.resize(from.size());
  for (const Clause& c : from) to[next[digit(c)]++] = c;
  return true;
}

// Least significant digit first; a column that stands in order already costs one look.
void sortByColumn(int Clause::*slot, std::vector<Clause>& clauses, std::vector<Clause>& spare) {
  int lowest = clauses.front().*slot;
  int highest = lowest;
  int previous = lowest;
  bool inOrder = true;
  for (const Clause& c : clauses) {
    const int value = c.*slot;
    inOrder = inOrder && previous <= value;
    lowest = std::min(lowest, value);
    highest = std::max(highest, value);
    previous = value;
  }
  if (inOrder) return;

  const std::uint32_t range =
      static_cast<std::uint32_t>(highest) - static_cast<std::uint32_t>(lowest);
  const int bits = static_cast<int>(std::bit_width(range));
  const int digits = (bits + maxDigitBits - 1) / maxDigitBits;
  const int digitBits = (bits + digits - 1) / digits;
  const std::uint32_t mask = (std::uint32_t{1} << digitBits) - 1;
  for (int d = 0; d < digits; ++d)
    if (sortByDigit({slot, lowest}, d * digitBits, mask, clauses, spare)) clauses.swap(spare);
}

}  // namespace

void ClauseSet::clear() {
  clauses_.clear();
  ordered_ = true;
}

const std::vector<Clause>& ClauseSet::ordered() const {
  if (!ordered_) {
    std::vector<Clause> spare;
    sortByColumn(&Clause::third, clauses_, spare);
    sortByColumn(&Clause::second, clauses_, spare);
    sortByColumn(&Clause::first, clauses_, spare);
    clauses_.erase(std::unique(clauses_.begin(), clauses_.end()), clauses_.end());
    ordered_ = true;
  }
  return clauses_;
}
