// The clauses of a path, and where they end.

#include "workbench/encoding/unrolling.hpp"

#include <gtest/gtest.h>

#include "tests/workbench/encoding/checknets.hpp"
#include "tests/workbench/search/explored.hpp"
#include "workbench/encoding/decode.hpp"
#include "workbench/encoding/encode.hpp"
#include "workbench/solvers/solver.hpp"

namespace {

class UnrolledCircle : public testing::Test {
 protected:
  void SetUp() override {
    tpn::encode(circle(3), propertyOf("p1"), tpn::LocationCoding::workbench, model_);
  }

  NetTimedModel model_;
};

TEST_F(UnrolledCircle, ReachesItsPropertyAfterTwoActions) {
  const auto solver = tpn::makeCadical(tpn::Use::longSearches);
  tpn::Unrolling path(model_, [&](int literal) { solver->add(literal); });
  for (int actions = 1; actions <= 6; ++actions) {
    solver->assume(path.extend());
    const bool there = actions % 3 == 2;
    ASSERT_EQ(solver->solve() == tpn::Solver::Result::satisfiable, there) << actions;
    EXPECT_EQ(path.states().size(), static_cast<std::size_t>(3 * actions));
    if (!there) continue;
    const tpn::PathBits bits =
        tpn::pathBits(path.states(), static_cast<int>(model_.getSymStateLen()),
                      [&](int variable) { return solver->value(variable); });
    EXPECT_EQ(
        tpn::decode(circle(3), propertyOf("p1"), tpn::LocationCoding::workbench, model_, bits).goal,
        2U);
  }
}

TEST_F(UnrolledCircle, CountsWhatItGives) {
  long clauses = 0;
  long highest = 0;
  tpn::Unrolling path(model_, [&](int literal) {
    clauses += literal == 0 ? 1 : 0;
    highest = std::max(highest, std::labs(literal));
  });
  path.extend();
  path.extend();
  EXPECT_EQ(path.clauses(), clauses);
  EXPECT_EQ(path.variables(), highest);
}

TEST_F(UnrolledCircle, EndsBeforeTheNumbersOfVariablesDo) {
  long clauses = 0;
  const auto count = [&](int literal) { clauses += literal == 0 ? 1 : 0; };
  tpn::Unrolling longer(model_, count);
  longer.extend();
  longer.extend();
  const long needed = longer.variables();

  tpn::Unrolling enough(model_, count, {}, needed);
  enough.extend();
  EXPECT_NO_THROW(enough.extend());
  tpn::Unrolling tooFew(model_, count, {}, needed - 1);
  tooFew.extend();
  const long before = clauses;
  EXPECT_THROW(tooFew.extend(), tpn::PathTooLong);
  EXPECT_EQ(clauses, before);
}

// The states of a clause file follow one another.
TEST_F(UnrolledCircle, KnowsWhereTheStatesOfAClauseFileBegin) {
  const auto length = static_cast<int>(model_.getSymStateLen());
  EXPECT_EQ(tpn::firstVariables(model_, 2), (std::vector<int>{1, 1 + length, 1 + 2 * length}));
}

}  // namespace
