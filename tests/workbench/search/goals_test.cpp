// The bounded search on anything that can be asked, against all states.

#include <gtest/gtest.h>

#include "tests/workbench/proof/randomproofs.hpp"
#include "workbench/runs/replay.hpp"
#include "workbench/search/bounded.hpp"

namespace tpn {

namespace {

constexpr int enough = 30;  // transitions; no random network here needs more

std::string wrong(const Sample& s, std::int64_t unaryLimit) {
  const BoundedVerdict verdict =
      searchBounded(s.net, s.goal, {enough, unaryLimit, true}, [] { return false; }, {});
  const bool reached = verdict.answer == BoundedVerdict::reached;
  if (reached == s.never) return reached ? "reached" : "not reached";
  return reached ? replay(s.net, s.goal, *verdict.run).complaint : "";
}

class Goals : public testing::TestWithParam<MoveKinds> {};

TEST_P(Goals, AreReachedWhereAStateHasThem) {
  Samples samples(77, GetParam());
  for (int i = 0; i < 400; ++i) {
    const Sample s = i % 4 == 0 ? samples.nextSymmetric() : samples.next();
    EXPECT_EQ(wrong(s, i % 2 == 0 ? 64 : 1), "") << "network " << i;
  }
}

INSTANTIATE_TEST_SUITE_P(OfMoves, Goals, testing::Values(MoveKinds::plain, MoveKinds::all));

}  // namespace

}  // namespace tpn
