// The atoms of a state, known once they have been asked for; and steps whose transitions share
// their processes.

#include "model/stateterms.hpp"

#include <gtest/gtest.h>

#include "tests/model/networks.hpp"

namespace {

class StateTermsTest : public testing::Test {
 protected:
  StateTermsTest() { BoolForm::emptyStore(); }

  // Process 2 has the locations 0, 1, 4 and 9, which two bits tell apart as 0, 1, 0 and 1.
  Model model = modelOf(network("1 0 3\n2 1 7\n3 0 5\n", process("1 0 1\n2 1 2\n3 2 0\n") +
                                                             process("2 0 1\n3 1 4\n1 4 9\n")));
  SymState s = model->genSymState(1);
  NetTimedModel::StateTerms terms{*model, s};
};

TEST_F(StateTermsTest, AreTheModelsLocations) {
  for (const auto& [p, l] : model->vertices) {
    const BoolForm there = terms.isAt(p, l);
    EXPECT_EQ(there.nr, model->bef(static_cast<int>(p), static_cast<int>(l), s.loc).nr);
    EXPECT_EQ(there.nr, terms.isAt(p, l).nr);
  }
  EXPECT_EQ(terms.isAt(2, 0).nr, terms.isAt(2, 4).nr);
  EXPECT_NE(terms.isAt(2, 0).nr, terms.isAt(2, 9).nr);
  EXPECT_NE(terms.isAt(1, 1).nr, terms.isAt(2, 1).nr);
}

TEST_F(StateTermsTest, AreClockAtoms) {
  for (const auto rel : {relGreaterOrEqual, relLessOrEqual})
    for (const unsigned p : {1U, 2U})
      for (const unsigned bound : {0U, 3U, 7U}) {
        const BoolForm known = terms.clock(p, rel, bound);
        const SmplClockCond atom{static_cast<int>(p), 0, rel, static_cast<int>(bound)};
        EXPECT_EQ(known.nr, atom.toBool(s.clocks).nr);
        EXPECT_EQ(known.nr, terms.clock(p, rel, bound).nr);
      }
  EXPECT_NE(terms.clock(1, relLessOrEqual, 3).nr, terms.clock(2, relLessOrEqual, 3).nr);
}

TEST_F(StateTermsTest, AreBuiltWhenTheyAreFirstAskedFor) {
  EXPECT_TRUE(BoolForm::tv.empty());
  terms.isAt(1, 2);
  const std::size_t nodes = BoolForm::tv.size();
  terms.isAt(1, 2);
  EXPECT_EQ(BoolForm::tv.size(), nodes);
  terms.isAt(2, 1);
  EXPECT_GT(BoolForm::tv.size(), nodes);
}

// Transitions of the same processes share what the others do, and nothing else.
TEST(SharedSteps, AreThoseOfTheTransitionsAlone) {
  BoolForm::emptyStore();
  const Model model = modelOf(network("1 0 3\n2 1 2\n3 0 3\n4 2 9\n",
                                      process("1 0 1\n2 1 0\n") + process("2 0 1\n3 1 0\n4 0 1\n") +
                                          process("1 0 1\n3 0 1\n4 1 0\n")));
  const SymState s1 = model->genSymState(1);
  const SymState s2 = model->genSymState(1 + static_cast<int>(model->getSymStateLen()));
  const BoolForm step = model->actionSucc(s1, s2);
  BoolForm expected(false);
  const BoolForm invariant = model->invariant(s2);
  for (int t = 1; t <= model->nrOfTrans; ++t) {
    BoolForm fires = model->enabled(s1, t);
    fires = con(fires, model->fired(s1, t, s2));
    fires = con(fires, model->guard(s1, t));
    fires = con(fires, invariant);
    BoolForm clocks(true);
    for (int p = 1; p <= model->nrOfClocks; ++p) {
      const bool moves =
          model->transProcs.at(static_cast<unsigned>(t)).count(static_cast<unsigned>(p)) != 0;
      clocks = con(clocks, moves ? zeroClock(s2.clocks, p) : sameClock(s1.clocks, s2.clocks, p));
    }
    expected = dis(expected, con(fires, clocks));
  }
  EXPECT_EQ(step.nr, expected.nr);
}

}  // namespace
