// The section behind the last "end", and names behind "process".

#include "workbench/network/namesreader.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/workbench/network/strictly.hpp"

namespace {

using testing::IsEmpty;

Found namesIn(const std::string& lines) { return inNetwork(lamp + "names\n" + lines); }

TEST(NamesSection, NamesPartsOfTheNetwork) {
  const Found found = namesIn(
      "process 1 lamp\n"
      "location 1 0 off\nlocation 1 1 {turned on}\n"
      "transition 2 _push2\n\n \n"
      "proposition 5 {brace \\} and \\\\}\r\n");
  ASSERT_TRUE(found.network);
  const tpn::Names& names = found.network->names;
  EXPECT_EQ(names.processes, (std::map<std::size_t, std::string>{{0, "lamp"}}));
  EXPECT_EQ(names.locations, (std::map<std::pair<std::size_t, int>, std::string>{
                                 {{0, 0}, "off"}, {{0, 1}, "turned on"}}));
  EXPECT_EQ(names.transitions, (std::map<std::size_t, std::string>{{1, "_push2"}}));
  EXPECT_EQ(names.propositions, (std::map<int, std::string>{{5, "brace } and \\"}}));
}

TEST(NamesSection, LeavesTheRestOfTheNetworkAsItIs) {
  Found found = namesIn("process 1 lamp\n");
  ASSERT_TRUE(found.network);
  found.network->names = {};
  EXPECT_EQ(*found.network, *inNetwork(lamp).network);
}

TEST(NamesSection, MayBeEmpty) {
  EXPECT_THAT(namesIn("").diagnostics, IsEmpty());
  EXPECT_EQ(namesIn("").network, inNetwork(lamp).network);
}

TEST(NamesSection, ComesBehindRemarksAtMost) {
  EXPECT_EQ(inNetwork(lamp + "remark\nnames\nprocess 1 lamp\n").ids(), (Ids{{14, "after-end"}}));
  EXPECT_EQ(namesIn("process 1 lamp\nremark\n").ids(), (Ids{{16, "name-line"}}));
}

TEST(NamesSection, AllMistakesAreToldInOneGo) {
  EXPECT_EQ(namesIn("lamp 1 lamp\nprocess one lamp\nprocess 1\nprocess\nlocation 1 lamp\n"
                    "process 1 atleast\nprocess 1 9lives\nprocess 1 {\nprocess 1 {}\n"
                    "process 1 a-b\nprocess 99999999999 a\n")
                .ids(),
            (Ids{{15, "name-line"},
                 {16, "name-line"},
                 {17, "name-line"},
                 {18, "name-line"},
                 {19, "name-line"},
                 {20, "name-malformed"},
                 {21, "name-malformed"},
                 {22, "name-malformed"},
                 {23, "name-malformed"},
                 {24, "name-malformed"},
                 {25, "name-line"}}));
  EXPECT_EQ(
      namesIn("process 2 a\nlocation 2 0 a\nlocation 1 2 a\ntransition 0 a\nproposition 6 a\n")
          .ids(),
      (Ids{{15, "name-unknown"},
           {16, "name-unknown"},
           {17, "name-unknown"},
           {18, "name-unknown"},
           {19, "name-unknown"}}));
}

TEST(NamesSection, OneNameStandsForOneThingOfAKind) {
  EXPECT_THAT(namesIn("process 1 x\nlocation 1 0 x\ntransition 1 x\nproposition 4 x\n").diagnostics,
              IsEmpty());
  EXPECT_EQ(namesIn("location 1 0 x\nlocation 1 1 x\n").ids(), (Ids{{16, "name-twice"}}));
  EXPECT_EQ(namesIn("location 1 0 x\nlocation 1 0 y\n").ids(), (Ids{{16, "name-twice"}}));
  EXPECT_EQ(namesIn("transition 1 x\ntransition 2 x\n").ids(), (Ids{{16, "name-twice"}}));
  EXPECT_EQ(namesIn("proposition 4 x\nproposition 5 x\n").ids(), (Ids{{16, "name-twice"}}));
}

TEST(ProcessHeading, NamesItsProcess) {
  const Found found = inNetwork(lampWith("process\n", "process lamp\n"));
  ASSERT_TRUE(found.network);
  EXPECT_EQ(found.network->names.processes, (std::map<std::size_t, std::string>{{0, "lamp"}}));
  EXPECT_EQ(inNetwork(lampWith("process\n", "process lamp\n") + "names\nprocess 1 lamp\n").ids(),
            (Ids{{15, "name-twice"}}));
}

TEST(ProcessHeading, IsARemarkWhereItIsNoName) {
  for (const std::string remark :
       {"process 1", "process true", "process the lamp", "processes lamp", "process lamp 1",
        "process {a b}", "process -"}) {
    const Found found = inNetwork(lampWith("process\n", remark + "\n"));
    EXPECT_EQ(found.network, inNetwork(lamp).network) << remark;
  }
}

TEST(ProcessHeading, IsARemarkWhereItStandsTwice) {
  const std::string another = "end\nprocess lamp\n2 0 0\nvaluation\nendval\nend\n";
  const Found found =
      inNetwork(replaced(lampWith("process\n", "process lamp\n"), "end\nend\n", another + "end\n"));
  ASSERT_TRUE(found.network);
  EXPECT_THAT(found.network->names.processes, IsEmpty());
}

TEST(ProcessHeading, IsMissedBehindAnEndThatComesTooEarly) {
  const std::string another = "process bulb\n2 0 0\nvaluation\nendval\nend\nend\n";
  EXPECT_EQ(inNetwork(lamp + another).ids(), (Ids{{14, "end-too-early"}}));
}

}  // namespace
