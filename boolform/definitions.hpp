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
// as 0, has three regions:
//
//     first negative     conjunctions with a positive minor operand, and equivalences
//     first empty        the two-literal clauses of conjunctions
//     first positive     conjunctions with a negative minor operand, and equivalences
//
// In each of them the clauses are put into buckets by the literal they begin with, so that 4 or 8
// bytes hold the rest of a clause. In the middle region the walk over the nodes leaves a bucket in
// order. In the others a bucket is mostly small, and is sorted on its way out, in the cache.
// Sorting a list of all clauses would take several times as long and twice the memory
// (docs/performance.md).
//
// Asserted of every node: its operands are as the constructors leave them, different variables or
// nodes, and in an equivalence positive and ascending.

#pragma once

#include <algorithm>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

#include "boolform/buckets.hpp"
#include "boolform/clause.hpp"
#include "boolform/node.hpp"

class Definitions {
 public:
  // Adds the clauses of the node `root` and of every node below it. `nodes`, the store's node table
  // and the same one each time, is borrowed. Makes room for ordering them: forEach allocates
  // nothing.
  void add(int root, const std::vector<Triple>& nodes);

  std::size_t size() const { return clauses_; }
  int maxLiteral() const;                           // absolute value; 0 where there is no clause
  int maxVariable() const { return maxVariable_; }  // the same, of problem variables
  bool contains(const Clause& clause) const;

  // sink(const Clause&) for every clause, in ascending order.
  template <class Sink>
  void forEach(Sink&& sink) const {
    if (clauses_ == 0) return;
    fill();
    const std::size_t middle = places();
    for (std::size_t i = middle; i-- > 0;) forEachIn(first_[0][i], -literalAt(i), sink);
    for (std::size_t i = middle; i-- > 0;) forEachIn(second_[middle + ~i], -literalAt(i), sink);
    for (std::size_t i = 0; i < middle; ++i) forEachIn(second_[middle + i], literalAt(i), sink);
    for (std::size_t i = 0; i < middle; ++i) forEachIn(first_[1][i], literalAt(i), sink);
  }

 private:
  // The second and third literal of a clause as one number that is ordered as they are.
  class Tail {
   public:
    Tail() = default;  // unset
    Tail(int second, int third) : bits_(std::uint64_t{biased(second)} << 32 | biased(third)) {}
    int second() const { return static_cast<int>(biased(static_cast<int>(bits_ >> 32))); }
    int third() const { return static_cast<int>(biased(static_cast<int>(bits_))); }
    friend auto operator<=>(const Tail&, const Tail&) = default;

   private:
    static std::uint32_t biased(int literal) {
      return static_cast<std::uint32_t>(literal) ^ 1U << 31;
    }
    std::uint64_t bits_;
  };

  // A literal's place: variables first, the nodes at once after them; its sign does not matter.
  // Masks in place of jumps here and in fill(): signs and kinds are as good as random.
  std::size_t places() const { return static_cast<std::size_t>(maxVariable_) + 1 + marked_.size(); }
  std::size_t placeOf(int literal) const {
    const int size = std::abs(literal);
    return static_cast<std::size_t>(size - (shift() & -static_cast<int>(size > varNrLimit)));
  }
  int literalAt(std::size_t place) const {
    const int i = static_cast<int>(place);
    return i <= maxVariable_ ? i : i + shift();
  }
  int shift() const { return varNrLimit - maxVariable_; }

  void visit(std::size_t i);
  void fill() const;
  template <class Take>
  void clauses(Take&& take) const;

  template <class Sink>
  static void forEachIn(std::span<Tail> bucket, int first, Sink& sink) {
    if (bucket.size() > 1) std::sort(bucket.begin(), bucket.end());
    for (const Tail tail : bucket) sink(ordered(first, tail.second(), tail.third()));
  }
  template <class Sink>
  static void forEachIn(std::span<const int> bucket, int second, Sink& sink) {
    for (const int third : bucket) sink(ordered(0, second, third));
  }
  static Clause ordered(int first, int second, int third);

  const std::vector<Triple>* nodes_ = nullptr;
  std::vector<std::uint8_t> marked_;  // by node: is it defined?
  std::size_t clauses_ = 0;
  std::size_t sizes_[3] = {};  // by region
  int maxVariable_ = 0;

  // The clauses with a first literal, negative [0] or positive [1], by its place. Those without, by
  // the second: where its place is i, at places() + i, or at places() + ~i where it is negative.
  mutable Buckets<Tail> first_[2];
  mutable Buckets<int> second_;
};

inline Clause Definitions::ordered(int first, int second, int third) {
  Clause c;
  c.first = first;
  c.second = second;
  c.third = third;
  return c;
}
