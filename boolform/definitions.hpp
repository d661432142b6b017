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
// The regions are written down in the same room, one after the other, and ordered by counting: by
// second literal, then by first. Operands are mostly close to their node, so the counters and the
// places written to stay in the cache; that costs a third of what sorting by digits does, and half
// the memory of a list of all clauses (docs/performance.md).
//
// Asserted of every node: its operands are as the constructors leave them, different variables or
// nodes, and in an equivalence positive and ascending.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "boolform/boolform.hpp"
#include "boolform/clause.hpp"

class Definitions {
 public:
  // Adds the clauses of the node `root` and of every node below it. Makes room for ordering them:
  // forEach allocates nothing.
  void add(int root);

  std::size_t size() const { return clauses_; }
  int maxLiteral() const;                           // absolute value; 0 where there is no clause
  int maxVariable() const { return maxVariable_; }  // the same, of problem variables
  bool contains(const Clause& clause) const;

  // sink(const Clause&) for every clause, in ascending order.
  template <class Sink>
  void forEach(Sink&& sink) const {
    forEachIn<negativeFirst>(sink);
    forEachIn<emptyFirst>(sink);
    forEachIn<positiveFirst>(sink);
  }

 private:
  enum Region : std::uint8_t { negativeFirst, emptyFirst, positiveFirst };

  void visit(std::size_t i);
  template <Region region>
  void order() const;
  template <int Clause::*slot, class Clauses>
  void orderBy(const Clauses& clauses, Clause* target) const;
  template <Region region, class Take>
  void clausesByThird(Take&& take) const;

  template <Region region, class Sink>
  void forEachIn(Sink& sink) const {
    order<region>();
    for (std::size_t at = 0; at < sizes_[region]; ++at) sink(ordered_[at]);
  }

  std::vector<std::uint8_t> marked_;  // by node: is it defined?
  std::size_t clauses_ = 0;
  std::size_t sizes_[3] = {};  // by region
  int maxVariable_ = 0;

  // Room for one region: the clauses in order, behind them (where they have three literals) in the
  // order of their second literals; and by literal how many clauses have it, then where the next
  // one goes. A node has at most two clauses in a region, so 32 bits count them.
  std::unique_ptr<Clause[]> ordered_;
  mutable std::vector<std::uint32_t> next_;
};
