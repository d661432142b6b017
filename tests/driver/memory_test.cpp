// Runs for which there is too little memory: one line, exit status 1, no file.
//
// The address sanitizer reserves terabytes of addresses and does not start under a limit: builds
// with it leave this file out.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>
#include <set>
#include <string>

#include "tests/driver/runprogram.hpp"
#include "tests/driver/transcript.hpp"

namespace {

using namespace std::string_literals;
using Names = std::set<std::string>;

constexpr rlim_t kibibyte = 1024;
constexpr rlim_t mebibyte = 1024 * kibibyte;

const std::string readingRefused = "zervan: the network needs more memory than there is\n";
const std::regex pathRefused(
    "zervan: path length [0-9]+ needs more memory than the [0-9]+ MiB there are; "
    "(no path length fits|the largest path length that fits is about [0-9]+)\n");

std::string lastLine(const std::string& text) {
  if (text.size() < 2) return text;
  const std::size_t before = text.rfind('\n', text.size() - 2);
  return before == std::string::npos ? text : text.substr(before + 1);
}

// One process that goes round `count` transitions and as many locations.
std::string longNetwork(int count) {
  std::string intervals;
  std::string moves;
  for (int t = 1; t <= count; ++t) {
    const std::string number = std::to_string(t);
    intervals += number + " 0 1\n";
    moves.append(number).append(" ").append(number).append(" 1\n");
  }
  return "x\ntransitions\n" + intervals + "endtran\nprocess\n" + moves +
         "valuation\nendval\nend\nend\n";
}

class Memory : public testing::Test {
 protected:
  void SetUp() override {
    place.write("net.tpn", twoNetwork);
    place.write("phi.tpn", "p3\n");
    empty = place.files();
  }

  Outcome within(rlim_t bytes, const std::string& k) const {
    return place.zervan({"net", "phi", k}, {.addressSpace = bytes});
  }

  // Refused for want of memory, with no trace left; the largest length named, 0 where none fits.
  int refusedFor(rlim_t bytes, const std::string& k) const {
    const Outcome run = within(bytes, k);
    EXPECT_EQ(run.status, 1) << run.err;
    EXPECT_EQ(place.files(), empty);
    const std::string line = lastLine(run.err);
    EXPECT_TRUE(line.starts_with("zervan: path length " + k + " needs ")) << run.err;
    EXPECT_TRUE(std::regex_match(line, pathRefused)) << run.err;
    const std::size_t number = line.find("about ");
    return number == std::string::npos ? 0 : std::stoi(line.substr(number + 6));
  }

  // The least limit, to a quarter of a mebibyte, under which a small network runs through.
  rlim_t startsFrom() const {
    rlim_t bytes = mebibyte;
    while (bytes < 512 * mebibyte && within(bytes, "1").status != 0) bytes += mebibyte / 4;
    forget("1");
    return bytes;
  }

  void forget(const std::string& k) const {
    for (const std::string& name : {"netk" + k + ".cnf", "netk" + k + ".lck", "bmctime.out"s})
      std::filesystem::remove(place.folder() / name);
  }

  Workplace place;
  Names empty;
};

TEST_F(Memory, PathThatNeedsMoreIsRefused) {
  const Outcome run = within(64 * mebibyte, "45000");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(masked(run.out), twoRead + "Formula is read\n");
  EXPECT_EQ(run.err.find("Creating symbolic paths\nzervan: "), 0U) << run.err;
  EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 2) << run.err;
  EXPECT_GT(refusedFor(64 * mebibyte, "45000"), 0);
}

TEST_F(Memory, RefusalNamesTheMemoryThereIs) {
  const std::string err = within(64 * mebibyte, "45000").err;
  std::smatch figure;
  ASSERT_TRUE(std::regex_search(err, figure, std::regex("than the ([0-9]+) MiB"))) << err;
  EXPECT_LT(std::stoi(figure[1]), 64);
  EXPECT_GT(std::stoi(figure[1]), 64 / 2);
}

TEST_F(Memory, RefusalNamesALengthThatRunsThrough) {
  for (const rlim_t bytes : {32 * mebibyte, 64 * mebibyte, 150 * mebibyte}) {
    const int fits = refusedFor(bytes, "45000");
    EXPECT_GT(fits, 0) << bytes;
    EXPECT_EQ(within(bytes, std::to_string(fits)).status, 0) << bytes;
    forget(std::to_string(fits));
  }
}

// The path fits, the clauses do not: the progress line is ended, the refusal has its own.
TEST_F(Memory, ClausesThatNeedMoreAreRefused) {
  const Outcome run = within(150 * mebibyte, "45000");
  EXPECT_NE(run.err.find("\nCreating clauses: \nzervan: path length 45000 needs "),
            std::string::npos)
      << run.err;
  EXPECT_EQ(run.err.find("Writing down clauses"), std::string::npos) << run.err;
  EXPECT_NE(run.out.find("\nConjunction: "), std::string::npos) << run.out;
  EXPECT_GT(refusedFor(150 * mebibyte, "45000"), 0);
}

TEST_F(Memory, OlderFilesAreKept) {
  place.write("netk45000.cnf", "older clauses\n");
  place.write("netk45000.lck", "older map\n");
  EXPECT_EQ(within(64 * mebibyte, "45000").status, 1);
  EXPECT_EQ(place.read("netk45000.cnf"), "older clauses\n");
  EXPECT_EQ(place.read("netk45000.lck"), "older map\n");
}

// From what a small network needs up to what a long one does: it is refused while the network is
// read, then while the path is built, and never ends in another way.
TEST_F(Memory, EveryLimitEndsInARunOrInARefusal) {
  bool reading = false;
  bool path = false;
  bool enough = false;
  const rlim_t start = startsFrom();
  place.write("net.tpn", longNetwork(10000));
  for (rlim_t more = 0; !enough && more < 64 * mebibyte; more += 256 * kibibyte) {
    const Outcome run = within(start + more, "2");
    enough = run.status == 0;
    if (enough) break;
    EXPECT_EQ(run.status, 1) << more << " bytes: " << run.err;
    EXPECT_EQ(place.files(), empty) << more << " bytes";
    const std::string line = lastLine(run.err);
    const bool inPath = std::regex_match(line, pathRefused);
    EXPECT_TRUE(inPath || line == readingRefused) << more << " bytes: " << run.err;
    EXPECT_TRUE(inPath || !path) << more << " bytes: " << run.err;
    path = path || inPath;
    reading = reading || !inPath;
  }
  EXPECT_TRUE(reading);
  EXPECT_TRUE(path);
  EXPECT_TRUE(enough);
}

}  // namespace
