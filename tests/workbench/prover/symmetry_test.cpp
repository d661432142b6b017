// The prover on random processes that are there several times around a shared one.

#include <gtest/gtest.h>

#include "tests/workbench/proof/fischer.hpp"
#include "tests/workbench/prover/proving.hpp"

namespace tpn {
namespace {

void expectRight(unsigned seed, const Proving& how, MoveKinds kinds = MoveKinds::plain) {
  Samples samples(seed, kinds);
  for (int i = 0; i < 100; ++i) {
    const Sample s = samples.nextSymmetric();
    EXPECT_EQ(wrong(s, proved(s.net, s.goal, how)), "") << "network " << i;
  }
}

TEST(ProverWithSymmetry, AnswersRight) { expectRight(1, {}); }

TEST(ProverWithSymmetry, AnswersRightWhereMovesNeedNotCountOrReset) {
  expectRight(3, {}, MoveKinds::all);
}

TEST(ProverWithSymmetry, GivesItUpWhereOrbitsMayHaveOneClauseOnly) {
  Proving how;
  how.mostImages = 1;
  expectRight(2, how);
}

TEST(ProverWithSymmetry, ProvesFischersProtocol) {
  for (const std::size_t n : {2, 3, 5, 9}) {
    const Network net = fischer::network(n);
    const Goal goal = fischer::violation(n);
    const Proved answer = proved(net, goal, {});
    ASSERT_EQ(answer.result.answer, ProverResult::unreachable) << n;
    EXPECT_EQ(recheck(net, goal, answer.certificate, {}).complaint, "") << n;
    EXPECT_LT(answer.result.invariant.size(), 20U) << n;
  }
}

}  // namespace
}  // namespace tpn
