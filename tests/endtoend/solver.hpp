// Reads clause files and has them solved.
//
// The program's header counts variables on the assumption that some formula node occurs. Without
// one the count is negative or 0, and solvers reject the file; what such a file means is plain all
// the same. No clause at all is the constant true, an empty clause the constant false, and any
// other such file is handed to the solvers with its header put right.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/endtoend/sandbox.hpp"

struct Cnf {
  int variables;  // as the header has it
  std::vector<std::vector<int>> clauses;
};

// Throws on anything but a header and as many clauses, one a line, as it announces, and on a
// positive variable count below the highest variable.
Cnf parseCnf(const std::string& text);

// The clause file with a header that every solver accepts.
std::string cnfText(const Cnf& cnf);

// Of a clause set that is plainly constant.
std::optional<bool> constantValue(const Cnf& cnf);

struct Answer {
  bool satisfiable;
  std::vector<bool> model;  // [v] where satisfiable; variables past the end do not occur
};

struct Answers {
  Answer cadical;
  Answer minisat;
};

// The clause file `file` of the sandbox, solved by both. Throws where a solver is missing or gives
// neither answer, or where its model leaves a clause unsatisfied.
Answers solve(const Sandbox& sandbox, const std::string& file);
