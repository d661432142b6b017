// Which form a file is in, and large nets in each.

#include "workbench/nets/anyreader.hpp"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "tests/workbench/network/bignets.hpp"
#include "workbench/nets/bridge.hpp"
#include "workbench/nets/pnmlwriter.hpp"
#include "workbench/nets/tinareader.hpp"
#include "workbench/nets/tinawriter.hpp"
#include "workbench/network/writer.hpp"

namespace tpn {
namespace {

TEST(NetForm, IsThatOfTheSuffix) {
  EXPECT_EQ(formOf("a.tpn", "<pnml>"), NetForm::network);
  EXPECT_EQ(formOf("a.net", "title\ntransitions\n"), NetForm::tina);
  EXPECT_EQ(formOf("dir.net/a.pnml", ""), NetForm::pnml);
  EXPECT_EQ(formOf("a.xml", ""), NetForm::pnml);
}

TEST(NetForm, IsElseWhatTheTextLooksLike) {
  EXPECT_EQ(formOf("a", "\xEF\xBB\xBF \n<pnml>"), NetForm::pnml);
  EXPECT_EQ(formOf("a", "# a comment\n\n tr t a -> b"), NetForm::tina);
  EXPECT_EQ(formOf("a", "net lamp\npl a"), NetForm::tina);
  EXPECT_EQ(formOf("a", "net of lamps\ntransitions\n1 0 1\n"), NetForm::network);
  EXPECT_EQ(formOf("a", "a lamp\ntransitions\n"), NetForm::network);
  EXPECT_EQ(formOf("a", "network\n"), NetForm::network);
  EXPECT_EQ(formOf("a", ""), NetForm::network);
}

double seconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_utime.tv_sec) +
         static_cast<double>(usage.ru_utime.tv_usec) / 1e6;
}

Network readIn(const std::string& name, const std::string& text) {
  Diagnostics found;
  auto net = readAnyNetwork(name, text, found);
  EXPECT_TRUE(net) << (found.empty() ? "" : tpn::text(found.front()));
  return net.value_or(Network{});
}

// Processes that go to and fro, places around them that one in three of their transitions puts a
// token on, and a transition that all of them share.
PetriNet large(std::size_t processes) {
  PetriNet net = petriNetOf(manyProcesses(processes));
  net.origin.reset();
  for (std::size_t p = 0; p < processes; p += 3) {
    net.transitions[2 * p].produced.push_back(net.places.size());
    net.transitions[2 * p + 1].consumed.push_back(net.places.size());
    net.places.push_back({"x" + std::to_string(p), "", false, {}});
  }
  return net;
}

// How often a checkpoint is asked while this is read.
int questions(const std::string& name, const std::string& text) {
  int asked = 0;
  Diagnostics found;
  EXPECT_TRUE(readAnyNetwork(name, text, found, Checkpoint([&] { return ++asked < 0; })));
  return asked;
}

// At any of them.
void expectToEnd(const std::string& name, const std::string& text) {
  const int all = questions(name, text);
  for (const int last : {1, 2, all / 4, all / 2, 3 * all / 4, all}) {
    int asked = 0;
    Diagnostics found;
    EXPECT_THROW(readAnyNetwork(name, text, found, Checkpoint([&] { return ++asked == last; })),
                 Interrupted)
        << name << " at " << last << " of " << all;
  }
}

TEST(LargeNets, EndAtACheckpoint) {
  const PetriNet net = large(5000);
  const PetriNet withOrigin = petriNetOf(manyProcesses(5000));
  for (const PetriNet& each : {net, withOrigin}) {
    expectToEnd("a.net", tinaFile(each));
    expectToEnd("a.pnml", pnmlFile(each));
  }
}

// One line of all of it, one declaration, one comment: not only where another begins.
TEST(LargeNets, AskAsOftenAsTheyAreLong) {
  const auto asked = [](std::size_t count, const auto& part) {
    std::string text = "tr t ";
    for (std::size_t i = 0; i < count; ++i) text += part(i);
    Diagnostics found;
    int calls = 0;
    readTina("a.net", text, found, Checkpoint([&] { return ++calls < 0; }));
    return calls;
  };
  const auto arc = [](std::size_t i) { return "p" + std::to_string(i) + " "; };
  const auto label = [](std::size_t i) { return "\nlb p" + std::to_string(i) + " x"; };
  EXPECT_GE(asked(100'000, arc), 24);
  EXPECT_GE(asked(100'000, label), 72 + 24);
}

// Generous bounds, for builds without optimisation on busy machines: what is quadratic takes hours.
TEST(LargeNets, AreReadInGoodTime) {
  const PetriNet net = large(30'000);
  const std::string tina = tinaFile(net);
  const std::string pnml = pnmlFile(net);
  const double begun = seconds();
  const Network first = readIn("a.net", tina);
  const Network second = readIn("a.pnml", pnml);
  EXPECT_LT(seconds() - begun, 120);
  EXPECT_TRUE(first == second);
}

TEST(LargeNets, WithAnOriginAreReadInGoodTime) {
  const Network net = manyProcesses(30'000);
  const std::string tina = tinaFile(petriNetOf(net));
  const std::string pnml = pnmlFile(petriNetOf(net));
  const double begun = seconds();
  EXPECT_TRUE(readIn("a.net", tina) == net);
  EXPECT_TRUE(readIn("a.pnml", pnml) == net);
  EXPECT_LT(seconds() - begun, 120);
}

TEST(LargeNets, MayBeOneLongRing) {
  PetriNet net = petriNetOf(ring(50'000));
  net.origin.reset();
  const double begun = seconds();
  EXPECT_EQ(readIn("a.net", tinaFile(net)).processes.size(), 1U);
  EXPECT_LT(seconds() - begun, 60);
}

// All processes of a network that always move together are found as well, or given up in time.
TEST(LargeNets, MayBeHardToTakeApart) {
  std::string text;
  for (int i = 0; i < 2000; ++i) {
    const std::string a = std::to_string(i);
    const std::string b = std::to_string((i * 37 + 11) % 2000);
    text += "pl a" + a + " (1) pl b" + a + " (1)\ntr t" + a + " a" + a + " a" + b + " -> b" + a +
            "x b" + b + "x\ntr u" + a + " b" + a + "x b" + b + "x -> a" + b + " a" + a + "\n";
  }
  const double begun = seconds();
  EXPECT_GT(readIn("a.net", text).processes.size(), 0U);
  EXPECT_LT(seconds() - begun, 60);
}

}  // namespace
}  // namespace tpn
