// Circuits: gates, and the files they become.

#include "workbench/proof/circuit.hpp"

#include <gtest/gtest.h>

#include "tests/workbench/proof/aigerfile.hpp"

namespace tpn {
namespace {

constexpr auto inverted = Circuit::inverted;

TEST(Gates, OfConstantsAndOfOneLiteralAreNone) {
  Circuit c;
  const Circuit::Literal a = c.input("a");
  EXPECT_EQ(c.both(a, Circuit::yes), a);
  EXPECT_EQ(c.both(Circuit::no, a), Circuit::no);
  EXPECT_EQ(c.both(a, a), a);
  EXPECT_EQ(c.both(a, inverted(a)), Circuit::no);
  EXPECT_EQ(c.either(a, inverted(a)), Circuit::yes);
  EXPECT_EQ(c.all({}), Circuit::yes);
  EXPECT_EQ(c.any({}), Circuit::no);
  EXPECT_EQ(c.any({a}), a);
  EXPECT_TRUE(c.gates().empty());
}

TEST(Gates, ThatAreEqualAreOne) {
  Circuit c;
  const Circuit::Literal a = c.input("a");
  const Circuit::Literal b = c.input("b");
  EXPECT_EQ(c.both(a, b), c.both(b, a));
  EXPECT_NE(c.both(a, b), c.both(a, inverted(b)));
  EXPECT_EQ(c.gates().size(), 2U);
}

// A counter of enabled steps up to 2: a latch of its own for each; bad where it gets to 2.
Circuit counter() {
  Circuit c;
  const Circuit::Literal enable = c.input("enable");
  const Circuit::Literal one = c.latch("one");
  const Circuit::Literal two = c.latch("two");
  c.next(one, c.either(one, enable));
  const Circuit::Literal more = c.both(one, enable);
  c.next(two, c.either(two, more));
  c.bad(two, "full");
  return c;
}

TEST(AigerFiles, AreTextAsTheFormHasIt) {
  EXPECT_EQ(asciiAiger(counter(), "a counter\n"),
            "aag 6 1 2 0 3 1\n"
            "2\n"
            "4 9\n"
            "6 13\n"
            "6\n"
            "8 5 3\n"
            "10 4 2\n"
            "12 11 7\n"
            "i0 enable\n"
            "l0 one\n"
            "l1 two\n"
            "b0 full\n"
            "c\n"
            "a counter\n");
}

TEST(AigerFiles, AreTheSameInBytes) {
  const aiger::File text = aiger::read(asciiAiger(counter(), "x\n"));
  const aiger::File bytes = aiger::read(binaryAiger(counter(), "x\n"));
  EXPECT_EQ(text.next, bytes.next);
  EXPECT_EQ(text.bads, bytes.bads);
  EXPECT_EQ(text.latchNames, bytes.latchNames);
  EXPECT_EQ(text.comment, "x\n");
  EXPECT_EQ(bytes.comment, "x\n");
  ASSERT_EQ(text.gates.size(), bytes.gates.size());
  for (std::size_t i = 0; i < text.gates.size(); ++i) {
    EXPECT_EQ(text.gates[i].left, bytes.gates[i].left);
    EXPECT_EQ(text.gates[i].right, bytes.gates[i].right);
  }
}

TEST(AigerFiles, CountInBytesBeyond128) {
  Circuit c;
  std::vector<Circuit::Literal> inputs;
  for (int i = 0; i < 20000; ++i) inputs.push_back(c.input("i"));
  c.bad(c.both(inputs.front(), inputs.back()), "ends");
  const aiger::File bytes = aiger::read(binaryAiger(c, ""));
  EXPECT_EQ(bytes.gates.at(0).left, 40000U);
  EXPECT_EQ(bytes.gates.at(0).right, 2U);
}

}  // namespace
}  // namespace tpn
