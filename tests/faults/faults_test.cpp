// One call of the program fails, whichever: what comes out is right, or the run says in one line
// that it came to nothing, and its status says so too.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/driver/transcript.hpp"
#include "tests/faults/runwithfault.hpp"

namespace {

namespace fs = std::filesystem;

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// Unsatisfiable whole; its beginnings are satisfiable. As long as a page, so that reading it takes
// memory several times.
std::string longProperty() {
  std::string property = "p11";
  for (int i = 0; i < 4095; ++i) property += "p12&";
  return property + "p-11&p-11&p-11&\n";
}

constexpr int mostCalls = 500;  // none is looked for beyond

class Faults : public testing::Test {
 protected:
  void SetUp() override {
    const fs::path example = fs::path(ZERVAN_SOURCE_DIR) / "examples/handshake/handshake.tpn";
    fs::copy_file(example, place.folder() / "net.tpn");
    ask(longProperty());
  }

  void ask(const std::string& property) {
    place.write("phi.tpn", property);
    undisturbed = place.zervan({"net", "phi", "5"});
    ASSERT_EQ(undisturbed.status, 0) << undisturbed.err;
    clauses = place.read("netk5.cnf");
    map = place.read("netk5.lck");
    forget();
  }

  void forget() const {
    for (const char* const name : {"netk5.cnf", "netk5.lck", "bmctime.out"})
      fs::remove(place.folder() / name);
  }

  // The same as an undisturbed run's; or not there at all, where it was the one not to be opened.
  void expectFile(const std::string& name, const std::string& content,
                  const FaultedRun& run) const {
    if (run.hit == "open " + name + "\n")
      EXPECT_FALSE(fs::exists(place.folder() / name));
    else
      EXPECT_EQ(place.read(name) == content, true) << name;
  }

  void expectRight(const FaultedRun& run) const {
    EXPECT_EQ(masked(run.outcome.out), masked(undisturbed.out));
    EXPECT_EQ(masked(run.outcome.err), masked(undisturbed.err));
    expectFile("netk5.cnf", clauses, run);
    expectFile("netk5.lck", map, run);
    EXPECT_EQ(linesOf(place.read("bmctime.out")).size(), 1U);
  }

  // Progress as far as it came, then one line.
  void expectTold(const FaultedRun& run) const {
    const std::string logUnopened = "Nie mozna otworzyc pliku bmctime.out\n";
    if (run.outcome.out.ends_with(logUnopened)) return;
    std::vector<std::string> progress = linesOf(masked(run.outcome.err));
    ASSERT_FALSE(progress.empty());
    const std::string told = progress.back();
    progress.pop_back();
    EXPECT_TRUE(told.starts_with("zervan: ") || told.starts_with("Nie moge otworzyc pliku "))
        << told;
    const std::vector<std::string> whole = linesOf(masked(undisturbed.err));
    ASSERT_LE(progress.size(), whole.size());
    for (std::size_t i = 0; i < progress.size(); ++i)
      EXPECT_TRUE(whole[i].starts_with(progress[i])) << progress[i];
  }

  void expectRightOrTold(const FaultedRun& run) const {
    EXPECT_FALSE(run.outcome.timedOut);
    EXPECT_EQ(run.outcome.signal, 0);
    if (run.outcome.status == 0)
      expectRight(run);
    else
      expectTold(run);
  }

  // Every call of the kind, one run each, and a run in which none fails any more. What was hit.
  std::vector<FaultedRun> hitEveryCall(Fault kind, int last = mostCalls) {
    std::vector<FaultedRun> hits;
    for (int n = 1; n <= last; ++n) {
      const FaultedRun run = runWithFault(place, kind, n, {ZERVAN_BINARY, "net", "phi", "5"});
      SCOPED_TRACE(nameOf(kind) + " " + std::to_string(n) + ": " + run.hit + run.outcome.err);
      expectRightOrTold(run);
      forget();
      if (run.hit.empty()) {
        EXPECT_EQ(run.outcome.status, 0);
        break;
      }
      hits.push_back(run);
    }
    return hits;
  }

  Workplace place;
  Outcome undisturbed;
  std::string clauses;
  std::string map;
};

// The run in which this failed.
const FaultedRun* hitOn(const std::vector<FaultedRun>& runs, const std::string& hit) {
  for (const FaultedRun& run : runs)
    if (run.hit == hit + "\n") return &run;
  ADD_FAILURE() << "never hit: " << hit;
  return nullptr;
}

bool endsWith(const FaultedRun* run, const std::string& line) {
  return run != nullptr && run->outcome.status == 1 && run->outcome.err.ends_with(line + "\n");
}

TEST_F(Faults, WriteThatFailsIsTold) {
  const std::vector<FaultedRun> runs = hitEveryCall(Fault::write);
  for (const std::string name : {"netk5.cnf", "netk5.lck", "bmctime.out"}) {
    const FaultedRun* const run = hitOn(runs, "write " + (place.folder() / name).string());
    EXPECT_TRUE(endsWith(run, "zervan: cannot write " + name + ": No space left on device"));
  }
}

TEST_F(Faults, InputThatCannotBeOpenedIsToldOutputThatCannotIsMissing) {
  const std::vector<FaultedRun> runs = hitEveryCall(Fault::open);
  for (const std::string name : {"net.tpn", "phi.tpn"})
    EXPECT_TRUE(endsWith(hitOn(runs, "fopen64 " + name), "Nie moge otworzyc pliku " + name));
  for (const std::string name : {"netk5.cnf", "netk5.lck"}) {
    const FaultedRun* const run = hitOn(runs, "open " + name);
    EXPECT_TRUE(run != nullptr && run->outcome.status == 0);
  }
  const FaultedRun* const log = hitOn(runs, "open bmctime.out");
  EXPECT_TRUE(log != nullptr && log->outcome.status == 1);
}

TEST_F(Faults, ReadThatFailsIsTold) {
  const std::vector<FaultedRun> runs = hitEveryCall(Fault::read);
  for (const std::string name : {"net.tpn", "phi.tpn"}) {
    const FaultedRun* const run = hitOn(runs, "read " + (place.folder() / name).string());
    EXPECT_TRUE(endsWith(run, "zervan: cannot read " + name + ": Input/output error"));
  }
}

// Part of a line is no line.
TEST_F(Faults, MemoryThatRunsOutWhileReadingIsTold) {
  const std::vector<FaultedRun> runs = hitEveryCall(Fault::malloc, 300);
  EXPECT_EQ(runs.size(), 300U);
  const auto refused = [](const FaultedRun& run) {
    return run.outcome.err == "zervan: the network needs more memory than there is\n";
  };
  EXPECT_GT(std::count_if(runs.begin(), runs.end(), refused), 50);
}

// Every allocation there is, that of the clause file's block among them.
TEST_F(Faults, MemoryThatRunsOutInTheTranslationIsTold) {
  place.write("net.tpn",
              "x\ntransitions\n1 0 0\nendtran\nprocess\n1 0 1\nvaluation\n0 1\nendval\nend\nend\n");
  ask("p1\n");
  const std::vector<FaultedRun> runs = hitEveryCall(Fault::malloc);
  EXPECT_LT(runs.size(), static_cast<std::size_t>(mostCalls));
  std::set<std::string> begun;  // the lines before the refusal
  for (const FaultedRun& run : runs) {
    const std::vector<std::string> lines = linesOf(run.outcome.err);
    const std::string refusal = "zervan: path length 5 needs more memory than the ";
    if (lines.size() > 1 && lines.back().starts_with(refusal)) begun.insert(lines.rbegin()[1]);
  }
  EXPECT_TRUE(begun.contains("Creating symbolic paths"));
  EXPECT_TRUE(begun.contains("Creating clauses: "));
  EXPECT_TRUE(begun.contains("Writing down clauses "));
}

TEST_F(Faults, MemoryFigureNeedsNoProcess) {
  const std::vector<FaultedRun> runs = hitEveryCall(Fault::fork);
  ASSERT_EQ(runs.size(), 2U);  // before and after
  for (const FaultedRun& run : runs) EXPECT_EQ(run.outcome.status, 0);
}

}  // namespace
