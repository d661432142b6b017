// TINA's form of nets, piece by piece.

#include "workbench/nets/tinareader.hpp"

#include <gtest/gtest.h>

#include "workbench/nets/tinalexer.hpp"
#include "workbench/nets/tinawriter.hpp"

namespace tpn {
namespace {

PetriNet readTina(const std::string& text) {
  Diagnostics found;
  const auto net = readTina("net", text, found);
  for (const Diagnostic& d : found) ADD_FAILURE() << tpn::text(d) << "\n" << text;
  return net.value_or(PetriNet{});
}

std::vector<std::string> tinaComplaints(const std::string& text) {
  Diagnostics found;
  EXPECT_FALSE(readTina("net", text, found));
  std::vector<std::string> all;
  for (const Diagnostic& d : found)
    all.push_back(std::to_string(d.line) + ":" + std::to_string(d.column) + " " + d.id);
  return all;
}

using Indices = std::vector<std::size_t>;
using Complaints = std::vector<std::string>;

TEST(TinaReader, TakesTransitions) {
  const PetriNet net = readTina("tr t [2,5] a b?1 c*1 -> d");
  ASSERT_EQ(net.transitions.size(), 1U);
  const PetriNet::Transition& t = net.transitions[0];
  EXPECT_EQ(t.name, "t");
  EXPECT_EQ(t.interval, (Interval{2, 5}));
  EXPECT_EQ(t.consumed, (Indices{0, 2}));
  EXPECT_EQ(t.read, (Indices{1}));
  EXPECT_EQ(t.produced, (Indices{3}));
}

TEST(TinaReader, TakesPlacesWithTheirArcs) {
  const PetriNet net = readTina("pl a (1) t -> u v?1");
  ASSERT_EQ(net.transitions.size(), 3U);
  EXPECT_TRUE(net.places[0].marked);
  EXPECT_EQ(net.transitions[0].produced, (Indices{0}));
  EXPECT_EQ(net.transitions[1].consumed, (Indices{0}));
  EXPECT_EQ(net.transitions[2].read, (Indices{0}));
}

TEST(TinaReader, AddsDeclarationsUp) {
  const PetriNet net =
      readTina("tr t [1,2]\ntr t a ->\npl b t ->\npl a (1)\ntr t -> c\nlb t x\npl b : y");
  EXPECT_TRUE(net == readTina("pl a (1) pl b : y pl c tr t : x [1,2] a -> b c"));
}

TEST(TinaReader, NeedsNoLineEnds) {
  EXPECT_TRUE(readTina("net n tr t [0,w[ a -> b pl a (1)") ==
              readTina("net\nn\n\ntr\nt [ 0 ,\tw [ a\n-> b\r\npl a(1)\r\n"));
}

TEST(TinaReader, PassesOverComments) {
  EXPECT_TRUE(readTina("# pl x (2)\n  # too\npl a (1)\n#") == readTina("pl a (1)"));
}

TEST(TinaReader, HasNoLimitWhereNoneIsGiven) {
  EXPECT_EQ(readTina("tr t a ->").transitions[0].interval, Interval{});
  EXPECT_EQ(readTina("tr t [3,w[ a ->").transitions[0].interval, (Interval{3, {}}));
}

TEST(TinaReader, CountsInThousandsAndMillions) {
  EXPECT_EQ(readTina("tr t [3K,2M] a ->").transitions[0].interval, (Interval{3000, 2000000}));
}

TEST(TinaReader, TakesNamesInBraces) {
  const PetriNet net = readTina("pl {a b} pl {tr} pl {a\\}\\{\\\\c\\d}");
  EXPECT_EQ(net.places[0].name, "a b");
  EXPECT_EQ(net.places[1].name, "tr");
  EXPECT_EQ(net.places[2].name, "a}{\\c\\d");
  EXPECT_TRUE(readTina("pl {a}") == readTina("pl a"));
}

TEST(TinaReader, TakesAPlaceForConsumedThatIsReadAsWell) {
  const PetriNet net = readTina("tr t a?1 a -> a");
  EXPECT_EQ(net.transitions[0].consumed, (Indices{0}));
  EXPECT_TRUE(net.transitions[0].read.empty());
  EXPECT_EQ(net.transitions[0].produced, (Indices{0}));
}

TEST(TinaReader, MayHoldNothing) { EXPECT_TRUE(readTina("") == PetriNet{}); }

TEST(TinaReader, FindsEveryMistake) {
  EXPECT_EQ(
      tinaComplaints("pl a (2)\ntr t ]1,2] a*2 -> b\ntr u a?-1 -> b\ntr [\ntr v b! ->\npr t > u"),
      (Complaints{"1:7 net-marking", "2:6 net-interval-open", "2:12 net-weight",
                  "3:7 net-inhibitor", "4:4 net-syntax", "5:9 net-syntax", "6:1 net-priority"}));
}

TEST(TinaReader, GoesOnBehindAMistakeAtTheNextDeclaration) {
  EXPECT_EQ(tinaComplaints("tr t ( pl a (2)\n-> b (7)\npl b (2)"),
            (Complaints{"1:6 net-syntax", "3:7 net-marking"}));
}

TEST(TinaReader, WritesItsOwnNames) {
  for (const std::string name :
       {"a", "0", "a'b", "tr", "net", "w", "a b", "{}", "\\", "#", "a\tb"}) {
    EXPECT_EQ(readTina("pl " + tinaName(name)).places[0].name, name);
    EXPECT_EQ(readTina("tr t " + tinaName(name) + " ->").places[0].name, name);
  }
}

TEST(TinaNumber, StopsWhereItIsLargeEnough) {
  EXPECT_EQ(tinaNumber("12"), 12);
  EXPECT_EQ(tinaNumber("0012K"), 12000);
  EXPECT_EQ(tinaNumber("99999999999999999999999M"), 1'000'000'000'000'000);
  EXPECT_EQ(tinaNumber("K"), std::nullopt);
  EXPECT_EQ(tinaNumber("1k"), std::nullopt);
  EXPECT_EQ(tinaNumber(""), std::nullopt);
}

}  // namespace
}  // namespace tpn
