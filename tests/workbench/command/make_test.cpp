// tpn make from outside.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/workbench/command/tpn.hpp"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST_F(Tpn, MakePrintsTheKeptFiles) {
  const Outcome net = tpn({"make", "fischer-swapped", "3"});
  EXPECT_EQ(net.status, 0);
  EXPECT_EQ(net.out, contents(place.folder() / "fischer-swapped.tpn"));
  EXPECT_EQ(tpn({"make", "fischer", "3", "violation"}).out,
            contents(place.folder() / "violation.tpn"));
}

TEST_F(Tpn, MakePrintsQuestionsInInfixToo) {
  EXPECT_EQ(tpn({"make", "fischer", "20", "violation", "--infix"}).out, "atleast(2, *.critical)\n");
  EXPECT_EQ(tpn({"make", "random", "2", "three", "--infix"}).out, "p11 && p21\n");
}

TEST_F(Tpn, MakeListsWhatThereIs) {
  const Outcome list = tpn({"make"});
  EXPECT_EQ(list.status, 0);
  EXPECT_THAT(list.out,
              StartsWith("NAME              SIZE                    PROPERTY\n"
                         "fischer           processes, 2 or more    critical violation\n"));
  EXPECT_THAT(list.out, HasSubstr("\nrandom            processes, 2 or more    one three\n"));
}

TEST_F(Tpn, MakeDrawsRandomNetworksByTheirSeed) {
  const std::string first = tpn({"make", "random", "3"}).out;
  EXPECT_THAT(first, StartsWith("random 3 30 1\n"));
  EXPECT_EQ(tpn({"make", "random", "3", "--seed", "1", "--transitions", "30"}).out, first);
  EXPECT_THAT(tpn({"make", "random", "3", "--seed", "2"}).out, StartsWith("random 3 30 2\n"));
}

TEST_F(Tpn, MakePrintsNetsOfOtherForms) {
  const std::string net = tpn({"make", "handshake", "1", "--format", "net"}).out;
  EXPECT_THAT(net, HasSubstr("\ntr give_up1 [4,4] "));
  const std::string pnml = tpn({"make", "handshake", "1", "--format", "pnml"}).out;
  EXPECT_THAT(pnml, StartsWith("<?xml"));
}

TEST_F(Tpn, MakeRefusesWhatThereIsNot) {
  const std::vector<std::pair<std::vector<std::string>, std::string>> refused{
      {{"fish", "3"}, "tpn: make: there is no fish; without arguments, it lists what there is\n"},
      {{"ring", "1"}, "tpn: make: ring has 2 or more stations\n"},
      {{"ring", "2", "down"},
       "tpn: make: there is no property down of ring; without arguments, it lists what there is\n"},
      {{"dining", "2", "stuck"},
       "tpn: make: stuck cannot be said in postfix; with --infix it can\n"},
      {{"random", "5", "--transitions", "9"},
       "tpn: make: random has at least twice as many transitions as processes\n"}};
  for (const auto& [arguments, message] : refused) {
    std::vector<std::string> all{"make"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    const Outcome outcome = tpn(all);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, message);
    EXPECT_EQ(outcome.out, "");
  }
}

TEST_F(Tpn, MakeTakesSizesThatAreNumbersOnly) {
  for (const std::string size : {"0", "-1", "3x", "", "10000000", "99999999999999999999"})
    EXPECT_EQ(tpn({"make", "ring", size}).status, 2) << size;
  EXPECT_EQ(tpn({"make", "ring"}).status, 2);
  EXPECT_EQ(tpn({"make", "ring", "3", "--format", "dot"}).status, 2);
  EXPECT_EQ(tpn({"make", "random", "3", "--seed", "0"}).status, 2);
}

TEST_F(Tpn, MadeNetworksAreWithoutMistakes) {
  for (const std::string name : {"crossing", "pipeline", "csma", "dining", "lossy", "random"}) {
    place.write("made.tpn", tpn({"make", name, "4"}).out);
    const Outcome lint = tpn({"lint", "made"});
    EXPECT_EQ(lint.status, 0) << name;
    EXPECT_EQ(lint.out, "") << name;
  }
}

}  // namespace
