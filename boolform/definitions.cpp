#include "boolform/definitions.hpp"

#include <cassert>
#include <utility>

namespace {

std::size_t indexOf(int nr) { return static_cast<std::size_t>(std::abs(nr) - firstNodeNr); }
int numberOf(std::size_t i) { return firstNodeNr + static_cast<int>(i); }

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
         [&](int x, int y, int z = 0) { found = found || c == Clause(x, y, z); });
  return found;
}

// sink(own, second) or sink(own, first, second) for each clause that goes into a bucket, node by
// node: its operands' literals, and the node's own, which comes last in the clause.
template <class Sink>
void Definitions::clauses(Sink sink) const {
  const Places places = places_;
  const std::vector<Triple>& nodes = *nodes_;
  for (std::size_t i = 0; i < marked_.size(); ++i) {
    if (i == copiesBegin_) i = copiesEnd_;
    if (i == marked_.size()) break;
    if (marked_[i] == 0) continue;
    const auto [op, l, r] = nodes[i];
    const auto [minor, major] = inOrder(places.of(l), places.of(r));
    define(op, minor, major, Placed{numberOf(i), 0}, sink);
  }
}

// Where an operand has many users, as a proposition of a long property has, they have mostly been
// made in the order of their other operands. Its bucket then is two lists woven into each other:
// negative second literals, ascending, and positive ones, descending.
void Definitions::order(std::span<ClauseTail> bucket) const {
  constexpr std::size_t many = 32;
  if (bucket.size() < 2) return;
  if (bucket.size() >= many) {
    ClauseTail* negative = unwoven_.get();
    ClauseTail* positive = negative + bucket.size();
    for (const ClauseTail tail : bucket) {
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

struct Definitions::Counting {
  Buckets<int>& two;
  Buckets<ClauseTail>& three;
  void operator()(Placed, Placed second) const { two.count(second.bucket); }
  void operator()(Placed, Placed first, Placed) const { three.count(first.bucket); }
};

struct Definitions::Putting {
  Buckets<int>& two;
  Buckets<ClauseTail>& three;
  void operator()(Placed own, Placed second) const { two.put(second.bucket, own.literal); }
  void operator()(Placed own, Placed first, Placed second) const {
    three.put(first.bucket, ClauseTail(second.literal, own.literal));
  }
};

// A bucket is filled from its end on, with older nodes first: where they are negated, as the third
// literals of two-literal clauses are, that is their order.
void Definitions::fill() {
  places_ = Places(maxVariable_);
  const std::size_t buckets = 2 * places_.count(marked_.size());
  two_.clear(buckets);
  three_.clear(buckets);
  clauses(Counting{two_, three_});
  two_.countingDone();
  three_.countingDone();
  unwoven_ = std::make_unique_for_overwrite<ClauseTail[]>(three_.largest());
  clauses(Putting{two_, three_});
}
