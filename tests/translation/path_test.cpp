// The symbolic path: numbers of its states, rotation of its steps, order of its nodes.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "boolform/clauseset.hpp"
#include "tests/model/networks.hpp"
#include "tests/model/sample.hpp"
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

// --- Long paths, whose later steps are copied. ---

BoolForm stepByStep(const NetTimedModel& model, int k) {
  const int length = static_cast<int>(model.getSymStateLen());
  const auto state = [&](int i) { return model.genSymState(1 + i * length); };
  BoolForm path = model.fI(0, state(0));
  for (int i = 0; i < k; ++i) {
    const SymState from = state(i);
    const SymState to = state(i + 1);
    const BoolForm step = i % 3 == 0   ? model.timeSucc(from, to)
                          : i % 3 == 1 ? model.actionSucc(from, to)
                                       : model.adjustSucc(from, to);
    path = con(path, step);
  }
  return path;
}

// The property is built as well: it asks for formulas that the copies hold.
void expectSameAsStepByStep(const Model& model, int k) {
  EctlTransl translator(*model, k);
  const EctlForm property("p1p2&p1p-2&+");
  const auto with = [&](const BoolForm& path) {
    const BoolForm asked = translator.inSomeState(property);
    return con(asked, path);
  };
  model->nrInvTerms = 0;
  expectSameNodes([&] { return with(translator.symbPath()); },
                  [&] {
                    EXPECT_EQ(BoolForm::mti.copies().size(), 0U);
                    const int terms = std::exchange(model->nrInvTerms, 0);
                    const BoolForm path = stepByStep(*model, k);
                    EXPECT_EQ(model->nrInvTerms, terms);
                    return with(path);
                  });
}

TEST(LongPath, OfRandomNetworksIsTheOneBuiltStepByStep) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    const Model model = modelOf(randomNetwork(seed));
    expectSameAsStepByStep(model, 9 + static_cast<int>(seed % 20));
  }
}

TEST(LongPath, OfEveryLengthIsTheOneBuiltStepByStep) {
  for (const std::string& text : {twoProcesses(), threeProcesses(), tinyNetwork(), emptyNetwork(),
                                  network("", process(""))}) {
    const Model model = modelOf(text);
    for (int k = 1; k <= 30; ++k) expectSameAsStepByStep(model, k);
  }
}

TEST(LongPath, IsCopiedFromTheFifthStepOn) {
  const Model model = modelOf(twoProcesses());
  BoolForm::emptyStore();
  EctlTransl(*model, 4).symbPath();
  EXPECT_EQ(BoolForm::mti.copies().size(), 0U);
  const std::size_t built = BoolForm::tv.size();
  BoolForm::emptyStore();
  EctlTransl(*model, 5).symbPath();
  EXPECT_EQ(BoolForm::tv.size(), built + BoolForm::mti.copies().size());
  EXPECT_GT(BoolForm::mti.copies().size(), 0U);
  BoolForm::emptyStore();
  EctlTransl(*model, 300).symbPath();
  EXPECT_GT(BoolForm::mti.copies().size(), BoolForm::tv.size() * 9 / 10);
}

// A longer path on a store that holds a shorter one: found as far as that goes, built from there
// on.
TEST(LongPath, GoesOnFromAShorterOne) {
  const Model model = modelOf(threeProcesses());
  expectSameNodes(
      [&] {
        EctlTransl(*model, 20).symbPath();
        return EctlTransl(*model, 50).symbPath();
      },
      [&] {
        stepByStep(*model, 20);
        return stepByStep(*model, 50);
      });
}

std::vector<Clause> clausesOf(const BoolForm& whole, const Repetition& copies) {
  ClauseSet cnf;
  cnf.insertDefinitions(std::abs(whole.nr), BoolForm::tv, copies);
  std::vector<Clause> list;
  cnf.forEach([&](const Clause& c) { list.push_back(c); });
  return list;
}

// With a property on top, which has clauses about the copies' nodes and variables.
TEST(LongPath, HasTheSameClausesWhetherTheyAreCopiedOrNot) {
  for (unsigned seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    BoolForm::emptyStore();
    const Model model = modelOf(randomNetwork(seed));
    EctlTransl translator(*model, 36 + static_cast<int>(seed % 30));
    const BoolForm path = translator.symbPath();
    const BoolForm asked = translator.inSomeState(EctlForm("p1p2&p1p-2&+"));
    const BoolForm whole = con(asked, path);
    if (!isNodeNr(whole.nr)) continue;
    EXPECT_GT(BoolForm::mti.copies().times(), 7);
    const auto copied = clausesOf(whole, BoolForm::mti.copies());
    EXPECT_FALSE(copied.empty());
    EXPECT_TRUE(copied == clausesOf(whole, {}));
  }
}

TEST(PathWithoutTransitions, IsFalseFromTheActionStepOn) {
  const Model model = modelOf(network("", process("")));
  EXPECT_FALSE(EctlTransl(*model, 1).symbPath() == BoolForm(false));
  EXPECT_EQ(EctlTransl(*model, 2).symbPath(), BoolForm(false));
  EXPECT_EQ(EctlTransl(*model, 7).symbPath(), BoolForm(false));
}

}  // namespace
