// tpn export from outside.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/driver/runprogram.hpp"
#include "tests/workbench/proof/endless.hpp"
#include "workbench/base/files.hpp"
#include "workbench/network/propertyreader.hpp"
#include "workbench/network/writer.hpp"
#include "workbench/proof/certificatetext.hpp"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

class Export : public testing::Test {
 protected:
  void SetUp() override {
    const std::string examples = std::string(ZERVAN_SOURCE_DIR) + "/examples/fischer/";
    for (const std::string name : {"fischer", "violation", "critical"})
      place.write(name + ".tpn", tpn::readFile(examples + name + ".tpn"));
  }

  Outcome run(const std::vector<std::string>& arguments) const {
    std::vector<std::string> all{"export"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return place.run(TPN_BINARY, all);
  }

  Workplace place;
};

TEST_F(Export, WritesTextOrBytesByTheSuffix) {
  EXPECT_EQ(run({"fischer", "violation", "--aiger", "f.aag"}).status, 0);
  EXPECT_THAT(place.read("f.aag"), StartsWith("aag "));
  EXPECT_THAT(place.read("f.aag"), HasSubstr("\nl0 1@1\n"));
  EXPECT_EQ(run({"fischer", "violation", "--aiger", "f.aig"}).status, 0);
  EXPECT_THAT(place.read("f.aig"), StartsWith("aig "));
}

TEST_F(Export, WritesTheWitnessOfAProofOfItsOwn) {
  EXPECT_EQ(run({"fischer", "violation", "--aiger", "f.aig", "--witness", "w.aag"}).status, 0);
  EXPECT_THAT(place.read("w.aag"), HasSubstr("\ni0 =2\n"));
  EXPECT_THAT(place.read("w.aag"), HasSubstr("\nc\nWITNESS b0 f.aig\n"));
}

TEST_F(Export, HasNoWitnessOfWhatCanBeReached) {
  const Outcome outcome = run({"fischer", "critical", "--aiger", "f.aig", "--witness", "w.aag"});
  EXPECT_THAT(outcome.err, HasSubstr("there is no proof"));
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(Export, TakesADeadlockInPlaceOfAProperty) {
  EXPECT_EQ(run({"--deadlock", "fischer", "--aiger", "f.aag"}).status, 0);
  EXPECT_THAT(place.read("f.aag"), HasSubstr("is bad where: deadlock"));
}

TEST_F(Export, MakesNoSenseWithoutAQuestionOrAnotherSuffix) {
  EXPECT_EQ(run({"fischer", "--aiger", "f.aag"}).status, 2);
  EXPECT_EQ(run({"fischer", "violation", "--deadlock", "--aiger", "f.aag"}).status, 2);
  EXPECT_EQ(run({"fischer", "violation", "--aiger", "f.txt"}).status, 2);
  EXPECT_EQ(run({"fischer", "violation"}).status, 2);
}

// Of a proof that is too long to be checked, once it is stopped.
class ExportEnds : public Export {
 protected:
  void SetUp() override {
    tpn::Diagnostics none;
    const tpn::Network net = tpn::endless::network();
    const tpn::Property phi = *tpn::readProperty("", "p1\n", none);
    place.write("net.tpn", tpn::networkFile(net));
    place.write("phi.tpn", "p1\n");
    place.write("proof", tpn::certificateText({tpn::statement(net, {phi}), tpn::endless::proof()}));
  }
  const std::vector<std::string> asked{"export",    "net",   "phi",           "--aiger", "f.aag",
                                       "--witness", "w.aag", "--certificate", "proof"};
};

TEST_F(ExportEnds, WithTheTimeAndWithoutAWitness) {
  std::vector<std::string> timed = asked;
  timed.insert(timed.end(), {"--timeout", "1"});
  const Outcome outcome = place.run(TPN_BINARY, timed);
  EXPECT_EQ(outcome.out, "undecided: the time is over\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 30);
  EXPECT_FALSE(std::filesystem::exists(place.folder() / "w.aag"));
}

TEST_F(ExportEnds, OnASignal) {
  std::vector<std::string> sent{"--preserve-status", "-s", "INT", "1", TPN_BINARY};
  sent.insert(sent.end(), asked.begin(), asked.end());
  const Outcome outcome = place.run("timeout", sent);
  EXPECT_EQ(outcome.out, "undecided: interrupted\n");
  EXPECT_EQ(outcome.status, 30);
}

TEST_F(ExportEnds, WhileItSearchesForAProof) {
  const Outcome outcome =
      run({"net", "phi", "--aiger", "f.aag", "--witness", "w.aag", "--timeout", "0.000001"});
  EXPECT_EQ(outcome.out, "undecided: the time is over\n");
  EXPECT_EQ(outcome.status, 30);
}

}  // namespace
