// Relative induction against the states of small networks, one by one: what steps into a cube from
// a frame, what is left of the cube where nothing does, and how much more is excluded with it.

#include "workbench/prover/blocking.hpp"

#include <gtest/gtest.h>

#include <set>

#include "tests/workbench/prover/cubestates.hpp"
#include "workbench/machine/goal.hpp"
#include "workbench/prover/cores.hpp"
#include "workbench/prover/goalstates.hpp"

namespace tpn {
namespace {

// Frame 0 is the initial state, frames 1 to 3 are all states until something is learnt.
struct Blocks {
  explicit Blocks(const Sample& s) : states(s) {
    addAt(*solver, facts(states.machine(), states.layout()), 0);
    frames.openTo(3);
  }

  // The states of a frame that has learnt these.
  bool has(std::size_t level, const states::State& s) const {
    return std::none_of(frames.learnt().begin(), frames.learnt().end(), [&](const auto& learnt) {
      return learnt.level >= level && states.inside(learnt.cube, s);
    });
  }
  bool enteredFrom(std::size_t level, const Cube& cube) const {
    if (level == 0)
      return !states.inside(cube, states.initial()) && states.followed(cube, states.initial());
    return std::any_of(states.next().begin(), states.next().end(), [&](const auto& entry) {
      return has(level, entry.first) && !states.inside(cube, entry.first) &&
             states.followed(cube, entry.first);
    });
  }

  CubeStates states;
  std::unique_ptr<Solver> solver = makeCadical(Use::manyShortSearches);
  Checkpoint checkpoint;
  ClauseSink sink = stateSink(states.layout(), *solver);
  Steps steps{states.machine(), states.layout(), states.words(), {1}, {}, sink, checkpoint, 1};
  Frames frames{states.words(), Orbits(), 100, sink};
  Blocking blocking{states.machine(), states.layout(), states.words(), steps,
                    frames,           *solver,         checkpoint};
};

class BlockingOf : public testing::TestWithParam<MoveKinds> {
 protected:
  // Each sample that is small enough, with cubes that the initial state is not in.
  template <class Judge>
  void forEach(unsigned seed, const Judge& judge) {
    Samples samples(seed, GetParam());
    for (int i = 0; i < 60; ++i) {
      const Sample s = samples.next();
      if (CubeStates::count(s) > 500) continue;
      Blocks b(s);
      for (int j = 0; j < 6; ++j) {
        const Cube cube = b.states.randomCube(samples);
        if (!b.states.words().holdsInitially(cube)) judge(b, cube);
      }
    }
  }
};

TEST_P(BlockingOf, FindsWhatStepsIntoACube) {
  int found = 0;
  int none = 0;
  forEach(1, [&](Blocks& b, const Cube& cube) {
    for (const std::size_t level : {1U, 2U}) {
      Cube rest = cube;
      const auto before = b.blocking.intoFrom(rest, level);
      ++(before ? found : none);
      if (before) {
        EXPECT_TRUE(b.enteredFrom(level - 1, cube));
        for (const auto& [s, next] : b.states.next())
          EXPECT_TRUE(!b.states.inside(before->cube, s) || b.states.followed(cube, s));
        continue;
      }
      EXPECT_TRUE(b.states.covered(cube, rest));
      EXPECT_FALSE(b.states.words().holdsInitially(rest));
      EXPECT_FALSE(b.enteredFrom(level - 1, rest));
    }
  });
  EXPECT_GT(found, 50);
  EXPECT_GT(none, 50);
}

TEST_P(BlockingOf, GeneralisesToCubesThatAreNotSteppedIntoEither) {
  int larger = 0;
  forEach(2, [&](Blocks& b, const Cube& cube) {
    Cube more = cube;
    if (b.blocking.intoFrom(more, 2)) return;
    b.blocking.generalise(more, 2, {});
    EXPECT_TRUE(b.states.covered(cube, more));
    EXPECT_FALSE(b.states.words().holdsInitially(more));
    EXPECT_FALSE(b.enteredFrom(1, more));
    larger += b.states.covered(more, cube) ? 0 : 1;
  });
  EXPECT_GT(larger, 10);
}

// A step from a state of a frame leads to one of the next; the initial state is in all.
TEST_P(BlockingOf, LearnsWhatFramesMayKnow) {
  std::size_t learnt = 0;
  forEach(3, [&](Blocks& b, const Cube& cube) {
    for (const std::size_t level : {1U, 2U}) {
      Cube rest = cube;
      if (b.blocking.intoFrom(rest, level)) break;
      b.blocking.exclude(rest, level, {});
      EXPECT_FALSE(b.blocking.reaches(level, cube));
    }
    learnt += b.frames.learnt().size();
    for (const Frames::Learnt& known : b.frames.learnt()) {
      EXPECT_FALSE(b.states.inside(known.cube, b.states.initial()));
      for (std::size_t level = 1; level <= known.level; ++level)
        EXPECT_FALSE(b.enteredFrom(level - 1, known.cube)) << level << " of " << known.level;
    }
  });
  EXPECT_GT(learnt, 100U);
}

// That no step leads into a part of a cube's literals does not mean that none leads into the cube.
TEST_P(BlockingOf, RaisesOnlyWhatIsNotSteppedInto) {
  int raised = 0;
  int enlarged = 0;
  forEach(5, [&](Blocks& b, const Cube& cube) {
    for (const std::size_t level : {1U, 2U, 3U}) {
      Cube more = cube;
      const bool mayRise = b.blocking.raise(more, level);
      const bool isEntered = b.enteredFrom(level - 1, cube);
      EXPECT_TRUE(mayRise || isEntered);
      if (!mayRise) continue;
      EXPECT_TRUE(b.states.covered(cube, more));
      EXPECT_FALSE(b.states.words().holdsInitially(more));
      EXPECT_FALSE(b.enteredFrom(level - 1, more));
      EXPECT_EQ(more == cube, !isEntered);
      ++(isEntered ? enlarged : raised);
    }
  });
  EXPECT_GT(raised, 50);
  EXPECT_GT(enlarged, 5);
}

// What a part of a cube is blocked by is kept by the frames as well.
TEST_P(BlockingOf, CoresLearnsWhatFramesMayKnow) {
  int blocked = 0;
  forEach(4, [&](Blocks& b, const Cube& cube) {
    const Nearness nearness(b.states.machine(), b.states.words());
    Cores cores(b.states.words(), nearness, b.blocking, b.checkpoint);
    const Processes about{b.states.words().meaning(cube.front()).process};
    if (!cores.block(cube, about, 2)) return;
    ++blocked;
    EXPECT_FALSE(b.blocking.reaches(2, cube));
    for (const Frames::Learnt& known : b.frames.learnt()) {
      EXPECT_FALSE(b.states.inside(known.cube, b.states.initial()));
      for (std::size_t level = 1; level <= known.level; ++level)
        EXPECT_FALSE(b.enteredFrom(level - 1, known.cube)) << level << " of " << known.level;
    }
  });
  EXPECT_GT(blocked, 3);
}

INSTANTIATE_TEST_SUITE_P(OfMoves, BlockingOf, testing::Values(MoveKinds::plain, MoveKinds::all));

// Clocks are told apart up to 3 and 2 units; the first two begin anew together.
Sample threeClocks() {
  Sample s;
  s.net.processes = {{{0, 1}, {}}, {{0, 1}, {}}, {{0, 1}, {}}};
  s.net.transitions = {{{0, {}}, {{0, 0, 0}, {1, 0, 0}}},
                       {{3, {}}, {{0, 0, 1}}},
                       {{2, {}}, {{1, 0, 1}}},
                       {{0, {}}, {{2, 0, 1}}}};
  s.scaled = s.net;
  return s;
}

// What the frame says of the first of several ways to be outside does not settle the others.
TEST(Blocking, AsksAboutEachBoundThatADelayMayMeet) {
  Blocks b(threeClocks());
  const StateLayout& layout = b.states.layout();
  b.frames.learn({-layout.clock(0, 1), layout.clock(1, 1)}, 1);
  Cube cube{layout.clock(0, 1), layout.clock(1, 2)};
  EXPECT_TRUE(b.enteredFrom(1, cube));
  EXPECT_TRUE(b.blocking.intoFrom(cube, 2));
}

TEST(Blocking, IsAskedAboutEachClockThatATransitionSetsBack) {
  Blocks b(threeClocks());
  const StateLayout& layout = b.states.layout();
  const Cube cube{-layout.clock(0, 2), -layout.clock(1, 2), layout.location(2, 1)};
  std::vector<int> kept;
  std::set<int> outside;
  b.steps.forEach(cube, kept, [&](const Query& query) {
    if (!query.way.isDelay() && query.way.transition == 0) outside.insert(query.outside);
    return true;
  });
  EXPECT_EQ(outside, (std::set<int>{layout.clock(0, 2), layout.clock(1, 2)}));
}

// Every state of the cube that is given for a goal is one, and there is none where there is no goal
// state.
TEST(GoalStates, AreGoalsAllOfThem) {
  Samples samples(5);
  int found = 0;
  for (int i = 0; i < 80; ++i) {
    const Sample s = samples.next();
    if (CubeStates::count(s) > 500 || asksWhatComes(s.goal)) continue;
    Blocks b(s);
    const StateFormula formula =
        propertyFormula(s.net, b.states.machine(), b.states.layout(), s.goal);
    const int goal = addFormula(*b.solver, formula, b.states.layout().size(), 0, 1000);
    const states::Explorer explorer(s.scaled);
    const auto cube = GoalStates(b.states.words(), b.frames, *b.solver, goal).of(1);
    int inside = 0;
    for (const auto& [state, next] : b.states.next()) {
      if (!cube) {
        EXPECT_FALSE(explorer.isGoal(s.goal, state)) << i;
      } else if (b.states.inside(*cube, state)) {
        EXPECT_TRUE(explorer.isGoal(s.goal, state)) << i;
        ++inside;
      }
    }
    EXPECT_EQ(inside > 0, cube.has_value());
    found += cube ? 1 : 0;
  }
  EXPECT_GT(found, 15);
}

}  // namespace
}  // namespace tpn
