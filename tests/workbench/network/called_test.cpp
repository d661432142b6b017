// What is said about a network file calls its parts by number and name.

#include "workbench/network/called.hpp"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/workbench/network/strictly.hpp"

namespace {

const std::string named =
    "names\n"
    "process 1 lamp\n"
    "location 1 0 off\n"
    "location 1 7 {far away}\n"
    "transition 1 push\n"
    "transition 2 _push2\n"
    "transition 3 pull\n";

// The message with this id, of the lamp with a change and names.
std::string said(const std::string& id, const std::string& from, const std::string& to,
                 const std::string& names = named) {
  const tpn::Diagnostics all = inNetwork(lampWith(from, to) + names).diagnostics;
  const auto found =
      std::find_if(all.begin(), all.end(), [&](const tpn::Diagnostic& d) { return d.id == id; });
  return found == all.end() ? "" : found->message;
}

std::string beginning(const std::string& message) { return message.substr(0, message.find(';')); }

TEST(Called, ByNumberAndName) {
  const tpn::Called called({{tpn::NameLine::process, 1, 0, "B", {}, {}},
                            {tpn::NameLine::process, 1, 0, "C", {}, {}},
                            {tpn::NameLine::location, 1, 5, "on fire", {}, {}},
                            {tpn::NameLine::proposition, 5, 0, "true", {}, {}}});
  EXPECT_EQ(called.process(1), "process 1 B");
  EXPECT_EQ(called.process(5), "process 5");
  EXPECT_EQ(called.location(1, 5), "location 5 {on fire}");
  EXPECT_EQ(called.location(2, 5), "location 5");
  EXPECT_EQ(called.transition(1), "transition 1");
  EXPECT_EQ(called.proposition(5), "proposition 5 {true}");
}

TEST(Called, ByAllThatIsSaidOfTransitions) {
  EXPECT_EQ(said("transition-number", "2 0 -1", "3 0 -1"),
            "transition 3 pull: the numbers have to go from 1 to 2, the number of these lines");
  EXPECT_EQ(said("transition-twice", "2 0 -1", "1 0 -1"),
            "transition 1 push has an interval already, in line 3");
  EXPECT_EQ(beginning(said("transition-undeclared", "2 1 0", "3 1 0")),
            "transition 3 pull has no interval");
  EXPECT_EQ(beginning(said("transition-unused", "2 1 0", "1 1 0")),
            "transition 2 _push2 is used by no process");
  EXPECT_EQ(said("move-twice", "2 1 0", "1 1 0"),
            "process 1 lamp has a move for transition 1 push already, in line 7");
}

TEST(Called, ByAllThatIsSaidOfTimes) {
  EXPECT_EQ(said("time-negative", "1 0 3", "1 -2 3"), "time -2 of transition 1 push is negative");
  EXPECT_EQ(beginning(said("interval-empty", "1 0 3", "1 4 3")),
            "earliest time 4 of transition 1 push is above the latest, 3");
  EXPECT_EQ(beginning(said("earliest-too-late", "2 0 -1", "2 4 -1")),
            "earliest time 4 of transition 2 _push2 exceeds 3, the largest latest time of all");
  EXPECT_EQ(beginning(said("time-too-large", "1 0 3", "1 0 1073741823")).substr(0, 38),
            "time 1073741823 of transition 1 push i");
}

TEST(Called, ByAllThatIsSaidOfLocations) {
  EXPECT_EQ(said("location-negative", "1 0 1", "1 0 -1", "names\nlocation 1 -1 down\n"),
            "location -1 down of process 1 is negative");
  EXPECT_EQ(said("label-unknown-location", "1 4 5", "7 4 5"),
            "location 7 {far away} occurs in no move of process 1 lamp");
  EXPECT_EQ(said("location-zero", "1 0 1\n2 1 0", "1 2 1\n2 1 2"),
            "process 1 lamp has no location 0, where it starts");
  EXPECT_EQ(
      beginning(said("location-gap", "1 0 1\n2 1 0\nvaluation\n1", "1 0 7\n2 7 0\nvaluation\n7")),
      "location 7 {far away} of process 1 lamp, but it has 2 only");
}

TEST(Called, InTheSectionOfNames) {
  EXPECT_EQ(said("name-twice", "lamp", "lamp", named + "process 1 bulb\n"),
            "process 1 lamp has a name already");
  EXPECT_EQ(said("name-twice", "lamp", "lamp", named + "location 1 0 out\n"),
            "location 0 off of process 1 lamp has a name already");
  EXPECT_EQ(said("name-unknown", "lamp", "lamp", "names\nprocess 1 lamp\nlocation 1 9 out\n"),
            "there is no location 9 of process 1 lamp");
}

}  // namespace
