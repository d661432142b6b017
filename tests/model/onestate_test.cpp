// Formulas over one state say what the network's tables mean: for all assignments of tiny networks,
// for sampled ones of larger networks.

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "tests/model/evaluate.hpp"
#include "tests/model/meaning.hpp"
#include "tests/model/networks.hpp"
#include "tests/model/sample.hpp"

namespace {

using OnState = std::function<bool(const PlainState&)>;

// One network, its first state, and the assignments to compare under.
class OneState : public testing::TestWithParam<std::string> {
 protected:
  void SetUp() override { forgetFormulas(); }

  void expectSame(const BoolForm& f, const OnState& plain) {
    const int variables = meaning.variables();
    if (variables <= 16)
      for (unsigned values = 0; values < 1U << variables; ++values) {
        Bits bits(1);
        for (int v = 0; v < variables; ++v) bits.push_back(static_cast<char>(values >> v & 1U));
        compare(f, plain, bits);
      }
    else
      for (int i = 0; i < 5000; ++i) compare(f, plain, sampler.twoStates());
  }

  unsigned transitions() const { return static_cast<unsigned>(model->nrOfTrans); }

  Model model = modelOf(GetParam());
  SymState s = model->genSymState(1);
  Meaning meaning{*model};

 private:
  void compare(const BoolForm& f, const OnState& plain, const Bits& bits) {
    ASSERT_EQ(Values(bits).of(f), plain(meaning.decode(bits, 1))) << "network:\n" << GetParam();
  }

  Sampler sampler{*model, 1};
};

TEST_P(OneState, LocationIsItsLowBits) {
  for (unsigned p = 1; p <= static_cast<unsigned>(model->nrOfProcs); ++p)
    for (unsigned l = 0; l < 6; ++l)
      expectSame(model->bef(static_cast<int>(p), static_cast<int>(l), s.loc),
                 [&](const PlainState& state) { return meaning.isIn(state, p, l); });
}

TEST_P(OneState, EnabledWhereAllProcessesAreInTheirSources) {
  for (unsigned t = 1; t <= transitions(); ++t)
    expectSame(model->enabled(s, static_cast<int>(t)),
               [&](const PlainState& state) { return meaning.enabled(state, t); });
}

TEST_P(OneState, GuardWantsAllEarliestAndOneLatestTime) {
  for (unsigned t = 1; t <= transitions(); ++t)
    expectSame(model->guard(s, static_cast<int>(t)),
               [&](const PlainState& state) { return meaning.guard(state, t); });
}

TEST_P(OneState, InvariantKeepsEnabledTransitionsInTime) {
  expectSame(model->invariant(s),
             [&](const PlainState& state) { return meaning.invariant(state); });
}

TEST_P(OneState, InitialStateHasAllClocksZero) {
  for (const unsigned l : {0U, 1U})
    expectSame(model->fI(static_cast<int>(l), s),
               [&](const PlainState& state) { return meaning.initial(state, l); });
}

TEST_P(OneState, PropositionHoldsInItsLocations) {
  for (unsigned q = 0; q < 5; ++q)
    expectSame(model->fP(static_cast<int>(q), s),
               [&](const PlainState& state) { return meaning.holds(state, q); });
}

INSTANTIATE_TEST_SUITE_P(Fixed, OneState,
                         testing::Values(tinyNetwork(), tinyPair(), twoProcesses(),
                                         threeProcesses(), emptyNetwork()));
INSTANTIATE_TEST_SUITE_P(Random, OneState,
                         testing::Values(randomNetwork(1), randomNetwork(2), randomNetwork(3),
                                         randomNetwork(4), randomNetwork(5), randomNetwork(6)));

// --- What becomes of single formulas. ---

class OneFormula : public testing::Test {
 protected:
  void SetUp() override { forgetFormulas(); }
};
using OneFormulaDeathTest = OneFormula;

TEST_F(OneFormula, ProcessWithOneLocationIsAlwaysThere) {
  const Model model = modelOf(threeProcesses());
  const SymState s = model->genSymState(1);
  for (const int l : {0, 1, 7}) EXPECT_EQ(model->bef(3, l, s.loc), BoolForm(true));
}

TEST_F(OneFormula, InitialStateAsksNothingOfAProcessWithOneLocation) {
  const Model model = modelOf(network("1 0 1\n", process("1 0 0\n")));
  const SymState s = model->genSymState(1);
  EXPECT_EQ(model->fI(0, s), allZero(s.clocks));
}

TEST_F(OneFormula, NegativeLocationIsTakenModuloTwoToTheThirtyTwo) {
  const Model model = modelOf(threeProcesses());
  const SymState s = model->genSymState(1);
  EXPECT_EQ(model->bef(1, -1, s.loc), model->bef(1, 3, s.loc));
}

TEST_F(OneFormulaDeathTest, LocationVectorHasTheWidthOfAState) {
  const Model model = modelOf(twoProcesses());
  for (const int width : {0, 1, 3})
    EXPECT_DEATH(model->bef(1, 0, BoolFormVect(width, 1)), "loc.size\\(\\) == totalNrVertBits");
}

TEST_F(OneFormula, PropositionWithoutALocationIsFalse) {
  const Model model = modelOf(twoProcesses());
  EXPECT_EQ(model->fP(4, model->genSymState(1)), BoolForm(false));
}

TEST_F(OneFormula, NegativePropositionIsFoundAgain) {
  const Model model = modelOf(network("1 0 1\n", process("1 0 1\n", "1 -5\n")));
  EXPECT_EQ(model->fP(-5, model->genSymState(1)), BoolForm(1));
}

TEST_F(OneFormula, PropositionOfTwoProcessesIsTheDisjunctionInTheirOrder) {
  const Model model = modelOf(network(
      "1 0 1\n", process("1 0 3\n1 1 2\n", "2 1\n1 1\n") + process("1 0 3\n1 1 2\n", "3 1\n")));
  const SymState s = model->genSymState(1);
  const BoolForm found = model->fP(1, s);
  const std::vector<Triple> keys = BoolForm::tv;
  forgetFormulas();
  BoolForm expected(false);
  for (const auto& [p, l] : std::vector<std::pair<int, int>>{{1, 1}, {1, 2}, {2, 3}}) {
    const BoolForm there = model->bef(p, l, s.loc);
    expected = dis(expected, there);
  }
  EXPECT_EQ(found, expected);
  EXPECT_EQ(keys, BoolForm::tv);
}

// --- Invariant terms. ---

int invariantTerms(const std::string& text, int calls = 1) {
  forgetFormulas();
  const Model model = modelOf(text);
  for (int i = 0; i < calls; ++i) model->invariant(model->genSymState(1));
  return model->nrInvTerms;
}

TEST(InvariantTerms, NoneBeforeTheFirstInvariant) {
  EXPECT_EQ(invariantTerms(twoProcesses(), 0), 0);
}

TEST(InvariantTerms, EveryBoundedTransitionHasOne) { EXPECT_EQ(invariantTerms(twoProcesses()), 3); }

TEST(InvariantTerms, EveryCallCountsAnew) { EXPECT_EQ(invariantTerms(twoProcesses(), 4), 12); }

TEST(InvariantTerms, TransitionWithoutLatestTimeHasNone) {
  EXPECT_EQ(invariantTerms(network("1 0 2\n2 1 -1\n", process("1 0 1\n2 1 0\n"))), 1);
}

TEST(InvariantTerms, InvariantWithoutATermIsTrue) {
  const Model model = modelOf(network("1 0 -1\n", process("1 0 1\n")));
  EXPECT_EQ(model->invariant(model->genSymState(1)), BoolForm(true));
  EXPECT_EQ(model->nrInvTerms, 0);
}

TEST(InvariantTerms, CounterWrapsAtThirtyTwoBits) {
  const Model model = modelOf(twoProcesses());  // three terms
  model->nrInvTerms = std::numeric_limits<int>::max() - 1;
  model->invariant(model->genSymState(1));
  EXPECT_EQ(model->nrInvTerms, std::numeric_limits<int>::min() + 1);
}

TEST(InvariantTerms, NetworkWithoutTransitionsHasNone) {
  EXPECT_EQ(invariantTerms(network("", process(""))), 0);
}

TEST(InvariantDeathTest, TransitionWithoutProcessesEndsTheProgram) {
  for (const std::string intervals : {"1 0 1\n2 0 1\n", "1 0 1\n1 0 2\n"}) {
    const Model model = modelOf(network(intervals, process("1 0 1\n")));
    EXPECT_EXIT(model->invariant(model->genSymState(1)), testing::ExitedWithCode(1), "^$");
  }
}

}  // namespace
