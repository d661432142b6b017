// Networks as nets, and back.

#include "workbench/nets/bridge.hpp"

#include <gtest/gtest.h>

#include "tests/workbench/nets/writable.hpp"
#include "workbench/nets/pnmlreader.hpp"
#include "workbench/nets/pnmlwriter.hpp"
#include "workbench/nets/tinareader.hpp"
#include "workbench/nets/tinawriter.hpp"

namespace tpn {
namespace {

std::string told(const Diagnostics& found) {
  std::string all;
  for (const Diagnostic& d : found) all += text(d) + "\n";
  return all;
}

std::optional<Network> back(const PetriNet& net, Diagnostics& found) {
  NetReport report("net", found);
  return originalNetwork(net, report);
}

TEST(Bridge, LeadsBackToTheSameNetwork) {
  WritableNets nets(1);
  for (int i = 0; i < 2000; ++i) {
    const Network net = nets.next();
    Diagnostics found;
    const auto again = back(petriNetOf(net), found);
    ASSERT_TRUE(again) << told(found);
    ASSERT_EQ(*again, net);
  }
}

TEST(Bridge, LeadsThroughTinasForm) {
  WritableNets nets(2);
  for (int i = 0; i < 2000; ++i) {
    const Network net = nets.next();
    const std::string file = tinaFile(petriNetOf(net));
    Diagnostics found;
    const auto read = readTina("net", file, found);
    ASSERT_TRUE(read) << told(found) << file;
    ASSERT_TRUE(*read == petriNetOf(net)) << file;
    const auto again = back(*read, found);
    ASSERT_TRUE(again) << told(found) << file;
    ASSERT_EQ(*again, net) << file;
  }
}

TEST(Bridge, LeadsThroughPnml) {
  WritableNets nets(3);
  for (int i = 0; i < 1000; ++i) {
    const Network net = nets.next();
    const std::string file = pnmlFile(petriNetOf(net));
    Diagnostics found;
    const auto read = readPnml("net", file, found);
    ASSERT_TRUE(read) << told(found) << file;
    ASSERT_TRUE(*read == petriNetOf(net)) << file;
    const auto again = back(*read, found);
    ASSERT_TRUE(again) << told(found) << file;
    ASSERT_EQ(*again, net) << file;
  }
}

TEST(Bridge, KeepsBlanksAroundATitle) {
  Network net = twoProcesses();
  net.title = "\t two ";
  Diagnostics found;
  const auto read = readPnml("net", pnmlFile(petriNetOf(net)), found);
  ASSERT_TRUE(read) << told(found);
  EXPECT_EQ(back(*read, found), net);
}

TEST(Bridge, RefusesInPnmlWhatXmlCannotSay) {
  Network net = twoProcesses();
  for (const std::string title : {"\x80", "a\x01", "a\r"}) {
    net.title = title;
    EXPECT_THROW(pnmlFile(petriNetOf(net)), Inexact);
  }
}

TEST(Bridge, LooksLikeThisInTinasForm) {
  Network net = twoProcesses();
  net.names.processes[0] = "lamp";
  net.names.transitions[2] = "both go";
  EXPECT_EQ(tinaFile(petriNetOf(net)),
            "# tpn processes 1\n"
            "# place {lamp.0} 1 0\n"
            "# place {lamp.1} 1 1 7\n"
            "# place p2_0 2 0\n"
            "# place p2_1 2 1 8 9\n"
            "# process 1 lamp\n"
            "# transition 3 {both go}\n"
            "# tpn end\n"
            "net two\n"
            "pl {lamp.0} (1)\n"
            "pl {lamp.1}\n"
            "pl p2_0 (1)\n"
            "pl p2_1\n"
            "tr t1 [1,2] {lamp.0} -> {lamp.1}\n"
            "tr t2 [0,3] p2_0 -> p2_1\n"
            "tr {both go} [2,w[ {lamp.1} p2_1 -> {lamp.0} p2_0\n");
}

TEST(Bridge, RefusesAnEarliestTimeAboveTheLatest) {
  Network net = twoProcesses();
  net.transitions[1].interval = {3, 2};
  try {
    petriNetOf(net);
    FAIL();
  } catch (const Inexact& e) {
    EXPECT_STREQ(e.what(),
                 "transition t2 has the earliest time 3 and the latest time 2; no net can say that "
                 "time stops before a transition may fire");
  }
}

TEST(Bridge, GivesEveryPlaceANameOfItsOwn) {
  Network net = twoProcesses();
  net.names.processes = {{0, "a.b"}, {1, "a"}};
  net.names.locations = {{{0, 0}, "c"}, {{1, 0}, "b.c"}};
  const PetriNet made = petriNetOf(net);
  EXPECT_EQ(made.places[0].name, "a.b.c");
  EXPECT_EQ(made.places[2].name, "a.b.c'");
}

// What the origin says is held against the net.
class Misfit : public testing::Test {
 protected:
  PetriNet net_ = petriNetOf(twoProcesses());

  std::string complaint() {
    Diagnostics found;
    EXPECT_FALSE(back(net_, found));
    return found.empty() ? "" : found.front().message;
  }
};

TEST_F(Misfit, ATokenMore) {
  net_.places[1].marked = true;
  EXPECT_EQ(complaint(),
            "of each process the location 0, and no other, holds a token at first; delete what is "
            "told of the processes to read the net without");
}

TEST_F(Misfit, ATokenProduced) {
  net_.transitions[0].produced.push_back(2);
  EXPECT_EQ(complaint().find("transition \"t1\" does not take and put one token of each process"),
            0);
}

TEST_F(Misfit, APlaceMore) {
  net_.places.push_back({"more", "", false, {}});
  net_.origin->spots.emplace_back();
  EXPECT_EQ(complaint().find("no process is told of place \"more\""), 0);
}

TEST_F(Misfit, ALocationTwice) {
  net_.origin->spots[1].location = 0;
  EXPECT_EQ(complaint().find("another place is this location already"), 0);
}

TEST_F(Misfit, AProcessWithoutPlaces) {
  net_.origin->spots[2].process = net_.origin->spots[3].process = 4;
  EXPECT_EQ(complaint().find("process 2 has no location 0"), 0);
}

TEST_F(Misfit, AReadArc) {
  net_.transitions[0].read.push_back(2);
  EXPECT_EQ(complaint().find("transition \"t1\" does not take and put"), 0);
}

TEST_F(Misfit, ANameOfNothing) {
  net_.origin->names = {{NameLine::process, 3, 0, "third", {}, {}}};
  EXPECT_EQ(complaint(), "there is no process 3");
}

}  // namespace
}  // namespace tpn
