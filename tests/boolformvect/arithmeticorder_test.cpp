// The nodes that arithmetic creates, in the order of their creation: it reaches the clause file.
// Each list is derived by hand; node(k) is the k-th node created.

#include <gtest/gtest.h>

#include <vector>

#include "boolformvect/boolformvect.hpp"
#include "tests/boolformvect/values.hpp"

namespace {

const BoolFormVect a(3, 1);  // variables 1 2 3
const BoolFormVect b(3, 4);  // variables 4 5 6
const BoolFormVect x(2, 1);  // variables 1 2
const BoolFormVect y(2, 3);  // variables 3 4

using ArithmeticOrder = EmptyStore;

TEST_F(ArithmeticOrder, AdderAlternatesCarryAndSum) {
  EXPECT_EQ(keysOf([] { a + b; }), (Keys{
                                       equKey(1, 4),                // sum of bit 0
                                       conKey(1, 4),                // carry into bit 1
                                       equKey(2, 5),                // sum of bit 1
                                       equKey(node(2), node(3)),    // with the carry
                                       conKey(5, node(2)),          // carry into bit 2: b, carry
                                       conKey(2, node(2)),          // a, carry
                                       conKey(2, 5),                // a, b
                                       conKey(-node(7), -node(6)),  // inner disjunction
                                       conKey(-node(5), node(8)),   // outer disjunction
                                       equKey(3, 6),                // sum of bit 2
                                       equKey(node(9), node(10)),   // with the carry
                                   }));
}

TEST_F(ArithmeticOrder, AdderBitsAreTheseNodes) {
  const BoolFormVect r = a + b;
  EXPECT_EQ(r.bits, (std::vector{lit(-node(1)), lit(node(4)), lit(-node(11))}));
}

TEST_F(ArithmeticOrder, OneBitAdderIsOneNode) {
  EXPECT_EQ(keysOf([] { BoolFormVect(1, 1) + BoolFormVect(1, 2); }), Keys{equKey(1, 2)});
}

// Bit 0 is negated, and the carry stays the conjunction of the bits below.
TEST_F(ArithmeticOrder, SuccessorIsAnIncrementer) {
  EXPECT_EQ(keysOf([] { succ(a); }), (Keys{equKey(1, 2), conKey(1, 2), equKey(3, node(2))}));
  EXPECT_EQ(succ(a).bits, (std::vector{lit(-1), lit(-node(1)), lit(-node(3))}));
}

TEST_F(ArithmeticOrder, SubtractionBuildsTheComplementFirst) {
  EXPECT_EQ(keysOf([] { x - y; }), (Keys{
                                       equKey(3, 4),  // bit 1 of the complement
                                       equKey(1, 3),
                                       conKey(1, 3),
                                       equKey(2, node(1)),
                                       equKey(node(3), node(4)),
                                   }));
}

TEST_F(ArithmeticOrder, IsSuccBuildsLowerEndsBeforeHigherBitsButTheirConjunctionAfter) {
  EXPECT_EQ(keysOf([] { isSucc(x, y); }), (Keys{
                                              equKey(2, 4),              // position 0: bit 1 agrees
                                              conKey(-3, 1),             // the two ends
                                              conKey(node(1), node(2)),  // with the higher bits
                                              conKey(-4, 3),             // position 1: y ends in 01
                                              conKey(-1, 2),             // x ends in 10
                                              conKey(node(4), node(5)),
                                              conKey(-node(6), -node(3)),
                                          }));
}

TEST_F(ArithmeticOrder, IsSuccOfThreeBits) {
  EXPECT_EQ(keysOf([] { isSucc(a, b); }), (Keys{
                                              equKey(2, 5),
                                              equKey(3, 6),
                                              conKey(node(1), node(2)),
                                              conKey(-4, 1),
                                              conKey(node(3), node(4)),
                                              conKey(-5, 4),  // position 1
                                              conKey(-1, 2),
                                              conKey(node(6), node(7)),
                                              conKey(node(2), node(8)),
                                              conKey(-node(9), -node(5)),
                                              conKey(-6, 4),  // position 2: b ends in 011
                                              conKey(5, node(11)),
                                              conKey(-1, 3),  // a ends in 100
                                              conKey(-2, node(13)),
                                              conKey(node(12), node(14)),
                                              conKey(-node(15), node(10)),
                                          }));
}

TEST_F(ArithmeticOrder, IsEvenPredFoldsFromTheLowestBit) {
  EXPECT_EQ(keysOf([] { isEvenPred(a, b); }), (Keys{
                                                  conKey(-1, 4),
                                                  equKey(2, 5),
                                                  conKey(node(1), node(2)),
                                                  equKey(3, 6),
                                                  conKey(node(3), node(4)),
                                              }));
}

}  // namespace
