#include "boolform/definitions.hpp"

#include <cassert>
#include <utility>

namespace {

std::size_t indexOf(int nr) { return static_cast<std::size_t>(std::abs(nr) - firstNodeNr); }
int numberOf(std::size_t i) { return firstNodeNr + static_cast<int>(i); }

// The one with the smaller absolute value first.
std::pair<int, int> minorMajor(int l, int r) {
  const int swapped = (l ^ r) & -static_cast<int>(std::abs(l) > std::abs(r));
  return {l ^ swapped, r ^ swapped};
}

}  // namespace

int Definitions::maxLiteral() const { return marked_.empty() ? 0 : numberOf(marked_.size() - 1); }

// Operands are older than their node, so one scan downwards meets every node after all its users:
// no queue is needed. A mark is 1 until the node's turn comes, then 3.
void Definitions::add(int root, const std::vector<Triple>& nodes) {
  nodes_ = &nodes;
  const std::size_t last = indexOf(root);
  if (last >= marked_.size()) marked_.resize(last + 1, 0);
  if (marked_[last] == 0) marked_[last] = 1;
  for (std::size_t i = last + 1; i-- > 0;)
    if (marked_[i] == 1) visit(i);

  first_[0].makeRoom(places(), sizes_[0]);
  second_.makeRoom(2 * places(), sizes_[1]);
  first_[1].makeRoom(places(), sizes_[2]);
}

void Definitions::visit(std::size_t i) {
  const auto [op, l, r] = (*nodes_)[i];
  for (const int operand : {l, r})
    if (isNodeNr(operand))
      marked_[indexOf(operand)] |= 1;
    else
      maxVariable_ = std::max(maxVariable_, std::abs(operand));
  marked_[i] = 3;
  if (op == bfCon) {
    assert(std::abs(l) != std::abs(r));
    ++sizes_[minorMajor(l, r).first < 0 ? 2 : 0];
    sizes_[1] += 2;
    clauses_ += 3;
  } else {
    assert(0 < l && l < r);
    sizes_[0] += 2;
    sizes_[2] += 2;
    clauses_ += 4;
  }
}

bool Definitions::contains(const Clause& c) const {
  if (!isNodeNr(c.third) || indexOf(c.third) >= marked_.size()) return false;
  const std::size_t i = indexOf(c.third);
  if (marked_[i] == 0) return false;
  const auto [op, l, r] = (*nodes_)[i];
  bool found = false;
  define(op, l, r, numberOf(i),
         [&](int x, int y, int z) { found = found || c == Clause(x, y, z); });
  return found;
}

// take(first, second, third) for each, node by node; a clause of two literals has no first.
template <class Take>
void Definitions::clauses(Take&& take) const {
  for (std::size_t i = 0; i < marked_.size(); ++i) {
    if (marked_[i] == 0) continue;
    const auto [op, l, r] = (*nodes_)[i];
    const int n = numberOf(i);
    const auto [minor, major] = minorMajor(l, r);
    define(op, minor, major, n, [&](int x, int y, int z) {
      if (z == 0)
        take(0, y, x);
      else if (z == n)
        take(x, y, z);
      else if (std::abs(y) < std::abs(z))
        take(y, z, x);
      else
        take(z, y, x);
    });
  }
}

// A bucket is filled from its end on, with older nodes first: where they are negated, as the third
// literals of two-literal clauses are, that is their order.
void Definitions::fill() const {
  const std::size_t middle = places();
  const auto secondPlace = [&](int literal) {  // ~i where it is negative
    return middle + (placeOf(literal) ^ -static_cast<std::size_t>(literal < 0));
  };
  first_[0].clear();
  second_.clear();
  first_[1].clear();
  clauses([&](int first, int second, int) {
    if (first == 0)
      second_.count(secondPlace(second));
    else
      first_[first > 0].count(placeOf(first));
  });
  first_[0].countingDone();
  second_.countingDone();
  first_[1].countingDone();
  clauses([&](int first, int second, int third) {
    if (first == 0)
      second_.put(secondPlace(second), third);
    else
      first_[first > 0].put(placeOf(first), Tail(second, third));
  });
}
