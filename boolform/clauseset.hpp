// The ordered set of clauses that a formula becomes: ascending, each clause once.
//
// It holds the definitions of nodes as such (definitions.hpp) and all other clauses, of which a
// formula has one, as a list that is sorted and made unique when the set is first read.

#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "boolform/clause.hpp"
#include "boolform/definitions.hpp"

class ClauseSet {
 public:
  void insert(const Clause& clause);

  // The clauses that define the node `root` and every node below it; `nodes` is the node table,
  // borrowed, and the same one each time; some of them may be known to be copies.
  void insertDefinitions(int root, const std::vector<Triple>& nodes, const Repetition& copies = {});

  void clear() { *this = ClauseSet(); }

  std::size_t size() const { return others().size() + definitions_.size(); }
  bool empty() const { return size() == 0; }

  // The largest absolute value of a literal, of a problem variable's literal; 0 where there is
  // none.
  int maxLiteral() const;
  int maxVariable() const;

  // take(const Clause&) for every clause, in ascending order. Allocates nothing.
  template <class Take>
  void forEach(Take&& take) const {
    forEachRun(OneByOne<Take>{take});
  }

  // The same in runs (clause.hpp).
  template <class Sink>
  void forEachRun(Sink&& sink) const {
    const std::span<const Clause> list = others();
    Merged<Sink> merged{sink, list.data(), list.data() + list.size()};
    definitions_.forEachRun(merged);
    while (merged.next != merged.end) sink.one(*merged.next++);
  }

 private:
  // Definitions, and the other clauses between them.
  template <class Sink>
  struct Merged {
    Sink& sink;
    const Clause* next;
    const Clause* end;

    void one(const Clause& clause) {
      while (next != end && *next < clause) sink.one(*next++);
      sink.one(clause);
    }
    template <class Tail>
    void run(int leading, std::span<const Tail> tails) {
      if (next == end || tails.empty() || clauseOf(leading, tails.back()) < *next)
        sink.run(leading, tails);
      else
        for (const Tail tail : tails) one(clauseOf(leading, tail));
    }
  };

  const std::vector<Clause>& others() const;

  Definitions definitions_;
  mutable std::vector<Clause> others_;
  mutable bool ordered_ = true;  // others_ is ascending, unique and without definitions
};
