// tpn export from outside.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/driver/runprogram.hpp"
#include "workbench/base/files.hpp"

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

}  // namespace
