// Clauses of at most three literals, and the ordered set of them that a formula becomes.
//
// The set is one flat array. Clauses are appended as they come; the array is sorted and made unique
// once, when it is first read. Insertion into a tree costs over 300 ns a clause at ten million
// clauses, this 20 to 30 (bench/README.md). Readers see an ordered set either way: ascending, each
// clause once.

#pragma once

#include <compare>
#include <cstddef>
#include <vector>

// Three literal slots. 0 marks an empty slot; empty slots stand in front.
struct Clause {
  int first;
  int second;
  int third;

  Clause() = default;  // slots unset

  // The normal form of (a or b or c): ordered by absolute value, a repeated literal dropped. A
  // literal beside its own negation stays, in the order given.
  Clause(int a, int b, int c);

  friend auto operator<=>(const Clause&, const Clause&) = default;  // lexicographic, signed
};

class ClauseSet {
 public:
  using const_iterator = std::vector<Clause>::const_iterator;

  void insert(const Clause& clause) {
    clauses_.push_back(clause);
    ordered_ = false;
  }
  void clear();
  void reserve(std::size_t clauses) { clauses_.reserve(clauses); }

  // Reading orders the set first, where something was inserted since.
  std::size_t size() const { return ordered().size(); }
  bool empty() const { return clauses_.empty(); }
  const_iterator begin() const { return ordered().begin(); }
  const_iterator end() const { return ordered().end(); }

 private:
  const std::vector<Clause>& ordered() const;

  mutable std::vector<Clause> clauses_;
  mutable bool ordered_ = true;
};
