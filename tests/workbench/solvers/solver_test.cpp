// The incremental solver behind its interface.

#include "workbench/solvers/solver.hpp"

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>

namespace {

using tpn::Solver;
using tpn::Use;

void clause(Solver& solver, std::initializer_list<int> literals) {
  for (const int literal : literals) solver.add(literal);
  solver.add(0);
}

class Cadical : public testing::TestWithParam<Use> {
 protected:
  std::unique_ptr<Solver> solver_ = tpn::makeCadical(GetParam());
};

INSTANTIATE_TEST_SUITE_P(Uses, Cadical, testing::Values(Use::longSearches, Use::manyShortSearches));

TEST_P(Cadical, GivesAModel) {
  clause(*solver_, {1, 2});
  clause(*solver_, {-1});
  ASSERT_EQ(solver_->solve(), Solver::Result::satisfiable);
  EXPECT_FALSE(solver_->value(1));
  EXPECT_TRUE(solver_->value(2));
  EXPECT_TRUE(solver_->value(-1));
}

TEST_P(Cadical, AssumesForOneSearchOnly) {
  clause(*solver_, {1, 2});
  solver_->assume(-1);
  solver_->assume(-2);
  solver_->assume(3);
  ASSERT_EQ(solver_->solve(), Solver::Result::unsatisfiable);
  EXPECT_TRUE(solver_->failed(-1));
  EXPECT_TRUE(solver_->failed(-2));
  EXPECT_FALSE(solver_->failed(3));
  EXPECT_EQ(solver_->solve(), Solver::Result::satisfiable);
}

// n + 1 pigeons in n holes: hard.
void pigeons(Solver& solver, int n) {
  const auto in = [n](int pigeon, int hole) { return pigeon * n + hole + 1; };
  for (int p = 0; p <= n; ++p) {
    for (int h = 0; h < n; ++h) solver.add(in(p, h));
    solver.add(0);
  }
  for (int h = 0; h < n; ++h)
    for (int p = 0; p <= n; ++p)
      for (int q = 0; q < p; ++q) clause(solver, {-in(p, h), -in(q, h)});
}

TEST_P(Cadical, EndsAtALimitOfConflictsOfOneSearch) {
  pigeons(*solver_, 6);
  solver_->limit(5);
  EXPECT_EQ(solver_->solve(), Solver::Result::undecided);
  EXPECT_EQ(solver_->solve(), Solver::Result::unsatisfiable);
}

TEST_P(Cadical, StopsWhenAsked) {
  pigeons(*solver_, 12);
  int asked = 0;
  solver_->stop([&] { return ++asked > 3; });
  EXPECT_EQ(solver_->solve(), Solver::Result::undecided);
  EXPECT_GT(asked, 3);
}

TEST_P(Cadical, TellsWhatItLearns) {
  int learnt = 0;
  const auto solver = tpn::makeCadical(GetParam(), [&] { ++learnt; });
  pigeons(*solver, 5);
  EXPECT_EQ(solver->solve(), Solver::Result::unsatisfiable);
  EXPECT_GT(learnt, 0);
}

}  // namespace
