// Output files that can be opened and then not be written: the run goes on to its end, and says so.

#include <gtest/gtest.h>
#include <sys/mount.h>

#include <csignal>
#include <filesystem>
#include <set>
#include <string>

#include "tests/driver/runprogram.hpp"
#include "tests/driver/transcript.hpp"

namespace {

namespace fs = std::filesystem;

const std::string progress =
    "Creating symbolic paths\nEnd of symbolic path: 393\nTranslation\ntranslation : 396\n"
    "End of translation: 396\nCreating clauses: 1243\nWriting down clauses \n"
    "Time consumed : #\n";
const std::string map = "2\n1 1 \n2 4 2\n3\n88\n3 6\n";

std::string noSpace(const std::string& file) {
  return "zervan: cannot write " + file + ": No space left on device\n";
}

class WriteFailure : public testing::Test {
 protected:
  void SetUp() override {
    place.write("net.tpn", twoNetwork);
    place.write("phi.tpn", "p3\n");
  }

  void fill(const std::string& name) const {
    fs::create_symlink("/dev/full", place.folder() / name);
  }

  // A whole run, its reports included, then `told` on standard error.
  void expectTold(const Outcome& run, const std::string& told) const {
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(masked(run.out), twoRead + "Formula is read\nConjunction: 397\n" + reports);
    EXPECT_EQ(masked(run.err), progress + told);
  }

  Workplace place;
};

TEST_F(WriteFailure, OfTheClausesIsTold) {
  fill("netk3.cnf");
  expectTold(place.zervan({"net", "phi", "3"}), noSpace("netk3.cnf"));
  EXPECT_EQ(place.read("netk3.lck"), map);
  EXPECT_FALSE(place.read("bmctime.out").empty());
}

TEST_F(WriteFailure, OfTheMapIsTold) {
  fill("netk3.lck");
  expectTold(place.zervan({"net", "phi", "3"}), noSpace("netk3.lck"));
  EXPECT_EQ(place.read("netk3.cnf").size(), 15530U);
}

TEST_F(WriteFailure, OfTheLogIsTold) {
  fill("bmctime.out");
  expectTold(place.zervan({"net", "phi", "3"}), noSpace("bmctime.out"));
  EXPECT_EQ(place.read("netk3.cnf").size(), 15530U);
  EXPECT_EQ(place.read("netk3.lck"), map);
}

TEST_F(WriteFailure, OfAllFilesIsToldOfEach) {
  for (const std::string name : {"netk3.cnf", "netk3.lck", "bmctime.out"}) fill(name);
  expectTold(place.zervan({"net", "phi", "3"}),
             noSpace("netk3.cnf") + noSpace("netk3.lck") + noSpace("bmctime.out"));
}

TEST_F(WriteFailure, IsToldAfterTheLastReport) {
  fill("netk3.cnf");
  const Outcome run = place.run("/bin/sh", {"-c", std::string(ZERVAN_BINARY) + " net phi 3 2>&1"});
  EXPECT_TRUE(masked(run.out).ends_with(reports + noSpace("netk3.cnf"))) << run.out;
}

TEST_F(WriteFailure, BesideALogThatCannotBeOpenedIsTold) {
  fill("netk3.cnf");
  place.makeFolder("bmctime.out");
  const Outcome run = place.zervan({"net", "phi", "3"});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(run.out.ends_with("\nNie mozna otworzyc pliku bmctime.out\n")) << run.out;
  EXPECT_EQ(masked(run.err), progress + noSpace("netk3.cnf"));
}

// The limit is 8 blocks of 512 bytes; the clause file is cut there.
TEST_F(WriteFailure, BeyondTheLimitOfFileSizesIsTold) {
  const std::string command = std::string(ZERVAN_BINARY) + " net phi 3 2>&3";
  const Outcome run = place.run(
      "/bin/sh", {"-c", "exec 3>&2 2>/dev/null; trap '' XFSZ; ulimit -f 8; exec " + command});
  expectTold(run, "zervan: cannot write netk3.cnf: File too large\n");
  EXPECT_EQ(place.read("netk3.cnf").size(), 4096U);
  EXPECT_EQ(place.read("netk3.lck"), map);
}

// A disk of two pages. Mounting one takes rights that not everybody has.
TEST_F(WriteFailure, OnAFullDiskIsTold) {
  place.makeFolder("disk");
  const std::string disk = (place.folder() / "disk").string();
  if (mount("none", disk.c_str(), "tmpfs", 0, "size=8k") != 0) GTEST_SKIP() << "cannot mount";
  place.write("disk/net.tpn", twoNetwork);
  const Outcome run = place.zervan({"disk/net", "phi", "3"});
  const auto size = place.read("disk/netk3.cnf").size();
  EXPECT_EQ(umount(disk.c_str()), 0);
  expectTold(run, noSpace("disk/netk3.cnf") + noSpace("disk/netk3.lck"));
  EXPECT_EQ(size, 4096U);
}

}  // namespace
