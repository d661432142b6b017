// What the script of a page is told about a run, against its replay.

#include "workbench/views/page/states.hpp"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/workbench/views/viewruns.hpp"
#include "workbench/views/rungeometry.hpp"

namespace tpn {
namespace {

struct Told {
  Shown shown;
  Replay replay;
  Json json;
};

Told told(const Shown& shown) {
  const Replay replay = tpn::replay(shown.net, shown.property, shown.run);
  return {shown, replay, statesJson(shown.net, shown.property, shown.run, replay, false)};
}

TEST(PageStates, AreThoseOfTheReplay) {
  for (const Told& t : {told(violation()), told(thirds()), told(named()), told(standstill())}) {
    ASSERT_EQ(t.json["states"].size(), t.replay.states.size());
    for (std::size_t i = 0; i < t.replay.states.size(); ++i) {
      const Json& state = t.json["states"][i];
      EXPECT_EQ(state["time"], t.replay.times[i].text());
      EXPECT_EQ(state["at"].get<Locations>(), t.replay.states[i].locations);
      for (std::size_t p = 0; p < t.shown.net.processes.size(); ++p)
        EXPECT_EQ(state["clocks"][p], t.replay.states[i].clocks[p].text());
    }
  }
}

TEST(PageStates, TellTheStepThatLedThere) {
  const Told t = told(violation());
  EXPECT_TRUE(t.json["states"][0]["step"].is_null());
  for (std::size_t i = 0; i < t.shown.run.steps.size(); ++i) {
    const Json& step = t.json["states"][i + 1]["step"];
    const Transition& fired = t.shown.net.transitions[t.shown.run.steps[i].transition];
    EXPECT_EQ(step["number"], number(t.shown.run.steps[i].transition));
    EXPECT_EQ(step["delay"], t.shown.run.steps[i].delay.text());
    ASSERT_EQ(step["moved"].size(), fired.moves.size());
    for (std::size_t m = 0; m < fired.moves.size(); ++m)
      EXPECT_EQ(step["moved"][m], fired.moves[m].process);
  }
}

TEST(PageStates, StandWhereTheRunsPictureHasThem) {
  const Told t = told(thirds());
  const RunGeometry at = geometryOf(t.shown.net, t.shown.property, t.shown.run, t.replay, false);
  EXPECT_EQ(t.json["lanes"]["top"], at.lanesTop);
  EXPECT_EQ(t.json["lanes"]["bottom"], at.lanesBottom);
  for (std::size_t i = 0; i < t.replay.states.size(); ++i) {
    EXPECT_EQ(t.json["states"][i]["from"], at.left(i));
    EXPECT_EQ(t.json["states"][i]["to"], at.right(i));
  }
}

TEST(PageStates, HaveAGoalWhereSomethingWasAsked) {
  const Told asked = told(violation());
  EXPECT_EQ(asked.json["goal"], asked.shown.run.goal);
  EXPECT_TRUE(told({violation().net, anything(), {{}, 0}}).json["goal"].is_null());
}

TEST(PageStates, NameWhatHasNames) {
  const Network net = named().net;
  EXPECT_EQ(processTitle(net, 0), processName(net, 0));
  EXPECT_EQ(processTitle(violation().net, 1), "process 2");
  EXPECT_EQ(locationTitle(violation().net, 1, 3), "location 3");
  EXPECT_EQ(transitionTitle(violation().net, 0), "transition 1");
  const Json processes = told(named()).json["processes"];
  ASSERT_EQ(processes.size(), net.processes.size());
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    for (const int l : net.processes[p].locations)
      EXPECT_EQ(processes[p]["locations"][std::to_string(l)], locationTitle(net, p, l));
}

}  // namespace
}  // namespace tpn
