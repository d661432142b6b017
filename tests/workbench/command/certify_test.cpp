// tpn certify from outside.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/driver/runprogram.hpp"
#include "tests/workbench/proof/endless.hpp"
#include "tests/workbench/proof/fischer.hpp"
#include "workbench/base/files.hpp"
#include "workbench/network/propertyreader.hpp"
#include "workbench/network/strictread.hpp"
#include "workbench/network/writer.hpp"
#include "workbench/proof/certificatetext.hpp"

namespace {

using namespace tpn;
using testing::EndsWith;
using testing::HasSubstr;

class Certify : public testing::Test {
 protected:
  void SetUp() override {
    for (const std::string name : {"fischer", "violation", "critical"})
      place.write(name + ".tpn", readFile(examples + name + ".tpn"));
    Diagnostics none;
    const Network net = *readNetwork("", readFile(examples + "fischer.tpn"), none);
    const Property phi = *readProperty("", readFile(examples + "violation.tpn"), none);
    const std::size_t size = net.processes.size() - 1;  // and the variable
    file = {statement(net, {phi}), fischer::proof(size)};
  }

  Outcome certify(const std::string& net, const std::string& phi) const {
    place.write("proof", certificateText(file));
    return place.run(TPN_BINARY, {"certify", net, phi, "proof"});
  }

  const std::string examples = std::string(ZERVAN_SOURCE_DIR) + "/examples/fischer/";
  Workplace place;
  CertificateFile file;
};

TEST_F(Certify, ExitsWith0WhereTheProofIsRight) {
  const Outcome outcome = certify("fischer", "violation");
  EXPECT_EQ(outcome.out, "unreachable: the certificate proves it\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(Certify, SaysWhatFails) {
  file.proof.clauses.erase(file.proof.clauses.begin());
  const Outcome outcome = certify("fischer", "violation");
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err, HasSubstr("proof: transition"));
  EXPECT_THAT(outcome.err, HasSubstr("leads outside: clause"));
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(Certify, RefusesAnotherQuestionsProof) {
  const Outcome outcome = certify("fischer", "critical");
  EXPECT_EQ(outcome.err, "proof: the certificate is about another goal\n");
  EXPECT_EQ(outcome.status, 1);
  file.about.network = file.about.goal;
  EXPECT_EQ(certify("fischer", "violation").err,
            "proof: the certificate is about another network\n");
}

TEST_F(Certify, WorksTheUnitOut) {
  file.about.unit = 2;
  EXPECT_EQ(certify("fischer", "violation").err, "proof: the unit of time is 1, not 2\n");
}

TEST_F(Certify, NamesTheLineItCannotRead) {
  place.write("bad", "tpn certificate 2\n");
  const Outcome outcome = place.run(TPN_BINARY, {"certify", "fischer", "violation", "bad"});
  EXPECT_THAT(outcome.err, EndsWith("bad: line 1: expected 'tpn certificate 1'\n"));
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(Certify, TakesADeadlockInPlaceOfAProperty) {
  Diagnostics none;
  const Network net = *readNetwork("", readFile(examples + "fischer.tpn"), none);
  file = {statement(net, deadlockProperty()), {}};
  place.write("proof", certificateText(file));
  const Outcome outcome = place.run(TPN_BINARY, {"certify", "--deadlock", "fischer", "proof"});
  EXPECT_EQ(outcome.err, "proof: a goal state is inside\n");  // a process waits for a value
  EXPECT_EQ(outcome.status, 1);
}

// Of a question and a proof without end, once it is stopped.
class CertifyEnds : public testing::Test {
 protected:
  void SetUp() override {
    place.write("net.tpn", networkFile(endless::network()));
    place.write("phi.tpn", "p1\n");
    Diagnostics none;
    const Network net = *readNetwork("", place.read("net.tpn"), none);
    const Property phi = *readProperty("", "p1\n", none);
    place.write("proof", certificateText({statement(net, {phi}), endless::proof()}));
  }

  Workplace place;
};

TEST_F(CertifyEnds, WithTheTime) {
  const Outcome outcome =
      place.run(TPN_BINARY, {"certify", "net", "phi", "proof", "--timeout", "1"});
  EXPECT_EQ(outcome.out, "undecided: the time is over\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 30);
}

TEST_F(CertifyEnds, OnASignal) {
  const Outcome outcome = place.run(
      "sh", {"-c", "timeout --preserve-status -s INT 1 " TPN_BINARY " certify net phi proof"});
  EXPECT_EQ(outcome.out, "undecided: interrupted\n");
  EXPECT_EQ(outcome.status, 30);
}

TEST_F(Certify, WithoutACertificateMakesNoSense) {
  EXPECT_EQ(place.run(TPN_BINARY, {"certify", "fischer", "violation"}).status, 2);
  EXPECT_EQ(place.run(TPN_BINARY, {"certify", "--deadlock", "a", "b", "c"}).status, 2);
}

}  // namespace
