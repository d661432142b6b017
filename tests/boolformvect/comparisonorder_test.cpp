// The nodes that comparisons create, in the order of their creation: it reaches the clause file.
// Each list is derived by hand; node(k) is the k-th node created.

#include <gtest/gtest.h>

#include "boolformvect/boolformvect.hpp"
#include "tests/boolformvect/values.hpp"

namespace {

const BoolFormVect a(3, 1);  // variables 1 2 3
const BoolFormVect b(3, 4);  // variables 4 5 6
const BoolFormVect x(2, 1);  // variables 1 2
const BoolFormVect y(2, 3);  // variables 3 4

using ComparisonOrder = EmptyStore;

TEST_F(ComparisonOrder, ZeroFoldsFromTheLowestBit) {
  EXPECT_EQ(keysOf([] { a.zero(); }), (Keys{conKey(-2, -1), conKey(-3, node(1))}));
}

TEST_F(ComparisonOrder, GezFoldsFromTheLowestBit) {
  EXPECT_EQ(keysOf([] { a.gez(); }), (Keys{conKey(-2, -1), conKey(-3, node(1))}));
}

TEST_F(ComparisonOrder, EqFoldsFromTheLowestBit) {
  EXPECT_EQ(keysOf([] { eq(a, b); }), (Keys{equKey(1, 4), equKey(2, 5), conKey(node(1), node(2)),
                                            equKey(3, 6), conKey(node(3), node(4))}));
}

TEST_F(ComparisonOrder, RangedEqFoldsFromItsFirstBit) {
  EXPECT_EQ(keysOf([] { eq(a, b, 1, 2); }),
            (Keys{equKey(2, 5), equKey(3, 6), conKey(node(1), node(2))}));
}

TEST_F(ComparisonOrder, GeBuildsTheHigherBitsBeforeTheDecidingOne) {
  EXPECT_EQ(keysOf([] { ge(x, y); }), (Keys{
                                          equKey(2, 4),              // higher bits agree
                                          conKey(-3, 1),             // bit 0 decides
                                          conKey(node(1), node(2)),  // both
                                          conKey(-4, 2),             // bit 1 decides
                                          conKey(-node(4), -node(3)),
                                      }));
}

TEST_F(ComparisonOrder, GeStartsAgainWithTheHigherBitsOfEveryPosition) {
  EXPECT_EQ(keysOf([] { ge(a, b); }), (Keys{
                                          equKey(2, 5),
                                          equKey(3, 6),
                                          conKey(node(1), node(2)),  // bits 1 and 2 agree
                                          conKey(-4, 1),
                                          conKey(node(3), node(4)),
                                          conKey(-5, 2),
                                          conKey(node(2), node(6)),  // bit 2 agrees
                                          conKey(-node(7), -node(5)),
                                          conKey(-6, 3),
                                          conKey(-node(9), node(8)),
                                      }));
}

TEST_F(ComparisonOrder, GeBuildsTheHigherBitsAlsoWhereTheBitIsFalse) {
  BoolFormVect even = x;
  even.bits[0] = BoolForm(false);
  EXPECT_EQ(keysOf([&] { ge(even, y); }), (Keys{equKey(2, 4), conKey(-4, 2)}));
}

TEST_F(ComparisonOrder, GeqBuildsGreaterBeforeEqual) {
  EXPECT_EQ(keysOf([] { geq(x, y); }), (Keys{
                                           equKey(2, 4),
                                           conKey(-3, 1),
                                           conKey(node(1), node(2)),
                                           conKey(-4, 2),
                                           conKey(-node(4), -node(3)),
                                           equKey(1, 3),
                                           conKey(node(1), node(6)),
                                           conKey(-node(7), node(5)),
                                       }));
}

TEST_F(ComparisonOrder, LeIsBuiltAsGeq) {
  const Keys geqKeys = keysOf([] { geq(a, b); });
  EXPECT_EQ(keysOf([] { le(a, b); }), geqKeys);
}

TEST_F(ComparisonOrder, LeqIsBuiltAsGe) {
  const Keys geKeys = keysOf([] { ge(a, b); });
  EXPECT_EQ(keysOf([] { leq(a, b); }), geKeys);
}

TEST_F(ComparisonOrder, EqualToAConstantFoldsFromTheLowestBit) {
  EXPECT_EQ(keysOf([] { eq(a, 2U); }), (Keys{conKey(-1, 2), conKey(-3, node(1))}));
}

TEST_F(ComparisonOrder, LessThanAConstantFoldsFromItsLowestSetBit) {
  EXPECT_EQ(keysOf([] { le(a, 3U); }), (Keys{
                                           conKey(-1, 2),
                                           conKey(-node(1), 2),
                                           conKey(-node(2), -3),
                                       }));
  EXPECT_EQ(keysOf([] { le(a, 2U); }), Keys{conKey(-3, -2)});
  EXPECT_EQ(keysOf([] { le(a, 4U); }), Keys{});
}

TEST_F(ComparisonOrder, LessThanOneFoldsTheNegatedBits) {
  EXPECT_EQ(keysOf([] { le(a, 1U); }), (Keys{conKey(-2, -1), conKey(-3, node(1))}));
}

TEST_F(ComparisonOrder, LeqToAConstantBuildsLessBeforeEqual) {
  EXPECT_EQ(keysOf([] { leq(a, 2U); }), (Keys{
                                            conKey(-3, -2),
                                            conKey(-1, 2),
                                            conKey(-3, node(2)),
                                            conKey(-node(3), -node(1)),
                                        }));
}

TEST_F(ComparisonOrder, GeqToAConstantIsBuiltAsLess) {
  for (unsigned k = 0; k < 8; ++k) {
    const Keys less = keysOf([&] { le(a, k); });
    EXPECT_EQ(keysOf([&] { geq(a, k); }), less);
  }
}

TEST_F(ComparisonOrder, GeToAConstantIsBuiltAsLeq) {
  for (unsigned k = 0; k < 8; ++k) {
    const Keys lessOrEqual = keysOf([&] { leq(a, k); });
    EXPECT_EQ(keysOf([&] { ge(a, k); }), lessOrEqual);
  }
}

}  // namespace
