// The greedy search against all states, the distances that lead it, and the prover that has it
// beside.

#include "workbench/search/greedy.hpp"

#include <gtest/gtest.h>

#include <atomic>

#include "tests/workbench/proof/randomproofs.hpp"
#include "workbench/families/families.hpp"
#include "workbench/families/random.hpp"
#include "workbench/runs/replay.hpp"
#include "workbench/search/proving.hpp"

namespace tpn {

namespace {

constexpr long plenty = 1'000'000'000;

Goal together(const std::vector<int>& propositions) {
  Goal goal{"", {}, 1};
  for (const int p : propositions) {
    goal.items.push_back({PropertyItem::proposition, p});
    if (goal.items.size() > 1) goal.items.push_back({PropertyItem::conjunction, 0});
  }
  return goal;
}

std::string replayed(const Network& net, const Goal& goal, const Greedy::Found& found) {
  Run run{{}, found.transitions.size()};
  for (std::size_t i = 0; i < run.goal; ++i)
    run.steps.push_back({Rational(found.delays[i] * makeMachine(net).unit), found.transitions[i]});
  return replay(net, goal, run).complaint;
}

std::string wrong(const Sample& s) {
  const Machine machine = makeMachine(s.net);
  const Checkpoint checkpoint;
  Greedy greedy(s.net, machine, s.goal, checkpoint);
  const auto found = greedy.goOn(plenty);
  if (!greedy.over()) return "not over";
  if (found) return replayed(s.net, s.goal, *found);
  return s.never ? "" : "not found";
}

class GreedyOnAllStates : public testing::TestWithParam<MoveKinds> {};

TEST_P(GreedyOnAllStates, FindsARunWhereThereIsOneWhenItHasLookedAtEverything) {
  Samples samples(31, GetParam());
  int never = 0;
  int asked = 0;
  for (int i = 0; i < 600; ++i) {
    Sample s = i % 4 == 0 ? samples.nextSymmetric() : samples.next();
    if (asksWhatComes(s.goal)) continue;
    ++asked;
    never += s.never ? 1 : 0;
    EXPECT_EQ(wrong(s), "") << "network " << i;
  }
  EXPECT_GT(never, asked / 10);
  EXPECT_LT(never, asked - asked / 10);
}

INSTANTIATE_TEST_SUITE_P(OfMoves, GreedyOnAllStates,
                         testing::Values(MoveKinds::plain, MoveKinds::all));

TEST(GreedySearch, FindsLongRunsOfManyProcessesInSmallSteps) {
  for (const std::uint64_t seed : {1U, 109U, 110U, 117U, 135U}) {
    const Network net = dealtNetwork(20, 120, seed);
    const Goal goal = together({11, 21, 31});
    const Machine machine = makeMachine(net);
    const Checkpoint checkpoint;
    Greedy greedy(net, machine, goal, checkpoint);
    std::optional<Greedy::Found> found;
    while (!found && !greedy.over() && greedy.effort() < 20'000'000) found = greedy.goOn(1000);
    ASSERT_TRUE(found) << seed;
    EXPECT_EQ(replayed(net, goal, *found), "");
  }
}

TEST(GreedySearch, IsOverAtOnceWhereNoWayLeads) {
  const Network net = familyNamed("fischer")->network(6);
  const Machine machine = makeMachine(net);
  const Goal goal = together({12345});
  const Checkpoint checkpoint;
  Greedy greedy(net, machine, goal, checkpoint);
  EXPECT_FALSE(greedy.goOn(plenty));
  EXPECT_TRUE(greedy.over());
  EXPECT_LT(greedy.effort(), 10'000);
}

TEST(GreedySearch, SpendsWhatItIsGivenAndLittleMore) {
  const Network net = dealtNetwork(20, 120, 1);
  const Machine machine = makeMachine(net);
  const Goal goal = together({11, 21, 31});
  const Checkpoint checkpoint;
  Greedy greedy(net, machine, goal, checkpoint);
  for (long spent = greedy.effort(), i = 0; i < 20; ++i, spent = greedy.effort()) {
    EXPECT_FALSE(greedy.goOn(10'000));
    EXPECT_GE(greedy.effort() - spent, 10'000);
    EXPECT_LT(greedy.effort() - spent, 30'000);
  }
  const long spent = greedy.effort();
  EXPECT_FALSE(greedy.goOn(-1));
  EXPECT_EQ(greedy.effort(), spent);
}

TEST(GreedySearch, EndsWhereItIsNoLongerWanted) {
  const Network net = dealtNetwork(20, 120, 1);
  const Machine machine = makeMachine(net);
  const Goal goal = together({11, 21, 31});
  int left = 100;
  const Checkpoint checkpoint([&left] { return left-- <= 0; });
  Greedy greedy(net, machine, goal, checkpoint);
  EXPECT_THROW(greedy.goOn(plenty), Interrupted);
}

TEST(StateStore, NumbersEachStateOnce) {
  StateStore store(2);
  constexpr std::uint32_t side = 100;
  for (int round = 0; round < 2; ++round)
    for (std::uint32_t a = 0; a < side; ++a)
      for (std::uint32_t b = 0; b < side; ++b) {
        const std::uint32_t state[] = {a, b};
        const auto [number, isNew] = store.add(state);
        EXPECT_EQ(number, a * side + b);
        EXPECT_EQ(isNew, round == 0);
        EXPECT_EQ(store[number][1], b);
      }
  EXPECT_EQ(store.size(), side * side);
}

// Two processes in a line of locations each; the last step is one of both.
Network lines(int length) {
  Network net;
  net.processes.resize(2);
  for (std::size_t p = 0; p < 2; ++p) {
    for (int l = 0; l <= length; ++l) net.processes[p].locations.insert(l);
    for (int l = 0; l + 1 < length; ++l) net.transitions.push_back({{1, 2}, {Move{p, l, l + 1}}});
  }
  net.transitions.push_back({{0, 5}, {Move{0, length - 1, length}, Move{1, length - 1, length}}});
  net.processes[0].labels[length] = {1};
  net.processes[0].labels[1] = {2};
  return net;
}

TEST(Distance, CountsTheTransitionsOfTheWay) {
  const Network net = lines(4);
  const Machine machine = makeMachine(net);
  Distance distance(net, machine, together({1}));
  EXPECT_EQ(distance.from(std::vector<std::uint32_t>{0, 0}.data()), 7);
  EXPECT_EQ(distance.from(std::vector<std::uint32_t>{2, 1}.data()), 4);
  EXPECT_FALSE(distance.helps(0));  // the first of the first process has been fired
  EXPECT_TRUE(distance.helps(2));
  EXPECT_TRUE(distance.helps(net.transitions.size() - 1));
  EXPECT_EQ(distance.from(std::vector<std::uint32_t>{4, 4}.data()), 0);
}

TEST(Distance, TellsWhereNoWayLeads) {
  const Network net = lines(4);
  const Machine machine = makeMachine(net);
  Distance past(net, machine, together({2}));
  EXPECT_EQ(past.from(std::vector<std::uint32_t>{0, 3}.data()), 1);
  EXPECT_FALSE(past.from(std::vector<std::uint32_t>{2, 0}.data()));
  Goal nowhere = together({7});
  EXPECT_FALSE(Distance(net, machine, nowhere).from(std::vector<std::uint32_t>{0, 0}.data()));
}

TEST(Distance, TakesTheCheapestPartsThatDo) {
  const Network net = lines(4);
  const Machine machine = makeMachine(net);
  PropertyItem count{PropertyItem::counter};
  count.operands = 3;
  count.most = 3;
  const std::vector<PropertyItem> parts{
      {PropertyItem::at, 3, 0}, {PropertyItem::at, 1, 1}, {PropertyItem::notAt, 0, 1}};
  for (const int least : {0, 1, 2, 3}) {
    Goal goal{"", parts, 1};
    count.least = least;
    goal.items.push_back(count);
    const int expected[] = {0, 1, 1, 4};
    EXPECT_EQ(Distance(net, machine, goal).from(std::vector<std::uint32_t>{0, 0}.data()),
              expected[least]);
  }
}

// Thousands of queries alone; the run is that of the greedy search then.
TEST(Proving, HasTheGreedySearchBeside) {
  const Network net = dealtNetwork(20, 120, 109);
  const Goal goal = together({11, 21, 31});
  long most = 0;
  const auto report = [&most](const ProverProgress& progress) { most = progress.queries; };
  const Proved found = proved(
      net, goal, [] { return false; }, report);
  ASSERT_TRUE(found.run);
  EXPECT_EQ(replay(net, goal, *found.run).complaint, "");
  EXPECT_LT(most, 20'000);

  // Until so many more queries, without it, there is no answer.
  ProvingOptions alone;
  alone.greedy = false;
  long queries = 0;
  const Proved none = proved(
      net, goal, [&] { return queries > 2 * most + 5000; },
      [&queries](const ProverProgress& progress) { queries = progress.queries; }, alone);
  EXPECT_FALSE(none.run);
}

}  // namespace

}  // namespace tpn
