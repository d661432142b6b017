// The model built in memory against the one that the core reads, and the unrolled clauses.

#include "workbench/encoding/encode.hpp"

#include <gtest/gtest.h>

#include <fstream>

#include "tests/driver/runprogram.hpp"
#include "tests/workbench/encoding/checknets.hpp"
#include "tests/workbench/search/explored.hpp"
#include "workbench/encoding/pattern.hpp"

namespace {

using tpn::Layout;

// Without the core's progress lines.
void readQuietly(NetTimedModel& model, const std::string& file) {
  testing::internal::CaptureStdout();
  model.readNetwork(file);
  testing::internal::GetCapturedStdout();
  model.compNrOfBits();
}

TEST(Encode, GivesTheModelThatTheCoreReads) {
  for (unsigned seed = 0; seed < 50; ++seed) {
    const Network net = randomNetwork(seed);
    const Workplace place;
    place.write("net.tpn", networkFile(net));
    NetTimedModel read;
    readQuietly(read, place.folder() / "net");
    const Explored e = converted(net);
    NetTimedModel built;
    tpn::encode(e.net, e.property, Layout::core, built);
    EXPECT_EQ(built.nrOfProcs, read.nrOfProcs);
    EXPECT_EQ(built.nrOfTrans, read.nrOfTrans);
    EXPECT_EQ(built.maxConst, read.maxConst);
    EXPECT_EQ(built.vertices, read.vertices);
    EXPECT_EQ(built.transProcs, read.transProcs);
    EXPECT_EQ(built.localTrans, read.localTrans);
    EXPECT_EQ(built.timeIntervals, read.timeIntervals);
    EXPECT_EQ(built.valuation, read.valuation);
    EXPECT_EQ(built.nrVertBits, read.nrVertBits);
    EXPECT_EQ(built.getSymStateLen(), read.getSymStateLen());
  }
}

TEST(Encode, CountsLocationsByRank) {
  tpn::Network net;
  net.processes = {{{0, 5, 70}, {{70, {3}}}}};
  net.transitions = {{{0, 1}, {{0, 0, 5}}}, {{6, {}}, {{0, 5, 70}}}};
  NetTimedModel model;
  tpn::encode(net, propertyOf("p3"), Layout::workbench, model);
  EXPECT_EQ(model.localTrans.at({1, 2}), NetTimedModel::Pair(1, 2));
  EXPECT_EQ(model.valuation.begin()->first.second, 2U);
  EXPECT_EQ(model.totalNrVertBits, 2);
  EXPECT_EQ(model.maxConst, 6);
}

TEST(Encode, CountsLocationsThatNoMoveMentions) {
  tpn::Network net;
  net.processes = {{{0, 1, 2, 3, 4}, {{4, {3}}}}};
  net.transitions = {{{0, 1}, {{0, 0, 1}}}};
  NetTimedModel model;
  tpn::encode(net, propertyOf("p3"), Layout::workbench, model);
  EXPECT_EQ(model.totalNrVertBits, 3);
}

TEST(Encode, WritesPropertiesAsTheCoreReadsThem) {
  for (const char* const text : {"T", "p1", "p-12", "p1p-2&p3+T&"})
    EXPECT_EQ(tpn::propertyText(propertyOf(text)), text);
}

// A pattern's values against the formula's, by enumeration.
TEST(Pattern, MeansWhatItsFormulasMean) {
  BoolForm::emptyStore();
  const BoolForm a(1);
  const BoolForm b(2);
  const BoolForm c(3);
  const BoolForm unused = con(a, neg(c));
  const BoolForm both = con(a, b);
  const BoolForm same = equ(neg(both), c);
  const BoolForm any = dis(same, neg(a));
  const tpn::Pattern pattern(3, {any, neg(both), BoolForm(true), BoolForm(false), neg(c), unused});
  BoolForm::emptyStore();
  for (int bits = 0; bits < 8; ++bits) {
    const bool x = (bits & 1) != 0;
    const bool y = (bits & 2) != 0;
    const bool z = (bits & 4) != 0;
    const std::vector<bool> expected{(!(x && y) == z) || !x, !(x && y), true, false, !z, x && !z};
    EXPECT_EQ(pattern.evaluate({false, x, y, z}), expected);
  }
}

TEST(Pattern, HasNoNodesButThoseOfItsFormulas) {
  BoolForm::emptyStore();
  const BoolForm first = con(BoolForm(1), BoolForm(2));
  con(BoolForm(1), BoolForm(3));
  EXPECT_EQ(tpn::Pattern(3, {first}).nodes.size(), 1U);
  BoolForm::emptyStore();
}

}  // namespace
