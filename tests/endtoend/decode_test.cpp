// The decoder on a state small enough to count its variables by hand.

#include "tests/endtoend/decode.hpp"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

// Two processes with 1 and 2 location bits, 3 integer bits, 2 fractional bits: 3 + 9 + 2 + 6 = 20
// variables a state; two states.
const char* const text = "2\n1 2 \n2 3 2\n1\n40\n3 5\n";

std::vector<bool> model(const std::vector<std::size_t>& trueVariables) {
  std::vector<bool> values(41, false);
  for (const std::size_t v : trueVariables) values[v] = true;
  return values;
}

TEST(Decode, ReadsTheMap) {
  const VariableMap map = parseMap(text);
  EXPECT_EQ(map.locationBits, (std::vector<int>{1, 2}));
  EXPECT_EQ(map.integerBits, 3);
  EXPECT_EQ(map.fractionBits, 2);
  EXPECT_EQ(map.length, 1);
  EXPECT_EQ(map.highestVariable, 40);
  EXPECT_EQ(map.transitions, 3);
}

TEST(Decode, RejectsAMapThatStopsShort) {
  EXPECT_THROW(parseMap("2\n1 2 \n2 3 2\n1\n40\n3\n"), std::runtime_error);
}

TEST(Decode, FindsLocationsLowestBitFirst) {
  const TimedRun run = decode(parseMap(text), model({1, 3}));
  EXPECT_EQ(run.states[0].state.locations, (std::vector<int>{1, 2}));
}

TEST(Decode, FindsTheDelayInSlotZero) {
  const TimedRun run = decode(parseMap(text), model({5, 15}));  // integer 2, fraction 1
  EXPECT_EQ(run.states[0].delay, 2 * run.unit + 1);
}

TEST(Decode, FindsTheClocksAfterIt) {
  const TimedRun run = decode(parseMap(text), model({7, 12, 18, 19}));  // 1 + 2/4 and 4 + 1/4
  EXPECT_EQ(run.states[0].state.clocks, (std::vector<std::int64_t>{6, 17}));
}

TEST(Decode, PassesOverTheSplitValue) {
  const TimedRun run = decode(parseMap(text), model({13, 14}));
  EXPECT_EQ(run.states[0].delay, 0);
  EXPECT_EQ(run.states[0].state.clocks, (std::vector<std::int64_t>{0, 0}));
}

TEST(Decode, FindsTheNextStateBehindTheFirst) {
  const TimedRun run = decode(parseMap(text), model({21, 40}));
  EXPECT_EQ(run.states[1].state.locations, (std::vector<int>{1, 0}));
  EXPECT_EQ(run.states[1].state.clocks, (std::vector<std::int64_t>{0, 2}));
}

TEST(Decode, ReadsVariablesThatDoNotOccurAsZero) {
  const char* const fewer = "2\n1 2 \n2 3 2\n1\n39\n3 5\n";
  EXPECT_EQ(decode(parseMap(fewer), model({40})).states[1].state.clocks[1], 0);
}

}  // namespace
