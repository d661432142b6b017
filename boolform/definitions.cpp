#include "boolform/definitions.hpp"

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <utility>

namespace {

std::size_t indexOf(int nr) { return static_cast<std::size_t>(std::abs(nr) - firstNodeNr); }
int numberOf(std::size_t i) { return firstNodeNr + static_cast<int>(i); }

// The one with the smaller absolute value first.
std::pair<int, int> minorMajor(int l, int r) {
  const bool swap = std::abs(l) > std::abs(r);
  return {swap ? r : l, swap ? l : r};
}

// A clause whose literals are in order.
Clause ordered(int first, int second, int third) {
  Clause c;
  c.first = first;
  c.second = second;
  c.third = third;
  return c;
}

}  // namespace

int Definitions::maxLiteral() const { return marked_.empty() ? 0 : numberOf(marked_.size() - 1); }

// Operands are older than their node, so one scan downwards meets every node after all its users:
// no queue is needed. A mark is 1 until the node's turn comes, then 2.
void Definitions::add(int root) {
  const std::size_t last = indexOf(root);
  if (last >= marked_.size()) marked_.resize(last + 1, 0);
  if (marked_[last] == 0) marked_[last] = 1;
  for (std::size_t i = last + 1; i-- > 0;)
    if (marked_[i] == 1) visit(i);

  next_.resize(2 * (static_cast<std::size_t>(maxVariable_) + marked_.size()) + 1);
  const std::size_t ternary = std::max(sizes_[negativeFirst], sizes_[positiveFirst]);
  // Not initialised: at this size touching memory once more is what costs.
  ordered_ = std::make_unique_for_overwrite<Clause[]>(std::max(2 * ternary, sizes_[emptyFirst]));
}

void Definitions::visit(std::size_t i) {
  const auto [op, l, r] = BoolForm::tv[i];
  for (const int operand : {l, r}) {
    if (!isNodeNr(operand)) {
      maxVariable_ = std::max(maxVariable_, std::abs(operand));
    } else if (std::uint8_t& mark = marked_[indexOf(operand)]; mark == 0) {
      mark = 1;
    }
  }
  marked_[i] = 2;
  if (op == bfCon) {
    assert(std::abs(l) != std::abs(r));
    ++sizes_[minorMajor(l, r).first > 0 ? negativeFirst : positiveFirst];
    sizes_[emptyFirst] += 2;
    clauses_ += 3;
  } else {
    assert(0 < l && l < r);
    sizes_[negativeFirst] += 2;
    sizes_[positiveFirst] += 2;
    clauses_ += 4;
  }
}

bool Definitions::contains(const Clause& c) const {
  if (!isNodeNr(c.third) || indexOf(c.third) >= marked_.size()) return false;
  const std::size_t i = indexOf(c.third);
  if (marked_[i] == 0) return false;
  const auto [op, l, r] = BoolForm::tv[i];
  const int n = numberOf(i);
  if (op == bfCon) return c == Clause(l, -n, 0) || c == Clause(r, -n, 0) || c == Clause(-l, -r, n);
  return c == Clause(-l, r, -n) || c == Clause(l, -r, -n) || c == Clause(l, r, n) ||
         c == Clause(-l, -r, n);
}

// Clauses in ascending order of their third literal: negated nodes, the youngest first, then nodes,
// the oldest first.
template <Definitions::Region region, class Take>
void Definitions::clausesByThird(Take&& take) const {
  constexpr bool negative = region == negativeFirst;
  for (std::size_t i = marked_.size(); i-- > 0;) {
    if (marked_[i] == 0) continue;
    const auto [op, l, r] = BoolForm::tv[i];
    const int n = numberOf(i);
    if (region == emptyFirst && op == bfCon) {
      take(ordered(0, l, -n));
      take(ordered(0, r, -n));
    }
    if (region != emptyFirst && op == bfEqu)
      take(negative ? ordered(-l, r, -n) : ordered(l, -r, -n));
  }
  if (region == emptyFirst) return;
  for (std::size_t i = 0; i < marked_.size(); ++i) {
    if (marked_[i] == 0) continue;
    const auto [op, l, r] = BoolForm::tv[i];
    const int n = numberOf(i);
    if (op == bfEqu) {
      take(negative ? ordered(-l, -r, n) : ordered(l, r, n));
    } else {
      const auto [minor, major] = minorMajor(l, r);
      if ((minor > 0) == negative) take(ordered(-minor, -major, n));
    }
  }
}

// Stable: clauses that agree in this slot keep their order. `clauses` hands them to its argument,
// the same ones each time.
template <int Clause::*slot, class Clauses>
void Definitions::orderBy(const Clauses& clauses, Clause* target) const {
  const int middle = static_cast<int>(next_.size() / 2);
  const int shift = numberOf(marked_.size() - 1) - middle;
  const auto place = [=](int literal) {  // the nodes' follow the variables' at once
    if (isNodeNr(literal)) literal += literal < 0 ? shift : -shift;
    return static_cast<std::size_t>(std::ptrdiff_t{middle} + literal);
  };
  std::fill(next_.begin(), next_.end(), 0);
  clauses([&](const Clause& c) { ++next_[place(c.*slot)]; });
  std::uint32_t start = 0;
  for (std::uint32_t& n : next_) start += std::exchange(n, start);
  clauses([&](const Clause& c) { target[next_[place(c.*slot)]++] = c; });
}

template <Definitions::Region region>
void Definitions::order() const {
  if (sizes_[region] == 0) return;
  const auto byThird = [this](auto&& take) { this->clausesByThird<region>(take); };
  if (region == emptyFirst) {
    orderBy<&Clause::second>(byThird, ordered_.get());
  } else {
    Clause* const behind = ordered_.get() + sizes_[region];
    orderBy<&Clause::second>(byThird, behind);
    const auto bySecond = [&](auto&& take) {
      for (std::size_t at = 0; at < sizes_[region]; ++at) take(behind[at]);
    };
    orderBy<&Clause::first>(bySecond, ordered_.get());
  }
}

template void Definitions::order<Definitions::negativeFirst>() const;
template void Definitions::order<Definitions::emptyFirst>() const;
template void Definitions::order<Definitions::positiveFirst>() const;
