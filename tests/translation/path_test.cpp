// The symbolic path: numbers of its states, rotation of its steps, order of its nodes.

#include <gtest/gtest.h>

#include <string>

#include "tests/model/networks.hpp"
#include "tests/translation/built.hpp"
#include "translation/reachtran.hpp"

namespace {

TEST(StartNumber, StatesFollowEachOtherFromOneOn) {
  for (const std::string& text : {twoProcesses(), threeProcesses(), tinyNetwork()}) {
    const Model model = modelOf(text);
    const EctlTransl translator(*model, 4);
    const int length = static_cast<int>(model->getSymStateLen());
    for (int i = 0; i <= 4; ++i) EXPECT_EQ(translator.getStartNr(i), 1 + i * length) << i;
  }
}

TEST(StartNumber, OfTwoProcesses) {
  const Model model = modelOf(twoProcesses());
  const EctlTransl translator(*model, 2);
  EXPECT_EQ(translator.getStartNr(0), 1);
  EXPECT_EQ(translator.getStartNr(1), 23);
  EXPECT_EQ(translator.getStartNr(3), 67);
}

TEST(StartNumber, IsOneBeforeTheFirstState) {
  const Model model = modelOf(twoProcesses());
  const EctlTransl translator(*model, 2);
  EXPECT_EQ(translator.getStartNr(-1), 1);
  EXPECT_EQ(translator.getStartNr(-1000), 1);
}

// The path again, written out step by step.
class Path : public testing::TestWithParam<std::string> {
 protected:
  SymState state(int i) const {
    return model->genSymState(1 + i * static_cast<int>(model->getSymStateLen()));
  }

  // The path of length k - 1 is built first, the new step second.
  BoolForm timeAt(const BoolForm& path, int i) const {
    const BoolForm step = model->timeSucc(state(i), state(i + 1));
    return con(path, step);
  }
  BoolForm actionAt(const BoolForm& path, int i) const {
    const BoolForm step = model->actionSucc(state(i), state(i + 1));
    return con(path, step);
  }
  BoolForm adjustAt(const BoolForm& path, int i) const {
    const BoolForm step = model->adjustSucc(state(i), state(i + 1));
    return con(path, step);
  }
  BoolForm initial() const { return model->fI(0, state(0)); }
  BoolForm firstThree() const { return adjustAt(actionAt(timeAt(initial(), 0), 1), 2); }

  BoolForm path(int k) const { return EctlTransl(*model, k).symbPath(); }

  Model model = modelOf(GetParam());
};

TEST_P(Path, FirstStepIsATimeStep) {
  expectSameNodes([&] { return path(1); }, [&] { return timeAt(initial(), 0); });
}

TEST_P(Path, SecondStepIsAnActionStep) {
  expectSameNodes([&] { return path(2); }, [&] { return actionAt(timeAt(initial(), 0), 1); });
}

TEST_P(Path, ThirdStepIsAnAdjustingStep) {
  expectSameNodes([&] { return path(3); }, [&] { return firstThree(); });
}

TEST_P(Path, RotationStartsAnew) {
  expectSameNodes([&] { return path(4); }, [&] { return timeAt(firstThree(), 3); });
}

TEST_P(Path, RotationGoesOn) {
  expectSameNodes([&] { return path(9); },
                  [&] {
                    const BoolForm six = adjustAt(actionAt(timeAt(firstThree(), 3), 4), 5);
                    return adjustAt(actionAt(timeAt(six, 6), 7), 8);
                  });
}

TEST_P(Path, InvariantTermsOfTimeAndActionStepsAreCounted) {
  model->invariant(state(0));
  const int perCall = model->nrInvTerms;
  path(8);  // three time, three action, two adjusting steps
  EXPECT_EQ(model->nrInvTerms, 7 * perCall);
}

INSTANTIATE_TEST_SUITE_P(Networks, Path,
                         testing::Values(twoProcesses(), threeProcesses(), tinyNetwork(),
                                         emptyNetwork()));

TEST(PathWithoutTransitions, IsFalseFromTheActionStepOn) {
  const Model model = modelOf(network("", process("")));
  EXPECT_FALSE(EctlTransl(*model, 1).symbPath() == BoolForm(false));
  EXPECT_EQ(EctlTransl(*model, 2).symbPath(), BoolForm(false));
  EXPECT_EQ(EctlTransl(*model, 7).symbPath(), BoolForm(false));
}

}  // namespace
