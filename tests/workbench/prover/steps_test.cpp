// Steps backwards against steps forwards, state by state: a cube that nothing steps into, and the
// states before one.

#include "workbench/prover/steps.hpp"

#include <gtest/gtest.h>

#include "tests/workbench/proof/randomproofs.hpp"

namespace tpn {
namespace {

class Backwards {
 public:
  explicit Backwards(const Sample& s)
      : machine_(makeMachine(s.net)),
        layout_(StateLayout::capped(machine_)),
        words_(machine_, layout_),
        solver_(makeCadical(Use::manyShortSearches)),
        steps_(machine_, layout_, words_, {1}, {}, *solver_, layout_.size() + 1, {}) {
    addAt(*solver_, facts(machine_, layout_), 0);
    const states::Explorer explorer(s.scaled);
    for (const states::State& from : explorer.everything()) all_[from] = explorer.next(from);
  }

  bool holds(int literal, const states::State& s) const {
    const Meaning& m = words_.meaning(literal);
    const auto& locations = machine_.processes[m.process].locations;
    const bool value =
        m.isClock ? s.clocks[m.process] >= m.value
                  : s.locations[m.process] == locations[static_cast<std::size_t>(m.value)].number;
    return value == (literal > 0);
  }
  bool inside(const Cube& cube, const states::State& s) const {
    return std::all_of(cube.begin(), cube.end(), [&](int l) { return holds(l, s); });
  }

  Cube randomCube(Samples& random) const {
    Cube cube;
    for (std::size_t i = random.upTo(3) + 1; i > 0; --i) {
      const int variable =
          static_cast<int>(random.upTo(static_cast<std::size_t>(words_.variables()) - 1)) + 1;
      cube.push_back(random.upTo(1) == 0 ? variable : -variable);
    }
    return words_.normal(cube);
  }

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

  bool intoByStates(const Cube& cube) const {
    for (const auto& [s, next] : all_)
      if (!inside(cube, s))
        for (const states::State& to : next)
          if (inside(cube, to)) return true;
    return false;
  }

 private:
  void expectPreimage(const Cube& cube, const Cube& before) const {
    int count = 0;
    for (const auto& [s, next] : all_) {
      if (!inside(before, s)) continue;
      ++count;
      EXPECT_TRUE(
          std::any_of(next.begin(), next.end(), [&](const auto& to) { return inside(cube, to); }));
    }
    EXPECT_GT(count, 0);
  }

  std::map<states::State, std::vector<states::State>> all_;  // and what follows each
  Machine machine_;
  StateLayout layout_;
  Vocabulary words_;
  std::unique_ptr<Solver> solver_;
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
  EXPECT_FALSE(backwards.intoByStates(cube));
  EXPECT_FALSE(backwards.into(cube));
}

std::int64_t numberOfStates(const Machine& machine) {
  std::int64_t product = 1;
  for (const Machine::Process& process : machine.processes) {
    std::int64_t sum = 0;
    for (const Machine::Location& location : process.locations) sum += location.cap + 1;
    product = std::min<std::int64_t>(product * sum, 1'000'000);
  }
  return product;
}

class StepsInto : public testing::TestWithParam<MoveKinds> {};

TEST_P(StepsInto, ACubeLeadFromWhereTheStatesSay) {
  Samples samples(1, GetParam());
  int yes = 0;
  int no = 0;
  for (int i = 0; i < 150; ++i) {
    const Sample s = samples.next();
    if (numberOfStates(makeMachine(s.net)) > 2000) continue;
    Backwards backwards(s);
    for (int j = 0; j < 10; ++j) {
      const Cube cube = backwards.randomCube(samples);
      const bool expected = backwards.intoByStates(cube);
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
