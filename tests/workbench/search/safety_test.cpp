// Whether a net is safe, as part of every question about it: what the engines say of a small one
// whose times decide.

#include <gtest/gtest.h>

#include "workbench/proof/checker.hpp"
#include "workbench/search/check.hpp"
#include "workbench/search/engines.hpp"

namespace tpn {
namespace {

// Place 2 gets a token from transition 1 at 3 at the earliest, if 3, which takes place 1's token
// for good, does not come before; transition 2 takes it away. Place 1 keeps its token by
// transition 1.
//   1  put   3 to 4  place 1 -> place 1, place 2
//   2  take  0 to `latest`  place 2 -> none
Network production(std::int64_t latest) {
  Network net;
  net.title = "production";
  net.processes = {{{0, 1}, {}}, {{0, 1}, {{1, {5}}}}};
  net.transitions = {{{3, 4}, {{0, 0, 0}, {1, 0, 1, false}}}, {{0, latest}, {{1, 1, 0}}}};
  net.names.processes = {{0, "producer"}, {1, "buffer"}};
  net.names.transitions = {{0, "put"}, {1, "take"}};
  return net;
}

const Goal never{"p9", {{PropertyItem::proposition, 9}}};
const Goal full{"p5", {{PropertyItem::proposition, 5}}};

Answer answerOf(const Network& net, const Goal& goal, Engine engine) {
  const std::atomic<bool> stop{false};
  const Watch::Report none;
  Watch watch(std::nullopt, stop, none);
  EngineOptions options;
  options.engine = engine;
  if (engine == Engine::bounded) options.maxTransitions = 6;
  return answered(net, orUnsafe(goal), options, watch);
}

class Safety : public testing::TestWithParam<Engine> {};

TEST_P(Safety, IsProvedWithTheAnswer) {
  const Answer found = answerOf(production(2), never, GetParam());
  ASSERT_EQ(found.kind, Answer::unreachable);
  ASSERT_TRUE(found.certificate);
  EXPECT_EQ(recheck(production(2), orUnsafe(never), *found.certificate, {}).complaint, "");
  EXPECT_EQ(headline(found), "unreachable\n");
}

INSTANTIATE_TEST_SUITE_P(Provers, Safety, testing::Values(Engine::prover, Engine::abc));

class Tokens : public testing::TestWithParam<Engine> {};

class Unsafety : public testing::TestWithParam<Engine> {};

// Taken away at 3 at the latest after it was put there, and that is when the next one may come.
TEST_P(Unsafety, IsTheAnswerWhereNothingElseIs) {
  const Answer found = answerOf(production(3), never, GetParam());
  ASSERT_EQ(found.kind, Answer::unsafe);
  EXPECT_EQ(found.run->steps.size(), 1U);
  EXPECT_EQ(found.reason, "after a delay of 3 transition put would put a second token on buffer");
  EXPECT_EQ(headline(found), "the net is not safe: after 1 transition, " + found.reason + "\n");
}

TEST_P(Unsafety, IsNoneWhereTheGoalIsReached) {
  const Network net = production(3);
  const Answer found = answerOf(net, full, GetParam());
  ASSERT_EQ(found.kind, Answer::reachable);
  EXPECT_EQ(unsafety(net, orUnsafe(full), *found.run), "");
}

// Place 3 gets a token from 1 until 4, which 2 takes away within 3, and another one at 5 from 3:
// the first one has to come at 2 or later, though it could at 0.
TEST_P(Unsafety, IsFoundWhereItTakesTime) {
  Network net;
  net.processes.assign(3, {{0, 1}, {}});
  net.transitions = {{{0, 4}, {{0, 0, 1}, {2, 0, 1, false}}},
                     {{0, 3}, {{2, 1, 0}}},
                     {{5, 6}, {{1, 0, 1}, {2, 0, 1, false}}}};
  const Answer found = answerOf(net, never, GetParam());
  ASSERT_EQ(found.kind, Answer::unsafe);
  EXPECT_EQ(found.run->steps.size(), 1U);
  EXPECT_GE(found.run->steps[0].delay, Rational(2));
}

// Its tokens are there, its time never comes.
TEST_P(Unsafety, IsNoneWhereNothingIsInTime) {
  Network net = production(3);
  net.transitions.push_back({{4, 4}, {{1, 1, 1}, {0, 1, 0, false}}});
  net.transitions[0].moves[1].target = 1;
  net.transitions[1].interval.latest = 2;
  const Answer found = answerOf(net, never, GetParam());
  EXPECT_EQ(found.kind, GetParam() == Engine::bounded ? Answer::undecided : Answer::unreachable);
}

// Process 1 looks at the token of process 2 each time unit, which process 2 gives away when it has
// had it for 2.
Network reading() {
  Network net;
  net.processes = {{{0}, {}}, {{0, 1}, {{1, {5}}}}};
  net.transitions = {{{1, 1}, {{0, 0, 0}, {1, 0, 0, true, false}}}, {{2, 2}, {{1, 0, 1}}}};
  return net;
}

TEST_P(Tokens, ThatAreOnlyReadGoOn) {
  const Answer found = answerOf(reading(), full, GetParam());
  ASSERT_EQ(found.kind, Answer::reachable);
  EXPECT_EQ(found.run->steps.back().transition, 1U);
}

TEST_P(Tokens, ThatAreGivenBackBeginAnew) {
  Network net = reading();
  net.transitions[0].moves[1].resets = true;
  const Answer found = answerOf(net, full, GetParam());
  EXPECT_EQ(found.kind, GetParam() == Engine::bounded ? Answer::undecided : Answer::unreachable);
}

// A clock that is looked at by no move that counts delays nothing: place 2 gets its token at 2,
// whenever it lost its last one.
TEST_P(Tokens, ThatArePutDownWaitForNothing) {
  Network net;
  net.processes = {{{0, 1}, {}}, {{0, 1}, {{1, {5}}}}};
  net.transitions = {{{1, 1}, {{1, 0, 0}}}, {{2, 2}, {{0, 0, 1}, {1, 0, 1, false}}}};
  const Answer found = answerOf(net, full, GetParam());
  ASSERT_EQ(found.kind, Answer::reachable);
  EXPECT_EQ(found.run->steps.back().transition, 1U);
}

INSTANTIATE_TEST_SUITE_P(Engines, Tokens,
                         testing::Values(Engine::both, Engine::bounded, Engine::prover,
                                         Engine::abc));

INSTANTIATE_TEST_SUITE_P(Engines, Unsafety,
                         testing::Values(Engine::both, Engine::bounded, Engine::prover,
                                         Engine::abc));

TEST(ClauseFiles, CannotSayWhatSuchNetsDo) {
  const std::atomic<bool> stop{false};
  const Watch::Report none;
  const auto refusal = [&](const Network& net) -> std::string {
    try {
      check(net, full, {}, stop, none);
    } catch (const std::runtime_error& e) {
      return e.what();
    }
    return "";
  };
  EXPECT_EQ(refusal(production(2)),
            "a clause file cannot say what transition put does: it puts a token on buffer without "
            "taking one");
  Network reading = production(2);
  reading.transitions[0].moves[1] = {1, 1, 1, true, false};
  EXPECT_EQ(refusal(reading),
            "a clause file cannot say what transition put does: it reads buffer without taking its "
            "token");
}

}  // namespace
}  // namespace tpn
