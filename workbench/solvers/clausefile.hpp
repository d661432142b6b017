// Clause files as the core writes them, and whether values satisfy one.

#pragma once

#include <string>
#include <vector>

#include "workbench/solvers/answer.hpp"

namespace tpn {

// The clauses of `text`, a whole file, one after the other; [] is the empty clause.
using Clauses = std::vector<std::vector<int>>;
Clauses readClauses(const std::string& text);

// The answer to a file without formula nodes: no clause, an empty one or one of one literal.
SolverAnswer constantAnswer(const Clauses& clauses);

// What is wrong with the values, or empty. What is left out counts as false.
std::string violation(const Clauses& clauses, const SolverAnswer& answer);

}  // namespace tpn
