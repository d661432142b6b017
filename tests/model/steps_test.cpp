// The step relations say what the network's tables mean: for all assignments of two states of the
// tiny network, for sampled ones of larger networks.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>

#include "tests/model/evaluate.hpp"
#include "tests/model/meaning.hpp"
#include "tests/model/networks.hpp"
#include "tests/model/sample.hpp"

namespace {

using OnStates = std::function<bool(const PlainState&, const PlainState&)>;

class TwoStates : public testing::TestWithParam<std::string> {
 protected:
  void SetUp() override { BoolForm::emptyStore(); }

  // Both answers must have come up, or the comparison says little.
  void expectSame(const BoolForm& f, const OnStates& plain) {
    int holds = 0;
    int samples = 0;
    const auto compare = [&](const Bits& bits) {
      const bool meant = plain(meaning.decode(bits, 1), meaning.decode(bits, 1 + length));
      ASSERT_EQ(Values(bits).of(f), meant) << "network:\n" << GetParam();
      holds += meant ? 1 : 0;
      ++samples;
    };
    if (length <= 8)
      forAll(compare);
    else
      for (int i = 0; i < 20000; ++i) compare(sampler.twoStates());
    EXPECT_GT(holds, 0) << "network:\n" << GetParam();
    EXPECT_LT(holds, samples) << "network:\n" << GetParam();
  }

  Model model = modelOf(GetParam());
  Meaning meaning{*model};
  int length = meaning.variables();
  SymState s1 = model->genSymState(1);
  SymState s2 = model->genSymState(1 + length);

 private:
  void forAll(const std::function<void(const Bits&)>& compare) const {
    for (unsigned values = 0; values < 1U << 2 * length; ++values) {
      Bits bits(1);
      for (int v = 0; v < 2 * length; ++v) bits.push_back(static_cast<char>(values >> v & 1U));
      compare(bits);
    }
  }

  Sampler sampler{*model, 2};
};

TEST_P(TwoStates, FiringMovesItsProcessesAndNoOthers) {
  for (unsigned t = 1; t <= static_cast<unsigned>(model->nrOfTrans); ++t)
    expectSame(model->fired(s1, static_cast<int>(t), s2),
               [&](const PlainState& a, const PlainState& b) { return meaning.fired(a, t, b); });
}

TEST_P(TwoStates, TimeStepAddsTheDelayToAllClocks) {
  expectSame(model->timeSucc(s1, s2),
             [&](const PlainState& a, const PlainState& b) { return meaning.timeStep(a, b); });
}

TEST_P(TwoStates, ActionStepFiresSomeTransition) {
  expectSame(model->actionSucc(s1, s2),
             [&](const PlainState& a, const PlainState& b) { return meaning.actionStep(a, b); });
}

TEST_P(TwoStates, AdjustingStepNormalisesTheClocks) {
  expectSame(model->adjustSucc(s1, s2),
             [&](const PlainState& a, const PlainState& b) { return meaning.adjustStep(a, b); });
}

TEST_P(TwoStates, TimeStepWithoutDelayKeepsTheClocks) {
  const BoolForm step = model->timeSucc(s1, s2);
  const BoolForm same = eq(s1.clocks, s2.clocks);
  const BoolForm noDelay = con(s1.clocks.intPart(0).zero(), s1.clocks.frPart(0).zero());
  const BoolForm moved = con(con(step, noDelay), neg(same));
  Sampler other(*model, 3);
  for (int i = 0; i < 5000; ++i) {
    Bits bits = other.twoStates();
    PlainState first = meaning.decode(bits, 1);
    first.integer[0] = first.fraction[0] = 0;
    meaning.encode(first, bits, 1);
    EXPECT_FALSE(Values(bits).of(moved));
  }
}

INSTANTIATE_TEST_SUITE_P(Fixed, TwoStates,
                         testing::Values(tinyNetwork(), tinyPair(), twoProcesses(),
                                         threeProcesses()));
INSTANTIATE_TEST_SUITE_P(Random, TwoStates,
                         testing::Values(randomNetwork(1), randomNetwork(2), randomNetwork(3),
                                         randomNetwork(4), randomNetwork(5), randomNetwork(6),
                                         randomNetwork(7), randomNetwork(8)));

// --- What becomes of single formulas. ---

class Step : public testing::Test {
 protected:
  void SetUp() override { BoolForm::emptyStore(); }

  void load(const std::string& text) {
    model = modelOf(text);
    length = static_cast<int>(model->getSymStateLen());
  }
  SymState state(int i) const { return model->genSymState(1 + i * length); }

  Model model;
  int length = 0;
};
using StepDeathTest = Step;

TEST_F(Step, NoActionWithoutTransitions) {
  load(network("", process("")));
  EXPECT_EQ(model->actionSucc(state(0), state(1)), BoolForm(false));
}

TEST_F(Step, FiringOfAllProcessesLeavesNoneToStay) {
  load(network("1 0 1\n", process("1 0 1\n") + process("1 1 0\n")));
  const BoolForm fired = model->fired(state(0), 1, state(1));
  const int to = 1 + length;
  const BoolForm first = con(neg(BoolForm(1)), BoolForm(to));
  const BoolForm second = con(BoolForm(2), neg(BoolForm(to + 1)));
  EXPECT_EQ(fired, con(first, second));
}

TEST_F(Step, TimeAndActionStepsCountInvariantTerms) {
  load(twoProcesses());
  model->timeSucc(state(0), state(1));
  EXPECT_EQ(model->nrInvTerms, 3);
  model->actionSucc(state(1), state(2));
  EXPECT_EQ(model->nrInvTerms, 6);
  model->adjustSucc(state(2), state(3));
  EXPECT_EQ(model->nrInvTerms, 6);
}

TEST_F(Step, NetworkWithoutProcessesOnlyBoundsItsDelay) {
  load(emptyNetwork());
  const BoolForm bounded = le(state(0).clocks.intPart(0), 1U);
  EXPECT_EQ(model->timeSucc(state(0), state(1)), bounded);
  EXPECT_EQ(model->adjustSucc(state(0), state(1)), BoolForm(true));
  EXPECT_EQ(model->fI(0, state(0)), BoolForm(true));
}

TEST_F(StepDeathTest, TransitionWithoutProcessesEndsTheProgram) {
  load(network("1 0 1\n2 0 1\n", process("1 0 1\n")));
  EXPECT_EXIT(model->timeSucc(state(0), state(1)), testing::ExitedWithCode(1), "^$");
  EXPECT_EXIT(model->actionSucc(state(0), state(1)), testing::ExitedWithCode(1), "^$");
}

// No such thing as an adjusting step that fails for lack of processes.
TEST_F(Step, AdjustingStepDoesNotLookAtTransitions) {
  load(network("1 0 1\n2 0 1\n", process("1 0 1\n")));
  model->adjustSucc(state(0), state(1));
  EXPECT_EQ(model->nrInvTerms, 0);
}

// A bound that no clock can hold is a broken contract.
TEST_F(StepDeathTest, EarliestTimeMustFitIntoAClock) {
  load(network("1 4 -1\n", process("1 0 1\n")));
  EXPECT_DEATH(model->actionSucc(state(0), state(1)), "bsLen <= len");
}

TEST_F(StepDeathTest, NegativeTimesOtherThanOpenAreBoundsTooLarge) {
  load(network("1 0 -2\n", process("1 0 1\n")));
  EXPECT_DEATH(model->timeSucc(state(0), state(1)), "bsLen <= len");
}

TEST_F(Step, EarliestTimeMayExceedTheLatestAsLongAsItFits) {
  load(network("1 3 -1\n", process("1 0 1\n")));
  EXPECT_FALSE(model->actionSucc(state(0), state(1)) == BoolForm(false));
}

}  // namespace
