// The property in one state and over the path.

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>

#include "tests/model/networks.hpp"
#include "tests/translation/built.hpp"
#include "translation/reachtran.hpp"

namespace {

const std::string missingOneValue =
    "BoolForm EctlTransl::transl\\(const EctlForm ?&, int\\)"
    ".*s.size\\(\\) == 1";

class Property : public testing::Test {
 protected:
  void SetUp() override { BoolForm::emptyStore(); }

  SymState state(int i) const {
    return model->genSymState(1 + i * static_cast<int>(model->getSymStateLen()));
  }
  BoolForm prop(int q, int i) const { return model->fP(q, state(i)); }
  BoolForm inState(const std::string& text, int i) { return translator.transl(EctlForm(text), i); }

  Model model = modelOf(threeProcesses());
  EctlTransl translator{*model, 3};
};
using PropertyDeathTest = Property;

// --- In one state. ---

TEST_F(Property, TruthIsTrue) { EXPECT_EQ(inState("T", 0), BoolForm(true)); }

TEST_F(Property, PropositionIsThatOfTheState) {
  for (int i = 0; i <= 3; ++i)
    for (int q = 0; q <= 4; ++q) EXPECT_EQ(inState("p" + std::to_string(q), i), prop(q, i));
}

TEST_F(Property, NegatedPropositionIsItsNegation) {
  for (int i = 0; i <= 3; ++i)
    for (int q = 0; q <= 4; ++q) EXPECT_EQ(inState("p-" + std::to_string(q), i), neg(prop(q, i)));
}

TEST_F(Property, OperandsArePushedInOrder) {
  expectSameNodes([&] { return inState("p1p2&p3p-1++", 1); },
                  [&] {
                    const BoolForm one = prop(1, 1);
                    const BoolForm two = prop(2, 1);
                    const BoolForm both = con(one, two);
                    const BoolForm three = prop(3, 1);
                    const BoolForm notOne = neg(prop(1, 1));
                    const BoolForm either = dis(three, notOne);
                    return dis(both, either);
                  });
}

TEST_F(Property, TemporalOperatorMakesItFalse) {
  for (const std::string text : {"p1EF", "p1EG", "p1EX", "p1EK", "Tp1EU", "p1EFp1p-1++", "Tp1EXT+"})
    EXPECT_EQ(inState(text, 1), BoolForm(false)) << text;
}

// The items up to the operator are translated all the same.
TEST_F(Property, TranslationStopsAtATemporalOperator) {
  expectSameNodes([&] { return inState("p1p2+EFp4&", 1); },
                  [&] {
                    inState("p1p2+", 1);
                    return BoolForm(false);
                  });
}

TEST_F(Property, ItemWithoutAnOperatorMakesItFalse) {
  EctlForm property("T");
  property.onp.push_back({EctlOper::none, 0});
  EXPECT_EQ(translator.transl(property, 0), BoolForm(false));
}

TEST_F(PropertyDeathTest, EmptyPropertyIsAsserted) {
  EXPECT_DEATH(inState("", 0), missingOneValue);
  EXPECT_EXIT(inState("", 0), testing::KilledBySignal(SIGABRT), "");
}

TEST_F(PropertyDeathTest, PropertyThatLeavesTwoValuesIsAsserted) {
  for (const std::string text : {"p1p2", "TT", "p1p2p3&"})
    EXPECT_DEATH(inState(text, 0), missingOneValue) << text;
}

// --- Over the path. ---

TEST_F(Property, HoldsInSomeStateOfThePath) {
  expectSameNodes([&] { return translator.inSomeState(EctlForm("p1p2&")); },
                  [&] {
                    BoolForm r(false);
                    for (int i = 0; i <= 3; ++i) {
                      const BoolForm one = prop(1, i);
                      const BoolForm two = prop(2, i);
                      const BoolForm here = con(one, two);
                      r = dis(r, here);
                    }
                    return r;
                  });
}

// A state formula of propositions 0 to 5, some of which no location has, and true.
std::string randomFormula(std::mt19937& random, unsigned operators) {
  if (operators == 0) {
    if (random() % 12 == 0) return "T";
    const std::string sign = random() % 2 == 0 ? "p-" : "p";
    return sign + std::to_string(random() % 6);
  }
  const unsigned left = static_cast<unsigned>(random() % operators);
  std::string text = randomFormula(random, left);
  text += randomFormula(random, operators - 1 - left);
  return text + (random() % 2 == 0 ? "&" : "+");
}

TEST_F(Property, OverThePathIsThatOfEveryState) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    std::mt19937 random(seed);
    const EctlForm property(randomFormula(random, seed % 2 == 0 ? 200 : 12));
    const bool afterThePath = seed % 3 != 0;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    expectSameNodes(
        [&] {
          if (afterThePath) translator.symbPath();
          return translator.inSomeState(property);
        },
        [&] {
          if (afterThePath) translator.symbPath();
          BoolForm r(false);
          for (int i = 0; i <= 3; ++i) {
            const BoolForm here = translator.transl(property, i);
            r = dis(r, here);
          }
          return r;
        });
  }
}

TEST_F(PropertyDeathTest, PropertyThatLeavesTwoValuesIsAssertedOverThePath) {
  EXPECT_DEATH(translator.inSomeState(EctlForm("p1p2")), missingOneValue);
  EXPECT_DEATH(translator.inSomeState(EctlForm("")), missingOneValue);
}

TEST_F(Property, TruthIsTrueOverThePath) {
  EXPECT_EQ(translator.inSomeState(EctlForm("T")), BoolForm(true));
}

TEST_F(Property, TemporalPropertyIsFalseOverThePath) {
  EXPECT_EQ(translator.inSomeState(EctlForm("p1EF")), BoolForm(false));
}

std::string reported(const std::function<void()>& run) {
  testing::internal::CaptureStderr();
  run();
  return testing::internal::GetCapturedStderr();
}

TEST_F(Property, ReportsTheSizeOfTheStore) {
  const std::string report = reported([&] { translator.transl(EctlForm("p1")); });
  EXPECT_EQ(report, "translation : " + std::to_string(BoolForm::tv.size()) + "\n");
  EXPECT_FALSE(BoolForm::tv.empty());
}

TEST_F(Property, ReportsATemporalPropertyToo) {
  EXPECT_EQ(reported([&] { translator.transl(EctlForm("TEF")); }), "translation : 0\n");
}

TEST_F(Property, ReportingTranslationIsTheSame) {
  const EctlForm property("p1p2+p4&");
  expectSameNodes([&] { return translator.transl(property); },
                  [&] { return translator.inSomeState(property); });
}

TEST_F(Property, IsNotChangedByItsTranslation) {
  const EctlForm property("p1p2&");
  translator.transl(property);
  EXPECT_TRUE(property == EctlForm("p1p2&"));
  EXPECT_EQ(property.onp.size(), 3U);
}

}  // namespace
