// What is written beside an answer, and what is not where it comes too late.

#include "workbench/command/verdictoutput.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/driver/runprogram.hpp"
#include "tests/workbench/proof/endless.hpp"
#include "workbench/network/propertyreader.hpp"
#include "workbench/proof/certificatetext.hpp"

namespace tpn {
namespace {

// A proof whose clauses no file holds, until a signal.
class WriteCertificate : public testing::Test {
 protected:
  WriteCertificate() {
    Diagnostics none;
    asked = {endless::network(), *readProperty("", "p1\n", none)};
  }
  void write(bool flat) const {
    const Watch watch({}, stopped, report);
    writeCertificate(file, asked, endless::proof(), flat, watch);
  }

  Workplace place;
  std::string file = (place.folder() / "proof").string();
  Asked asked;
  std::atomic<bool> stopped{true};
  Watch::Report report;
};

TEST_F(WriteCertificate, FlatEndsWithTheWatch) {
  try {
    write(true);
    FAIL() << "it was written";
  } catch (const std::runtime_error& e) {
    EXPECT_EQ(e.what(), file + " is not written: interrupted");
  }
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(WriteCertificate, AsItWasFoundTakesNoTime) {
  write(false);
  EXPECT_EQ(readCertificateFile(file).proof, endless::proof());
}

}  // namespace
}  // namespace tpn
