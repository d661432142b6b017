// Conversion to clauses: every reachable node is named by its own number and defined by three or
// four clauses; the root is asserted. Equisatisfiable, linear, and free of recursion.

#include <cstdlib>

#include "boolform/boolform.hpp"
#include "boolform/clauseset.hpp"

void BoolForm::addVar(ClauseSet& cnf, int x) const { cnf.insert(Clause(x, 0, 0)); }

void BoolForm::addCon(ClauseSet& cnf, int l, int r, int n) const {
  define(bfCon, l, r, n, [&](int a, int b, int c = 0) { cnf.insert(Clause(a, b, c)); });
}

void BoolForm::addEqu(ClauseSet& cnf, int l, int r, int n) const {
  define(bfEqu, l, r, n, [&](int a, int b, int c = 0) { cnf.insert(Clause(a, b, c)); });
}

void BoolForm::addNeg(ClauseSet& cnf, int a, int b) const {
  cnf.insert(Clause(a, b, 0));
  cnf.insert(Clause(-a, -b, 0));
}

void BoolForm::toCNF(ClauseSet& cnf) const {
  if (nr == falseNr || nr == trueNr) {
    cnf.clear();
    if (nr == falseNr) cnf.insert(Clause(0, 0, 0));
    return;
  }
  addVar(cnf, nr);
  if (isNodeNr(nr)) cnf.insertDefinitions(std::abs(nr), tv, mti.copies());
}
