// The formula store: handles, numbers of nodes, and what happens when the numbers run out.

#include "tests/boolform/store.hpp"

#include <gtest/gtest.h>

#include <limits>

#include "boolform/boolform.hpp"
#include "tests/boolform/assertion.hpp"

namespace {

class Store : public EmptyStore {
 protected:
  // Three nodes of both kinds.
  static void build() {
    const BoolForm both = con(lit(1), lit(2));
    const BoolForm same = equ(lit(1), lit(2));
    con(both, neg(same));
  }
};
using StoreDeathTest = Store;

TEST_F(Store, StartsWithoutNodes) {
  EXPECT_TRUE(BoolForm::tv.empty());
  EXPECT_EQ(BoolForm(false).maxVarNr(), 1000000);
}

TEST_F(Store, ConstantsHaveTheirFixedNumbers) {
  EXPECT_EQ(BoolForm(false).nr, 0);
  EXPECT_EQ(BoolForm(true).nr, std::numeric_limits<int>::min());
}

TEST_F(Store, VariableIsNamedByItsNumber) {
  EXPECT_EQ(BoolForm(1).nr, 1);
  EXPECT_EQ(BoolForm(999999).nr, 999999);
}

TEST_F(StoreDeathTest, VariableZeroIsRefused) {
  EXPECT_DEATH(static_cast<void>(BoolForm(0)), failedAssertion("nr > 0"));
}

TEST_F(StoreDeathTest, NegativeVariableIsRefused) {
  EXPECT_DEATH(static_cast<void>(BoolForm(-3)), failedAssertion("nr > 0"));
}

TEST_F(StoreDeathTest, UnknownOperatorIsRefused) {
  for (const int op : {-1, 0, 3})
    EXPECT_DEATH(static_cast<void>(BoolForm(lit(1), lit(2), op)),
                 failedAssertion("op == bfCon || op == bfEqu"));
}

TEST_F(Store, NodesAreNumberedInOrderOfCreation) {
  EXPECT_EQ(BoolForm(lit(1), lit(2), bfCon).nr, 1000001);
  EXPECT_EQ(BoolForm(lit(1), lit(2), bfEqu).nr, 1000002);
  EXPECT_EQ(BoolForm(lit(3), lit(4), bfCon).nr, 1000003);
}

TEST_F(Store, EqualKeysShareOneNode) {
  const BoolForm first(lit(5), lit(7), bfCon);
  const BoolForm second(lit(5), lit(7), bfCon);
  EXPECT_EQ(first, second);
  EXPECT_EQ(BoolForm::tv.size(), 1U);
}

TEST_F(Store, NodeConstructorDoesNotReorderOperands) {
  const BoolForm first(lit(5), lit(7), bfCon);
  const BoolForm second(lit(7), lit(5), bfCon);
  EXPECT_EQ(BoolForm::tv, (Keys{conKey(5, 7), conKey(7, 5)}));
  EXPECT_NE(first.nr, second.nr);
}

TEST_F(Store, OperatorIsPartOfTheKey) {
  const BoolForm both(lit(5), lit(7), bfCon);
  const BoolForm same(lit(5), lit(7), bfEqu);
  EXPECT_FALSE(both == same);
}

TEST_F(Store, HighestNumberCountsTheNodes) {
  for (int k = 1; k <= 100; ++k) {
    const BoolForm created(lit(k), lit(k + 1), bfCon);
    EXPECT_EQ(created.maxVarNr(), 1000000 + k);
  }
}

TEST_F(Store, HighestNumberIsTheSameForEveryFormula) {
  build();
  EXPECT_EQ(BoolForm(true).maxVarNr(), 1000003);
  EXPECT_EQ(lit(-7).maxVarNr(), 1000003);
  EXPECT_EQ(lit(1000001).maxVarNr(), 1000003);
}

TEST_F(Store, IndexKnowsEveryNodeOfTheTable) {
  for (int k = 1; k <= 5000; ++k) BoolForm(lit(k), lit(-k - 1), k % 2 == 0 ? bfCon : bfEqu);
  ASSERT_EQ(BoolForm::tv.size(), 5000U);
  for (int i = 0; i < 5000; ++i) {
    const Triple key = BoolForm::tv[static_cast<std::size_t>(i)];
    EXPECT_EQ(BoolForm::mti.slot(key, BoolForm::tv), 1000001 + i);
  }
}

TEST_F(Store, FormulasAreEqualWhereTheirNumbersAre) {
  EXPECT_TRUE(lit(4) == lit(4));
  EXPECT_FALSE(lit(4) == lit(-4));
  EXPECT_FALSE(BoolForm(true) == BoolForm(false));
}

TEST_F(Store, CopyIsIndependent) {
  BoolForm original = lit(4);
  const BoolForm copy = original;
  original = lit(5);
  EXPECT_EQ(copy.nr, 4);
}

TEST_F(Store, OppositeNumbersAreNegations) {
  EXPECT_TRUE(lit(4).isNeg(lit(-4)));
  EXPECT_TRUE(lit(-4).isNeg(lit(4)));
  EXPECT_TRUE(lit(node(1)).isNeg(lit(-node(1))));
  EXPECT_TRUE(lit(std::numeric_limits<int>::max()).isNeg(lit(-std::numeric_limits<int>::max())));
}

TEST_F(Store, OtherNumbersAreNoNegations) {
  EXPECT_FALSE(lit(4).isNeg(lit(4)));
  EXPECT_FALSE(lit(4).isNeg(lit(-5)));
  EXPECT_FALSE(lit(4).isNeg(BoolForm(false)));
  EXPECT_FALSE(BoolForm(true).isNeg(lit(4)));
}

TEST_F(Store, ConstantsAreNegationsOfEachOther) {
  EXPECT_TRUE(BoolForm(false).isNeg(BoolForm(true)));
  EXPECT_TRUE(BoolForm(true).isNeg(BoolForm(false)));
}

// Their numbers are their own negatives.
TEST_F(Store, ConstantsCountAsTheirOwnNegations) {
  EXPECT_TRUE(BoolForm(false).isNeg(BoolForm(false)));
  EXPECT_TRUE(BoolForm(true).isNeg(BoolForm(true)));
}

TEST_F(Store, ShowPrintsNothing) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  lit(7).show();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(Store, LastNumberIsTheLargestInt) {
  EXPECT_EQ(BoolForm::lastNr, std::numeric_limits<int>::max());
}

TEST_F(Store, LastNumberIsStillGivenOut) {
  BoolForm::lastNr = 1000001;
  EXPECT_EQ(con(lit(1), lit(2)).nr, 1000001);
}

TEST_F(Store, NodeBeyondTheLastNumberIsRefused) {
  BoolForm::lastNr = 1000001;
  con(lit(1), lit(2));
  EXPECT_THROW(con(lit(1), lit(3)), NodeNumbersExhausted);
}

TEST_F(Store, RefusedNodeLeavesTheStoreAsItWas) {
  BoolForm::lastNr = 1000001;
  con(lit(1), lit(2));
  EXPECT_THROW(equ(lit(1), lit(2)), NodeNumbersExhausted);
  EXPECT_EQ(BoolForm::tv, Keys{conKey(1, 2)});
  EXPECT_EQ(BoolForm::maxNr, 1000001);
  EXPECT_EQ(con(lit(2), lit(1)).nr, 1000001);
  EXPECT_THROW(equ(lit(1), lit(2)), NodeNumbersExhausted);
}

}  // namespace
