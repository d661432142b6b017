// The ordered set of clauses that a formula becomes: ascending, each clause once.
//
// It holds the definitions of nodes as such (definitions.hpp) and all other clauses, of which a
// formula has one, as a list that is sorted and made unique when the set is first read.

#pragma once

#include <cstddef>
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

  // sink(const Clause&) for every clause, in ascending order. Allocates nothing.
  template <class Sink>
  void forEach(Sink&& sink) const {
    auto next = others().begin();
    const auto end = others().end();
    const auto sinkOther = [&] { sink(*next++); };
    definitions_.forEach([&](const Clause& clause) {
      while (next != end && *next < clause) sinkOther();
      sink(clause);
    });
    while (next != end) sinkOther();
  }

 private:
  const std::vector<Clause>& others() const;

  Definitions definitions_;
  mutable std::vector<Clause> others_;
  mutable bool ordered_ = true;  // others_ is ascending, unique and without definitions
};
