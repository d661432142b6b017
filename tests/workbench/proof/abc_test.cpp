// ABC as an engine: its runs and invariants in the network's terms, and what is refused.

#include "workbench/proof/abc.hpp"

#include <gtest/gtest.h>

#include "tests/workbench/proof/fischer.hpp"
#include "tests/workbench/proof/randomproofs.hpp"
#include "workbench/proof/abcanswer.hpp"

namespace tpn {
namespace {

void expectAgreement(MoveKinds kinds) {
  Samples samples(21, kinds);
  int never = 0;
  for (int i = 0; i < 40; ++i) {
    const Sample sample = samples.next();
    const AbcAnswer answer = askAbc(sample.net, sample.goal, {});
    EXPECT_EQ(answer.kind, sample.never ? AbcAnswer::unreachable : AbcAnswer::reachable) << i;
    EXPECT_EQ(answer.certificate.has_value(), sample.never);
    EXPECT_EQ(answer.run.has_value(), !sample.never);
    never += sample.never ? 1 : 0;
  }
  EXPECT_GT(never, 5);
  EXPECT_LT(never, 35);
}

TEST(AbcEngine, AgreesWithTheStatesOfRandomNetworks) { expectAgreement(MoveKinds::plain); }

TEST(AbcEngine, AgreesWhereMovesNeedNotCountOrReset) { expectAgreement(MoveKinds::all); }

TEST(AbcEngine, ProvesFischer) {
  const AbcAnswer answer = askAbc(fischer::network(3), fischer::violation(3), {});
  ASSERT_TRUE(answer.certificate);
  EXPECT_GT(answer.certificate->clauses.size(), 5U);
}

TEST(AbcEngine, StopsWhenTold) {
  const AbcAnswer answer =
      askAbc(fischer::network(30), fischer::violation(30), [] { return true; });
  EXPECT_EQ(answer.kind, AbcAnswer::undecided);
}

// Two clocks of up to 100 in seven bits each.
Network wide() {
  Network net = twoProcesses();
  net.transitions[0].interval = {99, 100};
  net.transitions[1].interval = {1, {}};
  net.transitions[2].interval = {70, 71};
  return net;
}

// All values of both clocks, judged by the clauses as by the cube.
void expectSame(const std::string& row, const std::function<bool(int, int)>& outside) {
  const MachineCircuit machine = makeMachineCircuit(wide(), deadlockProperty());
  std::string names;
  for (const char process : {'1', '2'})
    for (int bit = 0; bit < 7; ++bit)
      names += std::string(" ") + process + ":" + std::to_string(bit);
  const auto read = readInvariant(".ilb" + names + "\n" + row + " 1\n.e\n", machine, 100000);
  ASSERT_TRUE(read);
  for (int a = 0; a <= 100; ++a)
    for (int b = 0; b <= 71; ++b)
      ASSERT_EQ(states::inside(*read, {{0, 0}, {a, b}}), !outside(a, b)) << a << " " << b;
}

TEST(AbcInvariants, OfBitsAreOfRangesOfClocks) {
  expectSame("-------1------", [](int, int b) { return b % 2 == 1; });
  expectSame("------1-------", [](int a, int) { return a >= 64; });
  expectSame("---1000-----1-", [](int a, int b) { return a >= 8 && a < 16 && (b & 32) != 0; });
  expectSame("0000000-------", [](int a, int) { return a == 0; });
  expectSame("--------------", [](int, int) { return true; });
}

TEST(AbcInvariants, AreLeftAloneWhereTheyWouldBeTooMany) {
  const MachineCircuit machine = makeMachineCircuit(wide(), deadlockProperty());
  EXPECT_TRUE(readInvariant(".ilb 1:0\n1 1\n.e\n", machine, 64));
  EXPECT_FALSE(readInvariant(".ilb 1:0\n1 1\n.e\n", machine, 20));
}

TEST(AbcInvariants, AreRefusedWhereTheyAreNone) {
  const MachineCircuit machine = makeMachineCircuit(wide(), deadlockProperty());
  for (const char* text :
       {"", ".ilb 1@1\n1 1\n", ".ilb 1@7\n.e\n", ".ilb 1@1\n11 1\n.e\n", ".ilb 1@1\n2 1\n.e\n"})
    EXPECT_THROW(readInvariant(text, machine, 100), std::runtime_error) << text;
}

TEST(AbcRuns, AreChoicesLowestBitFirst) {
  EXPECT_EQ(readChoices("000\n10\n01\n00# DONE\n", 2), (std::vector<std::size_t>{1, 2, 0}));
  EXPECT_THROW(readChoices("", 2), std::runtime_error);
  EXPECT_THROW(readChoices("000\n101\n", 2), std::runtime_error);
  EXPECT_THROW(readChoices("000\n1?\n", 2), std::runtime_error);
}

// Too early, not enabled, no such transition: nothing happens.
TEST(AbcRuns, LoseWhatChangesNothing) {
  const tpn::Run run = runOf(twoProcesses(), {1, 3, 0, 1, 1, 2, 7, 3, 0, 0, 3, 0});
  ASSERT_EQ(run.steps.size(), 3U);
  EXPECT_EQ(run.steps[0].transition, 0U);
  EXPECT_EQ(run.steps[0].delay, Rational(1));
  EXPECT_EQ(run.steps[1].transition, 1U);
  EXPECT_EQ(run.steps[1].delay, Rational(0));
  EXPECT_EQ(run.steps[2].transition, 2U);
  EXPECT_EQ(run.steps[2].delay, Rational(2));
  EXPECT_EQ(run.goal, 3U);
}

// Time may not pass beyond what the first transition, which has to happen until 2, allows.
TEST(AbcRuns, WaitOnlyAsLongAsTheyMay) {
  const tpn::Run run = runOf(twoProcesses(), {0, 0, 0, 0, 1});
  ASSERT_EQ(run.steps.size(), 1U);
  EXPECT_EQ(run.steps[0].delay, Rational(2));
}

}  // namespace
}  // namespace tpn
