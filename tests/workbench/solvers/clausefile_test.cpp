// Clause files read back, and values held against them.

#include "workbench/solvers/clausefile.hpp"

#include <gtest/gtest.h>

#include "workbench/solvers/boundfiles.hpp"

namespace {

using tpn::Clauses;
using tpn::SolverAnswer;

SolverAnswer values(const std::vector<signed char>& of) { return {SolverAnswer::satisfiable, of}; }

TEST(ClauseFile, GivesItsClauses) {
  EXPECT_EQ(tpn::readClauses("p cnf 3 2\n1 -2 0\n3 0\n"), (Clauses{{1, -2}, {3}}));
  EXPECT_EQ(tpn::readClauses("p cnf 0 1\n0\n"), Clauses{{}});
  EXPECT_EQ(tpn::readClauses("p cnf 0 0\n"), Clauses{});
}

TEST(ClauseFile, WithoutNodesAnswersItself) {
  EXPECT_EQ(tpn::constantAnswer({}).status, SolverAnswer::satisfiable);
  EXPECT_EQ(tpn::constantAnswer({{}}).status, SolverAnswer::unsatisfiable);
  const SolverAnswer literal = tpn::constantAnswer({{-3}});
  EXPECT_EQ(literal.status, SolverAnswer::satisfiable);
  EXPECT_EQ(literal.value(3), -1);
}

TEST(ClauseFile, SaysWhichClauseIsViolated) {
  const Clauses clauses{{1, -2}, {2, 3}};
  EXPECT_EQ(tpn::violation(clauses, values({0, 1, 1, -1})), "");
  EXPECT_EQ(tpn::violation(clauses, values({0, -1, 1, 1})), "its values violate clause 1");
  EXPECT_EQ(tpn::violation(clauses, values({0, 1, -1, -1})), "its values violate clause 2");
  EXPECT_EQ(tpn::violation(clauses, values({0, 1, -1})),
            "it leaves out variable 3, which clause 2 needs");
}

TEST(BoundFiles, HaveEachASuffixOfTheList) {
  EXPECT_EQ(tpn::clauseFile("a"), std::string("a") + tpn::suffixes[0]);
  EXPECT_EQ(tpn::mapFile("a"), std::string("a") + tpn::suffixes[1]);
  EXPECT_EQ(tpn::outFile("a"), std::string("a") + tpn::suffixes[2]);
  EXPECT_EQ(tpn::errFile("a"), std::string("a") + tpn::suffixes[3]);
  EXPECT_EQ(tpn::resultFile("a"), std::string("a") + tpn::suffixes[4]);
}

}  // namespace
