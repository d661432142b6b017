// All states of a network in a solver, as the checker sees them; one state, and what may happen to
// it. There is no state after a step: what a clause says after it is said of the state before.
//
// Variables:
// 1. At(p, l): process p is in location l. Exactly one of a process's is true.
// 2. Reached(p, c): the clock of p is c or more, for the numbers c that anything compares it with,
//    and no others. In ascending order, once one is false all are. Whatever they say, there is a
//    whole number that obeys them, so that constants may be of any size.
// 3. A clock is at most the cap of its location.

#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "workbench/proof/certificate.hpp"
#include "workbench/solvers/solver.hpp"

namespace tpn {

// [process]: the numbers that its clock is compared with, ascending, 1 or more.
using Thresholds = std::vector<std::vector<std::int64_t>>;

// Those of the clauses, before and after a unit of time, and of the transitions.
Thresholds thresholds(const Network& net, const std::vector<AtomClause>& clauses);

class StateClauses {
 public:
  // `net` in units; it and the solver outlive this object.
  StateClauses(const Network& net, Thresholds thresholds, Solver& solver);

  int truth() const { return truth_; }
  int fresh() { return ++variables_; }
  void add(const std::vector<int>& clause);

  int at(const Spot& spot) const { return at_.at(spot); }
  int reached(std::size_t process, std::int64_t units) const;  // one of the thresholds, or 0

  int literal(const Atom& atom) const;     // now
  int literalAfterUnit(const Atom& atom);  // after a unit of time
  std::vector<int> literals(const AtomClause& clause) const;

  void assertLinear(const LinearInvariant& invariant);  // unless it has too many partial sums

 private:
  void oneLocation(std::size_t process);
  void clock(std::size_t process);
  int reachedAfterUnit(std::size_t process, std::int64_t units);

  const Network& net_;
  Thresholds thresholds_;
  Solver& solver_;
  std::vector<std::map<int, std::int64_t>> caps_;
  int variables_ = 0;
  int truth_ = 0;
  std::map<Spot, int> at_;
  std::vector<int> firstReached_;  // [process]: the variable of its lowest threshold
  std::map<std::pair<std::size_t, std::int64_t>, int> afterUnit_;
};

}  // namespace tpn
