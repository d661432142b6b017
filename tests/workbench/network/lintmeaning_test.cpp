// Lint against the readers of zervan themselves. Where it finds no error, they read just the values
// that it gives; what people and generators have written is taken without a word.

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <iostream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "tests/model/networks.hpp"
#include "tests/workbench/network/lintfiles.hpp"
#include "tests/workbench/network/lintinvariants.hpp"
#include "workbench/families/families.hpp"
#include "workbench/families/random.hpp"
#include "workbench/network/writer.hpp"

namespace {

const std::filesystem::path source = ZERVAN_SOURCE_DIR;

// --- Nothing is said of the examples. ---

std::string made(const char* family, int size) {
  return tpn::networkFile(tpn::familyNamed(family)->network(size));
}

bool isNetwork(const std::string& text) { return text.find("\ntransitions") != std::string::npos; }

std::string complaints(const std::string& network, const std::string& property) {
  tpn::Diagnostics found;
  const auto net = tpn::readNetwork("network", network, found);
  const auto phi = tpn::readProperty("property", property, found);
  if (net && phi) lintTogether(*net, "property", *phi, found);
  std::string all;
  for (const tpn::Diagnostic& d : found) all += text(d) + "\n";
  return all;
}

TEST(LintIsSilent, OnTheExamples) {
  int pairs = 0;
  for (const std::string folder : {"crossing", "csma", "dining", "fischer", "handshake", "lossy",
                                   "pipeline", "ring", "twophase"}) {
    std::vector<std::string> networks;
    std::vector<std::string> properties;
    for (const auto& entry : std::filesystem::directory_iterator(source / "examples" / folder)) {
      if (entry.path().extension() != ".tpn") continue;
      const std::string text = contents(entry.path());
      (isNetwork(text) ? networks : properties).push_back(text);
    }
    for (const std::string& network : networks)
      for (const std::string& property : properties) {
        EXPECT_EQ(complaints(network, property), "") << folder;
        ++pairs;
      }
  }
  EXPECT_GE(pairs, 20);
}

TEST(LintIsSilent, OnFamiliesOfNetworks) {
  for (const tpn::Family& family : tpn::families())
    for (const int size : {2, 5})
      for (const tpn::FamilyQuestion& question : family.questions)
        if (question.postfix != nullptr) {
          EXPECT_EQ(complaints(made(family.name, size), question.postfix(size) + "\n"), "")
              << family.name << " " << size << " " << question.name;
        }
}

TEST(LintIsSilent, OnRandomNetworks) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    const std::string network = tpn::networkFile(tpn::dealtNetwork(4, 12, seed));
    for (const tpn::FamilyQuestion& question : tpn::dealtQuestions())
      EXPECT_EQ(complaints(network, question.postfix(4) + "\n"), "") << seed;
  }
}

// --- What is read is what zervan reads. ---

// A network in the tables of zervan's reader.
void expectSame(const tpn::Network& net, const NetTimedModel& model) {
  NetTimedModel expected;
  expected.timeIntervals.resize(net.transitions.size() + 1);
  for (std::size_t t = 0; t < net.transitions.size(); ++t) {
    const auto number = static_cast<unsigned>(t) + 1;
    const tpn::Interval& interval = net.transitions[t].interval;
    expected.timeIntervals[number] = {static_cast<unsigned>(interval.earliest),
                                      static_cast<unsigned>(interval.latest.value_or(-1))};
    for (const tpn::Move& move : net.transitions[t].moves) {
      const auto p = static_cast<unsigned>(move.process) + 1;
      const auto from = static_cast<unsigned>(move.source);
      const auto to = static_cast<unsigned>(move.target);
      expected.transProcs[number].insert(p);
      expected.localTrans[{p, number}] = {from, to};
      expected.vertices.insert({{p, from}, {p, to}});
    }
  }
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    for (const auto& [location, labels] : net.processes[p].labels)
      for (const int q : labels)
        expected.valuation.insert({{static_cast<unsigned>(p) + 1, static_cast<unsigned>(location)},
                                   static_cast<unsigned>(q)});
  EXPECT_EQ(static_cast<std::size_t>(model.nrOfProcs), net.processes.size());
  EXPECT_EQ(model.timeIntervals, expected.timeIntervals);
  EXPECT_EQ(model.transProcs, expected.transProcs);
  EXPECT_EQ(model.localTrans, expected.localTrans);
  EXPECT_EQ(model.vertices, expected.vertices);
  EXPECT_EQ(model.valuation, expected.valuation);
}

// Texts near to one that is in order.
class Mutator {
 public:
  explicit Mutator(unsigned seed) : random_(seed) {}

  std::string changed(std::string text, const std::vector<std::string>& pieces) {
    for (std::size_t i = below(3) + 1; i > 0; --i) change(text, pieces);
    return text;
  }

 private:
  std::size_t below(std::size_t n) { return random_() % n; }

  void change(std::string& text, const std::vector<std::string>& pieces) {
    const std::size_t at = below(text.size() + 1);
    const std::size_t lineBegin = text.rfind('\n', at == 0 ? 0 : at - 1) + 1;
    const std::size_t lineEnd = std::min(text.find('\n', lineBegin), text.size());
    const std::string line = text.substr(std::min(lineBegin, text.size()), lineEnd - lineBegin + 1);
    switch (below(6)) {
      case 0:
        text.insert(at, pieces[below(pieces.size())]);
        break;
      case 1:
        text.erase(at, 1);
        break;
      case 2:
        if (at < text.size()) text.replace(at, 1, pieces[below(pieces.size())]);
        break;
      case 3:
        text.erase(std::min(lineBegin, text.size()), line.size());
        break;
      case 4:
        text.insert(std::min(lineBegin, text.size()), line);
        break;
      default:
        text.resize(below(20) == 0 ? at : text.size());
    }
  }

  std::mt19937 random_;
};

const std::vector<std::string> netPieces{
    "0",       "1",     "2",   "3",        "7",       "-",         "-1",          "+",
    " ",       "  ",    "\t",  "\n",       "\r",      "\n\n",      "x",           "# lamp",
    "1 0 1\n", "end\n", "end", "endval\n", "endtran", "process\n", "valuation\n", "transitions\n"};

class Quiet {  // the reader's transcript
 public:
  Quiet() : before_(std::cout.rdbuf(hidden_.rdbuf())) {}
  ~Quiet() { std::cout.rdbuf(before_); }
  Quiet(const Quiet&) = delete;
  Quiet& operator=(const Quiet&) = delete;

 private:
  std::ostringstream hidden_;
  std::streambuf* before_;
};

TEST(LintMeansWhatZervanReads, OnChangedNetworks) {
  const std::string sample = contents(source / "examples" / "ring" / "ring.tpn");
  const std::vector<std::string> samples{sample, twoProcesses(), tinyPair(), emptyNetwork()};
  Mutator mutator(4711);
  int agreed = 0;
  alarm(300);  // a reader that waits for ever is a failure
  for (int i = 0; i < 20000; ++i) {
    const std::string& base = samples[static_cast<std::size_t>(i) % samples.size()];
    const std::string text = mutator.changed(base, netPieces);
    tpn::Diagnostics found;
    const auto net = tpn::readNetwork("net", text, found);
    assertInvariants(text, found, net.has_value());
    if (!net) continue;
    const Quiet quiet;
    SCOPED_TRACE(text);
    expectSame(*net, *readModel(text));
    ++agreed;
    if (testing::Test::HasFailure()) break;
  }
  alarm(0);
  EXPECT_GE(agreed, 500);
}

// The parser reads more than lint takes, temporal operators for one; what lint takes it reads
// alike.
TEST(LintMeansWhatZervanReads, OnChangedProperties) {
  const std::vector<std::string> pieces{"p", "1", "0", "-", "p2", "&", "+", "T", "E", "F", " "};
  Mutator mutator(815);
  int agreed = 0;
  alarm(300);
  for (int i = 0; i < 20000; ++i) {
    const std::string text = mutator.changed("p1p-2&p3+", pieces);
    tpn::Diagnostics found;
    const auto property = tpn::readProperty("phi", text, found);
    assertInvariants(text, found, property.has_value());
    if (!property) continue;
    const EctlForm parsed(text);
    ASSERT_EQ(parsed.onp.size(), property->items.size()) << text;
    for (std::size_t j = 0; j < parsed.onp.size(); ++j) {
      EXPECT_EQ(static_cast<int>(parsed.onp[j].op), static_cast<int>(property->items[j].kind));
      EXPECT_EQ(parsed.onp[j].arg, property->items[j].number);
    }
    ++agreed;
  }
  alarm(0);
  EXPECT_GE(agreed, 500);
}

// The bound counts the variables as the layout does.
TEST(LintMeansWhatZervanReads, InTheVariablesOfAState) {
  for (const std::string& text :
       {twoProcesses(), tinyNetwork(), tinyPair(), emptyNetwork(), made("fischer", 3),
        made("crossing", 2), tpn::networkFile(tpn::dealtNetwork(4, 12, 3))}) {
    tpn::Diagnostics found;
    const auto net = tpn::readNetwork("net", text, found);
    ASSERT_TRUE(net) << text;
    std::int64_t perState = 0;
    {
      const Quiet quiet;
      perState = modelOf(text)->getSymStateLen();
    }
    const int largest = static_cast<int>(500000 / perState - 1);
    lintBound(*net, "net", largest, found);
    EXPECT_TRUE(found.empty());
    lintBound(*net, "net", largest + 1, found);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].id, "variables-fold");
  }
}

}  // namespace
