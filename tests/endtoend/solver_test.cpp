// Clause files that solvers would reject, and solvers that are not there.

#include "tests/endtoend/solver.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>

namespace {

Answers solved(const std::string& text) {
  const Sandbox sandbox;
  sandbox.write("some.cnf", text);
  return solve(sandbox, "some.cnf");
}

TEST(Solver, ReadsNoClauseAsTheConstantTrue) {
  EXPECT_TRUE(solved("p cnf -1000000 0\n").cadical.satisfiable);
}

TEST(Solver, ReadsTheEmptyClauseAsTheConstantFalse) {
  EXPECT_FALSE(solved("p cnf -1000000 1\n0\n").cadical.satisfiable);
}

TEST(Solver, HandsASingleLiteralToBothSolvers) {
  const Answers answers = solved("p cnf -999998 1\n-2 0\n");
  EXPECT_TRUE(answers.cadical.satisfiable);
  EXPECT_TRUE(answers.minisat.satisfiable);
}

TEST(Solver, FindsModels) {
  const Answers answers = solved("p cnf 3 3\n1 2 0\n-1 0\n3 -2 0\n");
  const std::vector<bool> only{false, false, true, true};
  EXPECT_EQ(answers.cadical.model, only);
  EXPECT_EQ(answers.minisat.model, only);
}

TEST(Solver, FindsContradictions) {
  const Answers answers = solved("p cnf 1 2\n1 0\n-1 0\n");
  EXPECT_FALSE(answers.cadical.satisfiable);
  EXPECT_FALSE(answers.minisat.satisfiable);
}

TEST(Solver, RejectsAWrongClauseCount) {
  EXPECT_THROW(parseCnf("p cnf 2 2\n1 2 0\n"), std::runtime_error);
}

TEST(Solver, RejectsVariablesBeyondTheHeader) {
  EXPECT_THROW(parseCnf("p cnf 1 1\n1 2 0\n"), std::runtime_error);
}

TEST(Solver, RejectsAClauseWithoutItsEnd) {
  EXPECT_THROW(parseCnf("p cnf 2 1\n1 2\n"), std::runtime_error);
}

TEST(Solver, IsAFailureWhereItIsMissing) {
  const std::string text = "p cnf 1 1\n1 0\n";
  const Sandbox sandbox;
  sandbox.write("some.cnf", text);
  ASSERT_EQ(setenv("PATH", sandbox.path("").c_str(), 1), 0);
  EXPECT_THROW(solve(sandbox, "some.cnf"), std::runtime_error);
}

}  // namespace
