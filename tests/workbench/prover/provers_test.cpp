// The prover's answers against all states one by one, on random networks: every proof is rechecked,
// every run replayed. One transition in twenty has any latest time, so that some have their
// earliest above it and stop time.

#include <gtest/gtest.h>

#include "tests/workbench/prover/proving.hpp"

namespace tpn {
namespace {

// The same network; the locations 0, 1, 2, 3, ... have become 0, 5, 8, 11, ...
int renamed(int location) { return location == 0 ? 0 : 3 * location + 2; }

Network withGaps(Network net) {
  for (Process& process : net.processes) {
    Process other;
    for (const int location : process.locations) other.locations.insert(renamed(location));
    for (const auto& [location, propositions] : process.labels)
      other.labels[renamed(location)] = propositions;
    process = other;
  }
  for (Transition& t : net.transitions)
    for (Move& move : t.moves) {
      move.source = renamed(move.source);
      move.target = renamed(move.target);
    }
  return net;
}

void expectRight(unsigned seed, int count, const Proving& how, MoveKinds kinds = MoveKinds::plain) {
  Samples samples(seed, kinds);
  int never = 0;
  for (int i = 0; i < count; ++i) {
    const Sample s = samples.next();
    never += s.never ? 1 : 0;
    EXPECT_EQ(wrong(s, proved(s.net, s.goal, how)), "") << "network " << i;
  }
  EXPECT_GT(never, count / 10);
  EXPECT_LT(never, count - count / 10);
}

TEST(Prover, AnswersRightOnRandomNetworks) { expectRight(1, 300, {}); }

TEST(Prover, AnswersRightWhereMovesNeedNotCountOrReset) {
  Proving how;
  expectRight(5, 300, how, MoveKinds::all);
  how.delays = {1, 2, 4};
  how.invariants = false;
  expectRight(6, 150, how, MoveKinds::all);
}

TEST(Prover, AnswersRightWithoutPlaceInvariants) {
  Proving how;
  how.invariants = false;
  expectRight(2, 150, how);
}

TEST(Prover, AnswersRightWithLongDelays) {
  Proving how;
  how.delays = {1, 2, 4};
  expectRight(3, 150, how);
}

TEST(Prover, AnswersRightWhereLocationNumbersHaveGaps) {
  Samples samples(5);
  for (int i = 0; i < 150; ++i) {
    Sample s = samples.next();
    s.net = withGaps(s.net);
    for (PropertyItem& item : s.goal.items)
      if (item.kind == PropertyItem::at || item.kind == PropertyItem::notAt)
        item.number = renamed(item.number);
    EXPECT_EQ(wrong(s, proved(s.net, s.goal, {})), "") << "network " << i;
  }
}

TEST(Prover, IsUndecidedWhereverItIsStopped) {
  Samples samples(4);
  for (int i = 0; i < 20; ++i) {
    const Sample s = samples.next();
    for (int calls = 0;; calls += 1 + calls / 4) {
      Proving how;
      how.stop = [left = calls]() mutable { return left-- <= 0; };
      const Proved answer = proved(s.net, s.goal, how);
      if (answer.result.answer != ProverResult::undecided) {
        EXPECT_EQ(wrong(s, answer), "");
        break;
      }
      ASSERT_LT(calls, 100000);
    }
  }
}

}  // namespace
}  // namespace tpn
