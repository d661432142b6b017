// Value change dumps, read back by a reader of their own and compared with the replay.

#include <gtest/gtest.h>

#include <regex>

#include "tests/workbench/views/vcdreader.hpp"
#include "tests/workbench/views/viewruns.hpp"

namespace tpn {

namespace {

Vcd dumpOf(const Shown& shown) {
  return VcdReader(runVcd(shown.net, shown.property, shown.run)).read();
}

struct Scale {
  std::int64_t slots = 0;
  std::int64_t parts = 0;
  std::int64_t ticksPerUnit = 0;
};

// As the comment in the file tells it.
Scale scaleIn(const Vcd& vcd) {
  static const std::regex sentence(
      "One time unit is ([0-9]+) ticks.*floor\\(tick / ([0-9]+)\\) / ([0-9]+)\\.");
  std::smatch found;
  EXPECT_TRUE(std::regex_search(vcd.comment, found, sentence)) << vcd.comment;
  if (found.size() != 4) return {1, 1, 1};
  return {std::stoll(found[2]), std::stoll(found[3]), std::stoll(found[1])};
}

Rational timeOf(const VcdMoment& moment, const Scale& scale) {
  return {moment.tick / scale.slots, scale.parts};
}

std::int64_t whole(const VcdMoment& moment, const std::string& signal) {
  return std::stoll(moment.values.at("network." + signal).substr(1), nullptr, 2);
}

double clockOf(const VcdMoment& moment, std::size_t process) {
  return std::stod(
      moment.values.at("network.process_" + std::to_string(process + 1) + ".clock").substr(1));
}

void expectState(const VcdMoment& moment, const Shown& shown, const TimedState& state) {
  for (std::size_t p = 0; p < state.locations.size(); ++p) {
    EXPECT_EQ(whole(moment, "process_" + std::to_string(p + 1) + ".location"), state.locations[p]);
    EXPECT_EQ(clockOf(moment, p), state.clocks[p].value());
  }
  const std::set<int> held = propositionsAt(shown.net, state.locations);
  for (const int q : propositions(shown.net))
    EXPECT_EQ(moment.values.at("network.p" + std::to_string(q)), held.contains(q) ? "1" : "0");
  EXPECT_EQ(moment.values.at("network.property"),
            holds(shown.property, {held, {}, false}) ? "1" : "0");
}

// Every moment is the initial one, the passing of time, a step, or the end, in this order.
void expectReplay(const Shown& shown) {
  const Replay replayed = replay(shown.net, shown.property, shown.run);
  const Vcd vcd = dumpOf(shown);
  const Scale scale = scaleIn(vcd);
  ASSERT_FALSE(vcd.moments.empty());
  EXPECT_EQ(vcd.moments[0].tick, 0);
  expectState(vcd.moments[0], shown, replayed.states[0]);
  std::size_t m = 1;
  for (std::size_t i = 0; i < shown.run.steps.size(); ++i) {
    const Step& step = shown.run.steps[i];
    if (step.delay > 0) {
      const VcdMoment& passed = vcd.moments.at(m++);
      EXPECT_EQ(timeOf(passed, scale), replayed.times[i + 1]);
      EXPECT_EQ(whole(passed, "step"), i);
      EXPECT_TRUE(passed.events.empty());
      for (std::size_t p = 0; p < shown.net.processes.size(); ++p)
        EXPECT_EQ(clockOf(passed, p), (replayed.states[i].clocks[p] + step.delay).value());
    }
    const VcdMoment& fired = vcd.moments.at(m++);
    EXPECT_EQ(timeOf(fired, scale), replayed.times[i + 1]);
    EXPECT_EQ(whole(fired, "step"), i + 1);
    EXPECT_EQ(whole(fired, "transition"), step.transition + 1);
    EXPECT_EQ(fired.events, std::set<std::string>{"network.fired"});
    expectState(fired, shown, replayed.states[i + 1]);
  }
  EXPECT_EQ(vcd.moments.size(), m + 1);
  EXPECT_EQ(timeOf(vcd.moments.back(), scale), replayed.times.back());
}

TEST(RunVcd, FixedRunsReadBack) {
  for (const Shown& shown : {violation(), thirds(), standstill()}) expectReplay(shown);
}

TEST(RunVcd, RandomRunsReadBack) {
  for (unsigned seed = 1; seed <= 100; ++seed) {
    SCOPED_TRACE(seed);
    expectReplay(randomShown(seed, 15));
  }
}

TEST(RunVcd, ManySignalsHaveCodesOfTheirOwn) {
  Shown shown = standstill();
  shown.net.processes.resize(5000, {{0}, {}});
  EXPECT_EQ(dumpOf(shown).signals.size(), 4U + 3U + 2U * 5000U);
  expectReplay(shown);
}

TEST(RunVcd, ASecondIsATimeUnitWherePossible) {
  EXPECT_EQ(dumpOf(violation()).timescale,
            "10us");  // quarters: 100 parts of 1000 ticks
  EXPECT_EQ(dumpOf(standstill()).timescale, "10ms");
}

TEST(RunVcd, OtherwiseTheCommentTellsTheScale) {
  const Vcd vcd = dumpOf(thirds());
  EXPECT_EQ(vcd.timescale, "1ns");
  const Scale scale = scaleIn(vcd);
  EXPECT_EQ(scale.parts, 3);
  EXPECT_EQ(scale.ticksPerUnit, scale.parts * scale.slots);
}

TEST(RunVcd, TooFineTimesAreRefused) {
  Shown shown;
  shown.net.transitions = {{{0, {}}, {{0, 0, 0}}}};
  shown.net.processes = {{{0}, {}}};
  shown.property = anything();
  shown.run.steps = {fires(1, Rational(1, 1000000007)), fires(1, Rational(1000000006, 1000000007)),
                     fires(1, 8000000000)};
  EXPECT_THROW(runVcd(shown.net, shown.property, shown.run), std::overflow_error);
}

TEST(RunVcd, HasNamesForSignalsAndValues) {
  const Vcd vcd = dumpOf(named());
  EXPECT_TRUE(vcd.signals.contains("network.alice_in"));
  EXPECT_TRUE(vcd.signals.contains("network._step_21"));  // not to be taken for the signal
  EXPECT_TRUE(vcd.signals.contains("network.alice.clock"));
  EXPECT_TRUE(vcd.signals.contains("network._bob___co_2.location"));
  const VcdMoment& last = vcd.moments.back();
  EXPECT_EQ(last.values.at("network.alice.location_name"), "sidle");
  EXPECT_EQ(last.values.at("network._bob___co_2.location_name"), "scritical");
  EXPECT_EQ(vcd.moments.at(1).values.at("network.transition_name"), "swish");
  EXPECT_NE(vcd.comment.find("Held: alice.critical, {bob & co}.critical."), std::string::npos)
      << vcd.comment;
}

// A title cannot end its comment.
TEST(RunVcd, TitleStaysInItsComment) {
  EXPECT_NE(dumpOf(thirds()).comment.find("_end"), std::string::npos);
}

}  // namespace

}  // namespace tpn
