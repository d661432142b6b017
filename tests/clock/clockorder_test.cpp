// The nodes that clock formulas and atoms create, in the order of their creation: it reaches the
// clause file. Lists over one clock are derived by hand; what runs over several clocks, or is long,
// is built a second time from its pieces, one named step after another.

#include <gtest/gtest.h>

#include "clock/clockcond.hpp"
#include "clock/clockval.hpp"
#include "tests/boolform/store.hpp"

namespace {

// One clock of two bits each: integer part 3 4, fractional part 9 10; and 23 24, 29 30.
const ClockVal u(1, 2, 2, 1);
const ClockVal v(1, 2, 2, 21);
// Two clocks, three and two bits.
const ClockVal p(2, 3, 2, 1);
const ClockVal q(2, 3, 2, 101);

using ClockOrder = EmptyStore;

TEST_F(ClockOrder, AllZeroBuildsTheFractionBeforeTheInteger) {
  EXPECT_EQ(keysOf([] { allZero(u); }),
            (Keys{conKey(-10, -9), conKey(-4, -3), conKey(node(1), node(2))}));
}

TEST_F(ClockOrder, EqBuildsTheFractionBeforeTheInteger) {
  EXPECT_EQ(keysOf([] { eq(u, v); }), (Keys{
                                          equKey(9, 29),
                                          equKey(10, 30),
                                          conKey(node(1), node(2)),
                                          equKey(3, 23),
                                          equKey(4, 24),
                                          conKey(node(4), node(5)),
                                          conKey(node(3), node(6)),
                                      }));
}

TEST_F(ClockOrder, ResetOfNoClockIsBuiltAsEq) {
  const Keys equality = keysOf([] { eq(p, q); });
  EXPECT_EQ(keysOf([] { reset(p, q, {}); }), equality);
}

TEST_F(ClockOrder, ResetOfAllClocksIsBuiltAsAllZero) {
  const Keys zero = keysOf([] { allZero(q); });
  EXPECT_EQ(keysOf([] { reset(p, q, {1, 2}); }), zero);
}

TEST_F(ClockOrder, ResetTakesTheClocksInIncreasingOrder) {
  const Keys pieces = keysOf([] {
    const BoolForm fractionKept = eq(q.frPart(1), p.frPart(1));
    const BoolForm integerKept = eq(q.intPart(1), p.intPart(1));
    const BoolForm first = con(integerKept, fractionKept);
    const BoolForm fractionZero = q.frPart(2).zero();
    const BoolForm integerZero = q.intPart(2).zero();
    const BoolForm second = con(integerZero, fractionZero);
    con(first, second);
  });
  EXPECT_EQ(keysOf([] { reset(p, q, {2}); }), pieces);
}

TEST_F(ClockOrder, AllZeroTakesTheClocksInIncreasingOrder) {
  const Keys pieces = keysOf([] {
    BoolForm all(true);
    for (const int i : {1, 2}) {
      const BoolForm fraction = p.frPart(i).zero();
      const BoolForm integer = p.intPart(i).zero();
      const BoolForm clock = con(integer, fraction);
      all = con(all, clock);
    }
  });
  EXPECT_EQ(keysOf([] { allZero(p); }), pieces);
}

TEST_F(ClockOrder, FrPartsEqTakesTheClocksInIncreasingOrder) {
  const Keys pieces = keysOf([] {
    const BoolForm first = eq(p.frPart(1), q.frPart(1));
    const BoolForm second = eq(p.frPart(2), q.frPart(2));
    con(first, second);
  });
  EXPECT_EQ(keysOf([] { frPartsEq(p, q); }), pieces);
}

// The lowest fractional bits are 13, 15 and 17.
TEST_F(ClockOrder, EvenDiffBuildsTheOddFoldBeforeTheEvenFold) {
  const ClockVal w(3, 2, 2, 1);
  ASSERT_EQ(w.frPart(1)[0].nr, 13);
  EXPECT_EQ(keysOf([&] { w.evenDiff(0); }), (Keys{
                                                conKey(13, 15),
                                                conKey(17, node(1)),
                                                conKey(-15, -13),
                                                conKey(-17, node(3)),
                                                conKey(-node(4), -node(2)),
                                            }));
}

TEST_F(ClockOrder, AllProperBuildsTheTopBeforeTheRest) {
  const Keys pieces = keysOf([] {
    BoolForm all(true);
    for (const int i : {1, 2}) {
      const BoolForm noFraction = eq(p.frPart(i), 0U);
      const BoolForm equal = eq(p.intPart(i), 6U);
      const BoolForm atTop = con(equal, noFraction);
      const BoolForm below = le(p.intPart(i), 6U);
      const BoolForm proper = dis(below, atTop);
      all = con(all, proper);
    }
  });
  EXPECT_EQ(keysOf([] { p.allProper(5); }), pieces);
}

TEST_F(ClockOrder, InOpenBuildsTheFractionFirstAndGreaterLast) {
  const Keys pieces = keysOf([] {
    const BoolForm fraction = p.frPart(2).gez();
    const BoolForm equal = eq(p.intPart(2), 5U);
    const BoolForm justAbove = con(equal, fraction);
    const BoolForm greater = ge(p.intPart(2), 5U);
    dis(greater, justAbove);
  });
  EXPECT_EQ(keysOf([] { p.inOpen(2, 5); }), pieces);
}

// --- Atoms ---

Keys keysOfAtom(int rel) {
  return keysOf([&] { SmplClockCond{2, 0, rel, 5}.toBool(p); });
}

const BoolFormVect& integer = p.intPart(2);
const BoolFormVect& fraction = p.frPart(2);
const BoolFormVect bound(3, ConstBits(5));

TEST_F(ClockOrder, EqualAtomBuildsTheFractionFirst) {
  const Keys pieces = keysOf([] {
    const BoolForm zero = fraction.zero();
    const BoolForm equal = eq(integer, bound);
    con(equal, zero);
  });
  EXPECT_EQ(keysOfAtom(relEqual), pieces);
}

TEST_F(ClockOrder, LessAtomIsTheStrictComparison) {
  const Keys pieces = keysOf([] { le(integer, bound); });
  EXPECT_EQ(keysOfAtom(relLess), pieces);
}

TEST_F(ClockOrder, LessOrEqualAtomBuildsLessBeforeEqual) {
  const Keys pieces = keysOf([] {
    const BoolForm below = le(integer, bound);
    const BoolForm zero = fraction.zero();
    const BoolForm equal = eq(integer, bound);
    const BoolForm atBound = con(equal, zero);
    dis(atBound, below);
  });
  EXPECT_EQ(keysOfAtom(relLessOrEqual), pieces);
}

TEST_F(ClockOrder, GreaterAtomBuildsGreaterBeforeJustAbove) {
  const Keys pieces = keysOf([] {
    const BoolForm above = ge(integer, bound);
    const BoolForm positive = fraction.gez();
    const BoolForm equal = eq(integer, bound);
    const BoolForm justAbove = con(equal, positive);
    dis(justAbove, above);
  });
  EXPECT_EQ(keysOfAtom(relGreater), pieces);
}

TEST_F(ClockOrder, GreaterOrEqualAtomIsTheComparison) {
  const Keys pieces = keysOf([] { geq(integer, bound); });
  EXPECT_EQ(keysOfAtom(relGreaterOrEqual), pieces);
}

TEST_F(ClockOrder, LessOrEqualAtomOverTwoBitsIsThisList) {
  EXPECT_EQ(keysOf([] {
              SmplClockCond{1, 0, relLessOrEqual, 2}.toBool(u);
            }),
            (Keys{
                conKey(3, 4),                // greater: bit 0 decides where bit 1 agrees
                conKey(-3, 4),               // equal to the bound
                conKey(-node(2), -node(1)),  // greater or equal
                conKey(-10, -9),             // no fraction
                conKey(node(2), node(4)),    // exactly at the bound
                conKey(-node(5), -node(3)),  // or less
            }));
}

TEST_F(ClockOrder, TrivialAtomCreatesNoNode) {
  EXPECT_EQ(keysOf([] { SmplClockCond{1, 1, relLessOrEqual, 2}.toBool(u); }), Keys{});
}

}  // namespace
