// The nodes that the two time-passage relations create, in the order of their creation: it reaches
// the clause file. Each relation is built a second time from its pieces, one named step after
// another; the pieces' own order is tested beside the vectors.

#include <gtest/gtest.h>

#include "clock/clockval.hpp"
#include "tests/boolform/store.hpp"

namespace {

constexpr int c = 1;
constexpr unsigned top = 2;  // c + 1

// Two clocks, integer parts of three bits, fractions of two.
const ClockVal u(2, 3, 2, 1);
const ClockVal v(2, 3, 2, 101);

using TimePassageOrder = EmptyStore;

TEST_F(TimePassageOrder, JumpBuildsTheBoundThenTheClocks) {
  const Keys pieces = keysOf([] {
    const BoolFormVect delay(u.intPart(0), u.frPart(0));
    const BoolForm bounded = le(u.intPart(0), top);
    const BoolFormVect sum1 = BoolFormVect(u.intPart(1), u.frPart(1)) + delay;
    const BoolForm first = eq(BoolFormVect(v.intPart(1), v.frPart(1)), sum1);
    const BoolFormVect sum2 = BoolFormVect(u.intPart(2), u.frPart(2)) + delay;
    const BoolForm second = eq(BoolFormVect(v.intPart(2), v.frPart(2)), sum2);
    const BoolForm both = con(first, second);
    con(bounded, both);
  });
  EXPECT_EQ(keysOf([] { veryCleverJump(u, v, c); }), pieces);
}

// Variables of u: delay 1 and 5, clock 2 and 6; of v: clock 12 and 16.
TEST_F(TimePassageOrder, JumpOfOneClockOfOneAndOneBitsIsThisList) {
  const ClockVal before(1, 1, 1, 1);
  const ClockVal after(1, 1, 1, 11);
  ASSERT_EQ(before.frPart(0)[0].nr, 4);
  ASSERT_EQ(after.frPart(1)[0].nr, 15);
  EXPECT_EQ(keysOf([&] { veryCleverJump(before, after, 0); }),
            (Keys{
                equKey(4, 5),               // fraction of the sum, negated
                conKey(4, 5),               // its carry
                equKey(1, 2),               // half sum of the integers, negated
                equKey(node(2), node(3)),   // with the carry
                equKey(15, node(1)),        // fraction of the target, negated
                equKey(12, node(4)),        // integer of the target
                conKey(-node(5), node(6)),  // both
                conKey(-1, node(7)),        // with the bound of the delay
            }));
}

BoolForm integersByPieces(int i) {
  const BoolForm within = le(u.intPart(i), top);
  const BoolForm becomesTop = eq(v.intPart(i), top);
  const BoolForm collapses = con(neg(within), becomesTop);
  const BoolForm same = eq(v.intPart(i), u.intPart(i));
  const BoolForm stays = con(within, same);
  return dis(collapses, stays);
}

BoolForm growsByPieces(int i) {
  const BoolForm belowSplit = le(u.frPart(i), u.frSplit);
  const BoolForm positive = u.frPart(i).gez();
  const BoolForm low = con(positive, belowSplit);
  const BoolFormVect next = u.frPart(i) + BoolFormVect(u.frPLen, ConstBits(1));
  const BoolForm grown = eq(v.frPart(i), next);
  return con(low, grown);
}

BoolForm shrinksByPieces(int i) {
  const BoolForm shrunk = isEvenPred(v.frPart(i), u.frPart(i));
  const BoolForm aboveSplit = ge(u.frPart(i), u.frSplit);
  return con(aboveSplit, shrunk);
}

BoolForm mixedByPieces(int i) {
  const BoolForm grows = growsByPieces(i);
  const BoolForm shrinks = shrinksByPieces(i);
  const BoolForm moves = dis(grows, shrinks);
  const BoolForm targetZero = v.frPart(i).zero();
  const BoolForm sourceZero = u.frPart(i).zero();
  const BoolForm staysZero = con(sourceZero, targetZero);
  return dis(staysZero, moves);
}

TEST_F(TimePassageOrder, AdjustBuildsIntegersMixedParityUniform) {
  const Keys pieces = keysOf([] {
    const BoolForm integer1 = integersByPieces(1);
    const BoolForm integer2 = integersByPieces(2);
    const BoolForm integers = con(integer1, integer2);
    const BoolForm mixed1 = mixedByPieces(1);
    const BoolForm oddAndFirst = con(u.frSplit.odd(), mixed1);
    const BoolForm mixed2 = mixedByPieces(2);
    const BoolForm mixed = con(oddAndFirst, mixed2);
    const BoolForm uniform = u.evenDiff(c);
    const BoolForm whenMixed = con(neg(uniform), mixed);
    const BoolForm copied = frPartsEq(u, v);
    const BoolForm whenUniform = con(uniform, copied);
    const BoolForm fractions = dis(whenUniform, whenMixed);
    con(integers, fractions);
  });
  EXPECT_EQ(keysOf([] { cleverAdjust(u, v, c); }), pieces);
}

// One bit each, c = 0. Variables of u: integer 2, split 3, fraction 5; of v: 12 and 15. With one
// clock the parities are always uniform, and nothing is built from then on.
TEST_F(TimePassageOrder, AdjustOfOneClockOfOneAndOneBitsIsThisList) {
  const ClockVal before(1, 1, 1, 1);
  const ClockVal after(1, 1, 1, 11);
  EXPECT_EQ(keysOf([&] { cleverAdjust(before, after, 0); }),
            (Keys{
                conKey(2, 12),                                  // above: the target is 1
                equKey(2, 12),                                  // the target is the source
                conKey(-2, node(2)),                            // kept
                conKey(-node(3), -node(1)),                     // integer part
                conKey(-3, 5),                                  // fraction above the split
                equKey(3, 5),                                   // equal to the split
                conKey(-node(6), -node(5)),                     // below the split
                conKey(5, node(7)),                             // and positive
                equKey(5, 15),                                  // the target is one more, negated
                conKey(-node(9), node(8)),                      // grows
                conKey(-15, 5),                                 // even predecessor
                conKey(node(5), node(11)),                      // shrinks
                conKey(-node(12), -node(10)), conKey(-15, -5),  // stays zero
                conKey(-node(14), node(13)), conKey(-node(15), 3),  // with the odd split
                conKey(-node(4), node(9)),  // uniform: integers and equal fractions
            }));
}

}  // namespace
