// Where clauses go: a solver, with the count of variables and clauses that it has been given.

#pragma once

#include <initializer_list>

#include "workbench/machine/layout.hpp"

namespace tpn {

class ClauseSink {
 public:
  explicit ClauseSink(Solver& solver) : solver_(solver) {}

  // The first of `count` consecutive variables that nothing has named yet.
  int fresh(int count = 1) {
    const int first = variables_ + 1;
    variables_ += count;
    return first;
  }
  void add(std::initializer_list<int> clause) { addAll(clause); }
  void add(const Clause& clause) { addAll(clause); }
  void addAt(const Clauses& clauses, int base) {
    tpn::addAt(solver_, clauses, base);
    clauses_ += static_cast<long>(clauses.size());
  }

  // Literals that are decided by what they are made from.
  int both(int a, int b) {
    const int result = fresh();
    add({-result, a});
    add({-result, b});
    add({result, -a, -b});
    return result;
  }
  int either(int a, int b) { return -both(-a, -b); }

  int differ(int a, int b) {
    const int result = fresh();
    add({-result, a, b});
    add({-result, -a, -b});
    add({result, -a, b});
    add({result, a, -b});
    return result;
  }
  int any(const std::vector<int>& parts) {
    const int result = fresh();
    Clause some{-result};
    for (const int part : parts) {
      some.push_back(part);
      add({result, -part});
    }
    add(some);
    return result;
  }

  int variables() const { return variables_; }
  long clauses() const { return clauses_; }
  Solver& solver() const { return solver_; }

 private:
  template <class Literals>
  void addAll(const Literals& literals) {
    for (const int literal : literals) solver_.add(literal);
    solver_.add(0);
    ++clauses_;
  }

  Solver& solver_;
  int variables_ = 0;
  long clauses_ = 0;
};

}  // namespace tpn
