// Networks as text and pictures, and the figures of their encoding against the model's own.

#include <gtest/gtest.h>

#include <map>
#include <regex>

#include "model/tpnmodel.hpp"
#include "tests/driver/runprogram.hpp"
#include "tests/workbench/views/viewruns.hpp"
#include "tests/workbench/views/xmlquery.hpp"
#include "workbench/encoding/statelength.hpp"

namespace tpn {

namespace {

std::vector<std::string> exampleNames() {
  const std::string root = ZERVAN_SOURCE_DIR "/examples/";
  return {root + "fischer/fischer",     root + "fischer/fischer-swapped",  root + "ring/ring",
          root + "crossing/crossing",   root + "crossing/crossing-slow",   root + "ring/ring-hasty",
          root + "handshake/handshake", root + "handshake/handshake-hasty"};
}

TEST(StateLength, IsThatOfTheModelThatWasRead) {
  for (const std::string& name : exampleNames()) {
    NetTimedModel model;
    model.readNetwork(name);
    model.compNrOfBits();
    const StateLength length = stateLength(networkIn(name + ".tpn"));
    EXPECT_EQ(length.variables, model.getSymStateLen()) << name;
    EXPECT_EQ(length.locationBits, model.totalNrVertBits) << name;
    EXPECT_EQ(length.integerBits, model.intPLen) << name;
    EXPECT_EQ(length.fractionBits, model.frPLen) << name;
  }
}

TEST(LargestBound, IsTheLastThatFits) {
  for (const std::int64_t variables : {1, 2, 7, 22, 67, 249999, 250000, 250001, 499999, 500000})
    for (const std::int64_t limit : {mostVariables, mostUnfolded}) {
      const auto k = largestBound({0, 0, 0, variables}, limit);
      if (k) {
        EXPECT_GE(*k, 1);
        EXPECT_LE((*k + 1) * variables, limit);
        EXPECT_GT((*k + 2) * variables, limit);
      } else {
        EXPECT_GT(2 * variables, limit) << "k = 1 would fit";
      }
    }
}

// zervan's own figure, from its refusal of the next one.
TEST(LargestBound, IsWhereZervanRefusesTheNext) {
  const std::string name = exampleNames()[2];
  const auto k = largestBound(stateLength(networkIn(name + ".tpn")), mostVariables);
  ASSERT_TRUE(k);
  const Workplace place;
  place.write("net.tpn", fileText(name + ".tpn"));
  place.write("phi.tpn", "p1\n");
  const Outcome refused = place.zervan({"net", "phi", std::to_string(*k + 1)});
  EXPECT_EQ(refused.status, 1);
  EXPECT_NE(refused.err.find(" " + std::to_string(*k)), std::string::npos) << refused.err;
}

TEST(NetworkText, SaysWhatEachTransitionDoes) {
  const std::string text = networkText(twoProcesses());
  EXPECT_NE(text.find("2 processes, 4 locations, 3 transitions (1 shared), 3 propositions\n"),
            std::string::npos);
  EXPECT_NE(text.find("  location 0, initial\n    1  [1, 2]    -> 1\n"), std::string::npos);
  EXPECT_NE(text.find("  location 1: p8 p9\n    3  [2, inf)  -> 0  with 1\n"), std::string::npos);
}

// Names in braces may hold any letters: columns, not bytes, are counted.
TEST(NetworkText, AlignsWhatIsDisplayed) {
  Network net = twoProcesses();
  net.names.transitions = {{0, "\u017c\u00f3\u0142w"}, {2, "dog"}};
  net.names.locations = {{{0, 0}, "\u5f85\u6a5f"}, {{0, 1}, "on"}};
  const std::string text = networkText(net);
  EXPECT_NE(text.find("    1 {\u017c\u00f3\u0142w}  [1, 2]    -> on\n"), std::string::npos) << text;
  EXPECT_NE(text.find("    3 dog     [2, inf)  -> {\u5f85\u6a5f}  with 2\n"), std::string::npos)
      << text;
}

// What dot makes of it; it has to do so without a word.
std::string drawn(const std::string& dot) {
  const Workplace place;
  place.write("net.dot", dot);
  const std::string command =
      "cd '" + place.folder().string() + "' && dot -Tsvg -o net.svg net.dot 2>complaints";
  EXPECT_EQ(std::system(command.c_str()), 0);
  EXPECT_EQ(place.read("complaints"), "");
  return place.read("net.svg");
}

// How often classes name each transition.
std::map<int, std::size_t> mentionsIn(const std::string& picture) {
  static const std::regex fires("fires-([0-9]+)");
  std::map<int, std::size_t> mentions;
  for (std::sregex_iterator it(picture.begin(), picture.end(), fires); it != std::sregex_iterator();
       ++it)
    ++mentions[std::stoi((*it)[1])];
  return mentions;
}

// One for each of its moves.
std::map<int, std::size_t> movesOf(const Network& net) {
  std::map<int, std::size_t> moves;
  for (std::size_t t = 0; t < net.transitions.size(); ++t)
    moves[number(t)] = net.transitions[t].moves.size();
  return moves;
}

TEST(NetworkDot, IsDrawnWithAllProcessesAndTransitions) {
  for (const std::string& name : exampleNames()) {
    SCOPED_TRACE(name);
    const Network net = networkIn(name + ".tpn");
    const std::string dot = networkDot(net, {.all = true});
    const XmlFile picture(drawn(dot));
    ASSERT_TRUE(picture.isWellFormed());
    EXPECT_EQ(picture.value("count(//*[@class=\"cluster\"])"),
              std::to_string(net.processes.size()));
    EXPECT_EQ(mentionsIn(dot), movesOf(net));
    EXPECT_EQ(mentionsIn(networkDot(net)), movesOf(net));
  }
}

TEST(NetworkDot, TitlesAreEscaped) {
  const XmlFile picture(drawn(networkDot(thirds().net)));
  ASSERT_TRUE(picture.isWellFormed());
  EXPECT_EQ(picture.value("string(//*[@class=\"graph\"]/*[name()=\"text\"])"),
            "two <processes> & a \"title\" \\ $end &lt; \xc5\xbc \xef\xbf\xbd");
}

// Black ones are shared: as many as there are arrows of shared transitions.
TEST(NetworkDot, SharedTransitionsAreMarked) {
  const std::string dot = networkDot(twoProcesses());
  EXPECT_NE(dot.find("p1_1_0_shared [class=\"shared fires-3\", label=\"3  [2, inf) with 2\\l\""),
            std::string::npos);
  EXPECT_NE(dot.find("p1_0_1 [class=\"local fires-1\", label=\"1  [1, 2]\\l\""), std::string::npos);
}

TEST(NetworkDot, LocationsAndTransitionsAreFoundByNumber) {
  const Network net = named().net;
  const XmlFile picture(drawn(networkDot(net)));
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    for (const int l : net.processes[p].locations)
      EXPECT_EQ(picture.value("count(//*[contains(concat(@class, \" \"), \" at-" +
                              std::to_string(number(p)) + "-" + std::to_string(l) + " \")])"),
                "1");
  for (std::size_t t = 0; t < net.transitions.size(); ++t)
    EXPECT_NE(picture.value("count(//*[contains(concat(@class, \" \"), \" fires-" +
                            std::to_string(number(t)) + " \")])"),
              "0");
}

}  // namespace

}  // namespace tpn
