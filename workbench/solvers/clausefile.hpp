// Clause files as the core writes them: whether one is complete, and whether values satisfy it.

#pragma once

#include <string>
#include <vector>

#include "workbench/solvers/answer.hpp"

namespace tpn {

struct ClauseHeader {
  long variables = 0;  // 0 or less where no formula node occurs: solvers refuse such a file
  long clauses = 0;
};

// The core says nothing where it cannot write. Throws std::runtime_error unless both NAME.cnf and
// NAME.lck are there, whole.
ClauseHeader verifyWritten(const std::string& name);

// The clauses of `text`, a whole file, one after the other; [] is the empty clause.
using Clauses = std::vector<std::vector<int>>;
Clauses readClauses(const std::string& text);

// The answer to a file without formula nodes: no clause, an empty one or one of one literal.
SolverAnswer constantAnswer(const Clauses& clauses);

// What is wrong with the values, or empty. What is left out counts as false.
std::string violation(const Clauses& clauses, const SolverAnswer& answer);

}  // namespace tpn
