// The clauses that define nodes, in the order of the clause file, without a list of them.
//
// A node n with the operands l and r is defined by three or four clauses:
//
//     n <-> (l and r)     (l, -n)  (r, -n)  (-l, -r, n)
//     n <-> (l <-> r)     (-l, r, -n)  (l, -r, -n)  (l, r, n)  (-l, -r, n)
//
// Ordered by absolute value, n is the third literal of them all, for it is younger than its
// operands; the operand with the smaller absolute value, the minor one, precedes the major one. No
// clause occurs twice. Ascending order by first, second and third literal, an empty slot counting
// as 0, has four regions (copiedclauses.hpp):
//
//     first negative                   conjunctions with a positive minor operand, equivalences
//     first empty, second negative     the two-literal clauses of conjunctions
//     first empty, second positive
//     first positive                   conjunctions with a negative minor operand, equivalences
//
// In each of them the clauses are put into buckets by the leading literal, so that 4 or 8 bytes
// hold the rest of a clause. In the middle regions the walk over the nodes leaves a bucket in
// order. In the others a bucket is mostly small, or nearly in order, and is sorted on its way out,
// in the cache.
// Sorting a list of all clauses would take several times as long and twice the memory
// (docs/performance.md). The copies of a repetition are not in the buckets: their clauses are those
// of the block, moved up.
//
// Asserted of every node: its operands are as the constructors leave them, different variables or
// nodes, and in an equivalence positive and ascending.

#pragma once

#include <algorithm>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "boolform/buckets.hpp"
#include "boolform/clause.hpp"
#include "boolform/copiedclauses.hpp"
#include "boolform/node.hpp"
#include "boolform/repetition.hpp"

class Definitions {
 public:
  // Adds the clauses of the node `root` and of every node below it. `nodes`, the store's node table
  // and the same one each time, is borrowed; some of its nodes are `copies`. Orders the clauses as
  // far as that needs memory: forEach allocates nothing.
  void add(int root, const std::vector<Triple>& nodes, const Repetition& copies = {});

  std::size_t size() const { return clauses_; }
  int maxLiteral() const;                           // absolute value; 0 where there is no clause
  int maxVariable() const { return maxVariable_; }  // the same, of problem variables
  bool contains(const Clause& clause) const;

  // take(const Clause&) for every clause, in ascending order.
  template <class Take>
  void forEach(Take&& take) const {
    forEachRun(OneByOne<Take>{take});
  }

  // The same in runs (clause.hpp).
  template <class Sink>
  void forEachRun(Sink&& sink) const {
    if (clauses_ == 0) return;
    forEachIn(threeNegative, three_, sink);
    forEachIn(twoNegative, two_, sink);
    forEachIn(twoPositive, two_, sink);
    forEachIn(threePositive, three_, sink);
  }

 private:
  // A literal and its bucket; that of its negation is beside it.
  struct Placed {
    int literal;
    std::uint32_t bucket;
    constexpr Placed operator-() const { return {-literal, bucket ^ 1}; }
  };

  // A literal's place: variables first, the nodes at once after them; its sign does not matter.
  // Masks in place of jumps here and in fill(): signs and kinds are as good as random.
  class Places {
   public:
    Places() = default;
    explicit Places(int maxVariable) : maxVariable_(maxVariable) {}
    std::size_t count(std::size_t nodes) const {
      return static_cast<std::size_t>(maxVariable_) + 1 + nodes;
    }
    Placed of(int literal) const {
      const int size = std::abs(literal);
      const int place = size - (shift() & -static_cast<int>(size > varNrLimit));
      return {literal, 2 * static_cast<std::uint32_t>(place) + (literal < 0)};
    }
    int literalAt(std::size_t place) const {
      const int i = static_cast<int>(place);
      return i <= maxVariable_ ? i : i + shift();
    }

   private:
    int shift() const { return varNrLimit - maxVariable_; }
    int maxVariable_ = 0;
  };

  // The one with the smaller absolute value first.
  static std::pair<Placed, Placed> inOrder(Placed l, Placed r) {
    const std::uint32_t swapped = 0U - static_cast<std::uint32_t>(l.bucket > r.bucket);
    const std::uint32_t buckets = (l.bucket ^ r.bucket) & swapped;
    const int literals = (l.literal ^ r.literal) & static_cast<int>(swapped);
    return {{l.literal ^ literals, l.bucket ^ buckets}, {r.literal ^ literals, r.bucket ^ buckets}};
  }

  void mark(std::size_t i);
  int equalCopies(const Repetition& copies) const;
  void fill();
  struct Counting;
  struct Putting;
  template <class Sink>
  void clauses(Sink sink) const;

  template <class Value, class Sink>
  void forEachIn(Region region, const Buckets<Value>& buckets, Sink& sink) const;

  void order(std::span<ClauseTail> bucket) const;
  void order(std::span<int>) const {}

  const std::vector<Triple>* nodes_ = nullptr;
  std::vector<std::uint8_t> marked_;  // by node: is it defined?
  std::size_t clauses_ = 0;
  int maxVariable_ = 0;

  // By the leading literal.
  Places places_;
  Buckets<ClauseTail> three_;
  Buckets<int> two_;
  std::unique_ptr<ClauseTail[]> unwoven_;  // room for any bucket

  CopiedClauses copied_;
  std::size_t copiesBegin_ = 0;  // the nodes that are not in the buckets
  std::size_t copiesEnd_ = 0;
};

// The copies' clauses between the buckets, and in them; `from` .. `to - 1` are the leading literals
// for which they are still to come.
template <class Value, class Sink>
void Definitions::forEachIn(Region region, const Buckets<Value>& buckets, Sink& sink) const {
  const std::size_t count = places_.count(marked_.size());
  std::int64_t from = 0;
  std::int64_t to = copied_.end();
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t place = isNegative(region) ? count - 1 - i : i;
    const std::span<Value> bucket = buckets[2 * place + isNegative(region)];
    if (bucket.empty()) continue;
    order(bucket);
    const int at = places_.literalAt(place);
    const int leading = isNegative(region) ? -at : at;
    auto next = bucket.begin();
    if (isNegative(region) ? at < to : from < to) {
      const auto one = [&](const Clause& copy) { sink.one(copy); };
      if (isNegative(region))
        copied_.forEach(region, at + std::int64_t{1}, std::exchange(to, at), one);
      else
        copied_.forEach(region, std::exchange(from, at + std::int64_t{1}), at, one);
      copied_.forEach(region, at, at + std::int64_t{1}, [&](const Clause& copy) {
        while (next != bucket.end() && clauseOf(leading, *next) < copy)
          sink.one(clauseOf(leading, *next++));
        sink.one(copy);
      });
    }
    sink.run(leading, std::span<const Value>(next, bucket.end()));
  }
  copied_.forEach(region, from, to, [&](const Clause& copy) { sink.one(copy); });
}
