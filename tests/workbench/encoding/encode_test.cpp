// The model built in memory against the one that the core reads, and the unrolled clauses.

#include "workbench/encoding/encode.hpp"

#include <gtest/gtest.h>

#include <fstream>

#include "tests/driver/runprogram.hpp"
#include "tests/workbench/encoding/checknets.hpp"
#include "tests/workbench/search/explored.hpp"

namespace {

using tpn::LocationCoding;

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
    tpn::encode(e.net, e.property, LocationCoding::core, built);
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
  tpn::encode(net, propertyOf("p3"), LocationCoding::workbench, model);
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
  tpn::encode(net, propertyOf("p3"), LocationCoding::workbench, model);
  EXPECT_EQ(model.totalNrVertBits, 3);
}

TEST(Encode, GivesTheFormulaThatTheCoreReads) {
  for (const char* const text : {"T", "p1", "p-12", "p1p-2&p3+T&"})
    EXPECT_EQ(EctlForm(text), tpn::formulaOf(propertyOf(text)));
}

}  // namespace
