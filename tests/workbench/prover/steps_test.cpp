// Steps backwards against steps forwards, state by state: a cube that nothing steps into, and the
// states before one.

#include "workbench/prover/steps.hpp"

#include <gtest/gtest.h>

#include "tests/workbench/prover/cubestates.hpp"

namespace tpn {
namespace {

class Backwards {
 public:
  explicit Backwards(const Sample& s, int narrow = 16)
      : states_(s),
        solver_(makeCadical(Use::manyShortSearches)),
        sink_(stateSink(states_.layout(), *solver_)),
        steps_(states_.machine(), states_.layout(), states_.words(), {1}, {}, sink_, {}, narrow) {
    addAt(*solver_, facts(states_.machine(), states_.layout()), 0);
  }

  const CubeStates& states() const { return states_; }

  // Is there a state outside the cube that steps into it? Every preimage on the way is one, whole.
  bool into(const Cube& cube) {
    bool found = false;
    std::vector<int> kept;
    steps_.forEach(cube, kept, [&](const Query& query) {
      for (const int literal : query.fixed) solver_->assume(literal);
      for (const auto& [assumed, literal] : query.literals) solver_->assume(assumed);
      if (query.outside != 0) solver_->assume(query.outside);
      if (solver_->solve() != Solver::Result::satisfiable) return true;
      found = true;
      expectPreimage(cube,
                     steps_.before(cube, query.way, [&](int l) { return solver_->value(l); }));
      return true;
    });
    return found;
  }

 private:
  void expectPreimage(const Cube& cube, const Cube& before) const {
    int count = 0;
    for (const auto& [s, next] : states_.next()) {
      if (!states_.inside(before, s)) continue;
      ++count;
      EXPECT_TRUE(states_.followed(cube, s));
    }
    EXPECT_GT(count, 0);
  }

  CubeStates states_;
  std::unique_ptr<Solver> solver_;
  ClauseSink sink_;
  Steps steps_;
};

// A transition whose move does not count says nothing of the clock that it sets to 0: where it is
// at 0 before, nothing outside steps in.
TEST(Steps, DoNotTakeAClockForReachedThatDoesNotCount) {
  Sample s;
  s.net.processes = {{{0, 1}, {}}, {{0}, {}}};
  s.net.transitions = {{{2, 2}, {{0, 0, 0}}}, {{3, 3}, {{0, 1, 1, false}, {1, 0, 0}}}};
  s.scaled = inUnits(s.net);
  const StateLayout layout = StateLayout::capped(makeMachine(s.net));
  const Cube cube{layout.location(0, 1), -layout.clock(0, 2)};
  Backwards backwards(s);
  EXPECT_FALSE(backwards.states().entered(cube));
  EXPECT_FALSE(backwards.into(cube));
}

class StepsInto : public testing::TestWithParam<MoveKinds> {};

TEST_P(StepsInto, ACubeLeadFromWhereTheStatesSay) {
  Samples samples(1, GetParam());
  int yes = 0;
  int no = 0;
  for (int i = 0; i < 150; ++i) {
    const Sample s = samples.next();
    if (CubeStates::count(s) > 2000) continue;
    Backwards backwards(s, i % 2 == 0 ? 16 : 0);
    for (int j = 0; j < 10; ++j) {
      const Cube cube = backwards.states().randomCube(samples);
      const bool expected = backwards.states().entered(cube);
      EXPECT_EQ(backwards.into(cube), expected) << "network " << i;
      ++(expected ? yes : no);
    }
  }
  EXPECT_GT(yes, 100);
  EXPECT_GT(no, 100);
}

INSTANTIATE_TEST_SUITE_P(OfMoves, StepsInto, testing::Values(MoveKinds::plain, MoveKinds::all));

}  // namespace
}  // namespace tpn
