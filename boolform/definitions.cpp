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
void Definitions::add(int root, const std::vector<Triple>& nodes, const Repetition& copies) {
  nodes_ = &nodes;
  const std::size_t last = indexOf(root);
  if (last >= marked_.size()) marked_.resize(last + 1, 0);
  if (marked_[last] == 0) marked_[last] = 1;
  for (std::size_t i = last + 1; i-- > 0;)
    if (marked_[i] == 1) mark(i);

  copied_ = CopiedClauses(copies, equalCopies(copies), nodes, marked_);
  copiesBegin_ = copies.begin();
  copiesEnd_ = copies.begin() + copies.size(copied_.times());
  fill();
}

void Definitions::mark(std::size_t i) {
  const auto [op, l, r] = (*nodes_)[i];
  for (const int operand : {l, r})
    if (isNodeNr(operand))
      marked_[indexOf(operand)] |= 1;
    else
      maxVariable_ = std::max(maxVariable_, std::abs(operand));
  marked_[i] = 3;
  if (op == bfCon) {
    assert(std::abs(l) != std::abs(r));
    clauses_ += 3;
  } else {
    assert(0 < l && l < r);
    clauses_ += 4;
  }
}

// How many copies are defined as the block is; none where ordering the block's clauses would cost
// more than the copies' that it saves.
int Definitions::equalCopies(const Repetition& copies) const {
  constexpr int fewest = 8;
  const auto size = static_cast<std::ptrdiff_t>(copies.size(1));
  const auto block = marked_.begin() + static_cast<std::ptrdiff_t>(copies.begin()) - size;
  int equal = 0;
  for (auto copy = block + size; equal < copies.times() && marked_.end() - copy >= size;
       copy += size) {
    if (!std::equal(copy, copy + size, block)) break;
    ++equal;
  }
  return equal < fewest ? 0 : equal;
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

// take(first, second, third) for each that goes into a bucket, node by node; a clause of two
// literals has no first.
template <class Take>
void Definitions::clauses(Take&& take) const {
  for (std::size_t i = 0; i < marked_.size(); ++i) {
    if (i == copiesBegin_) i = copiesEnd_;
    if (i == marked_.size()) break;
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

// Where an operand has many users, as a proposition of a long property has, they have mostly been
// made in the order of their other operands. Its bucket then is two lists woven into each other:
// negative second literals, ascending, and positive ones, descending.
void Definitions::order(std::span<Tail> bucket) const {
  constexpr std::size_t many = 32;
  if (bucket.size() < 2) return;
  if (bucket.size() >= many) {
    Tail* negative = unwoven_.get();
    Tail* positive = negative + bucket.size();
    for (const Tail tail : bucket) {
      const bool below = tail.second() < 0;
      *negative = tail;
      positive[-1] = tail;
      negative += below;
      positive -= !below;
    }
    std::copy(unwoven_.get(), unwoven_.get() + bucket.size(), bucket.begin());
    if (std::is_sorted(bucket.begin(), bucket.end())) return;
  }
  std::sort(bucket.begin(), bucket.end());
}

// A bucket is filled from its end on, with older nodes first: where they are negated, as the third
// literals of two-literal clauses are, that is their order.
void Definitions::fill() {
  for (const bool positive : {false, true}) {
    three_[positive].clear(places());
    two_[positive].clear(places());
  }
  clauses([&](int first, int second, int) {
    if (first == 0)
      two_[second > 0].count(placeOf(second));
    else
      three_[first > 0].count(placeOf(first));
  });
  for (const bool positive : {false, true}) {
    three_[positive].countingDone();
    two_[positive].countingDone();
  }
  unwoven_ =
      std::make_unique_for_overwrite<Tail[]>(std::max(three_[0].largest(), three_[1].largest()));
  clauses([&](int first, int second, int third) {
    if (first == 0)
      two_[second > 0].put(placeOf(second), third);
    else
      three_[first > 0].put(placeOf(first), Tail(second, third));
  });
}
