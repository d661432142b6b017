#include "boolform/clause.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
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

constexpr int maxDigitBits = 9;  // 512 write positions: more would outrun the TLB

struct Column {
  int Clause::*slot;
  int lowest;

  // The distance from the column's lowest value.
  std::uint32_t key(const Clause& c) const {
    return static_cast<std::uint32_t>(c.*slot) - static_cast<std::uint32_t>(lowest);
  }
};

// One counting pass over the digit at `shift`; stable. False, with `to` untouched, where all
// clauses have the same digit.
bool sortByDigit(const Column& column, int shift, std::uint32_t mask, std::span<const Clause> from,
                 std::span<Clause> to) {
  std::array<std::size_t, std::size_t{1} << maxDigitBits> next{};
  const auto digit = [&](const Clause& c) { return column.key(c) >> shift & mask; };
  for (const Clause& c : from) ++next[digit(c)];
  if (next[digit(from.front())] == from.size()) return false;
  std::size_t start = 0;
  for (std::size_t& n : next) start += std::exchange(n, start);
  for (const Clause& c : from) to[next[digit(c)]++] = c;
  return true;
}

// Least significant digit first; a column that stands in order already costs one look.
// The order is in `clauses` afterwards, which the two arrays may swap roles for.
void sortByColumn(int Clause::*slot, std::span<Clause>& clauses, std::span<Clause>& spare) {
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
    if (sortByDigit({slot, lowest}, d * digitBits, mask, clauses, spare)) std::swap(clauses, spare);
}

}  // namespace

void ClauseSet::clear() {
  clauses_.clear();
  ordered_ = true;
}

const std::vector<Clause>& ClauseSet::ordered() const {
  if (!ordered_) {
    // Not initialised: at this size touching memory once more is what costs.
    const auto room = std::make_unique_for_overwrite<Clause[]>(clauses_.size());
    std::span<Clause> sorted(clauses_);
    std::span<Clause> spare(room.get(), clauses_.size());
    sortByColumn(&Clause::third, sorted, spare);
    sortByColumn(&Clause::second, sorted, spare);
    sortByColumn(&Clause::first, sorted, spare);
    if (sorted.data() == room.get()) std::copy(sorted.begin(), sorted.end(), clauses_.begin());
    clauses_.erase(std::unique(clauses_.begin(), clauses_.end()), clauses_.end());
    ordered_ = true;
  }
  return clauses_;
}
