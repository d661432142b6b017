// Properties in infix notation over a small named network, against their plain meaning.

#include "workbench/network/infix.hpp"

#include <gtest/gtest.h>

#include "tests/workbench/network/smallnets.hpp"
#include "workbench/network/propertyreader.hpp"

namespace tpn {
namespace {

// Three stations with the locations idle, busy and 2, and a judge without names.
Network stations() {
  Network net;
  Process station;
  station.locations = {0, 1, 2};
  for (int p = 0; p < 3; ++p) {
    net.processes.push_back(station);
    net.processes.back().labels[1] = {10 + p};
    net.names.processes[static_cast<std::size_t>(p)] = "s" + std::to_string(p + 1);
    net.names.locations[{p, 0}] = "idle";
    net.names.locations[{p, 1}] = "busy";
    net.names.propositions[10 + p] = "works_" + std::to_string(p + 1);
  }
  Process judge;
  judge.locations = {0, 3};
  judge.labels[3] = {7};
  net.processes.push_back(judge);
  return net;
}

bool holdsAt(const std::string& text, const Locations& at, bool deadlock = false) {
  const Network net = stations();
  const std::set<int> held = propositionsAt(net, at);
  return holds(readInfix(text, net), StateFacts{held, at, deadlock});
}

std::string mistakeIn(const std::string& text) {
  try {
    readInfix(text, stations());
  } catch (const ExpressionError& error) {
    return std::to_string(error.at) + ": " + error.what();
  }
  return "";
}

template <class Do>
void forAllStates(Do call) {
  for (int a = 0; a < 3; ++a)
    for (int b = 0; b < 3; ++b)
      for (int c = 0; c < 3; ++c)
        for (const int d : {0, 3}) call(Locations{a, b, c, d});
}

TEST(Infix, NamesAndNumbersOfPropositionsAndLocations) {
  forAllStates([](const Locations& at) {
    EXPECT_EQ(holdsAt("works_1", at), at[0] == 1);
    EXPECT_EQ(holdsAt("p11", at), at[1] == 1);
    EXPECT_EQ(holdsAt("s3.busy", at), at[2] == 1);
    EXPECT_EQ(holdsAt("3.2", at), at[2] == 2);
    EXPECT_EQ(holdsAt("4.3", at), at[3] == 3);
    EXPECT_FALSE(holdsAt("p99", at));
  });
}

TEST(Infix, OperatorsMeanWhatTheySay) {
  forAllStates([](const Locations& at) {
    const bool a = at[0] == 1;
    const bool b = at[1] == 1;
    const bool c = at[3] == 3;
    EXPECT_EQ(holdsAt("works_1 && !works_2", at), a && !b);
    EXPECT_EQ(holdsAt("works_1 -> p7", at), !a || c);
    EXPECT_EQ(holdsAt("!(works_1 -> (p7 || works_2))", at), a && !c && !b);
    EXPECT_EQ(holdsAt("!(true && !false)", at), false);
    EXPECT_EQ(holdsAt("deadlock && !works_1", at, b), b && !a);
    EXPECT_EQ(holdsAt("!deadlock", at, b), !b);
  });
}

TEST(Infix, CountersCountPropositionsAndProcesses) {
  forAllStates([](const Locations& at) {
    const int busy = (at[0] == 1) + (at[1] == 1) + (at[2] == 1);
    const int named = (at[0] < 2) + (at[1] < 2) + (at[2] < 2);
    for (int n = 0; n <= 4; ++n) {
      const std::string count = std::to_string(n);
      EXPECT_EQ(holdsAt("atleast(" + count + ", works_*)", at), busy >= n);
      EXPECT_EQ(holdsAt("atmost(" + count + ", *.busy)", at), busy <= n);
      EXPECT_EQ(holdsAt("exactly(" + count + ", s*.*d*)", at),
                (at[0] == 0) + (at[1] == 0) + (at[2] == 0) == n);
      EXPECT_EQ(holdsAt("exactly(" + count + ", s*.*y)||false", at), busy == n);
      EXPECT_EQ(holdsAt("!exactly(" + count + ", *.busy)", at), busy != n);
      EXPECT_EQ(holdsAt("!atleast(" + count + ", *.busy)", at), busy < n);
      EXPECT_EQ(holdsAt("!atmost(" + count + ", *.busy)", at), busy > n);
      EXPECT_EQ(holdsAt("atleast(" + count + ", s*.*)", at), n <= 3);
    }
    EXPECT_GE(named, 0);
  });
}

// A random property in both notations. Postfix has no "not" but that of propositions.
class BothNotations {
 public:
  explicit BothNotations(unsigned seed) : chance_(seed) {}

  struct Text {
    std::string infix;
    int strength = 0;  // of its outermost operator: 1 ->, 2 ||, 3 &&, 4 the rest
    std::string postfix;
    std::string negated;  // in postfix
  };

  Text next(int depth) {
    if (depth == 0) return leaf();
    switch (chance_.upTo(4)) {
      case 0:
        return leaf();
      case 1: {
        const Text a = next(depth - 1);
        return {"!" + within(a, 4), 4, a.negated, a.postfix};
      }
      case 2: {
        const Text a = next(depth - 1);
        const Text b = next(depth - 1);
        return {within(a, 2) + " -> " + within(b, 1), 1, a.negated + b.postfix + "+",
                a.postfix + b.negated + "&"};
      }
      case 3: {
        const Text a = next(depth - 1);
        const Text b = next(depth - 1);
        return {within(a, 2) + "||" + within(b, 3), 2, a.postfix + b.postfix + "+",
                a.negated + b.negated + "&"};
      }
      default: {
        const Text a = next(depth - 1);
        const Text b = next(depth - 1);
        return {within(a, 3) + "&& " + within(b, 4), 3, a.postfix + b.postfix + "&",
                a.negated + b.negated + "+"};
      }
    }
  }

 private:
  Text leaf() {
    static const std::vector<std::string> names{"works_1", "works_2", "works_3"};
    const std::size_t i = chance_.upTo(2);
    const std::string number = std::to_string(10 + i);
    return {chance_.upTo(1) == 0 ? names[i] : "p" + number, 4, "p" + number, "p-" + number};
  }

  // In parentheses where they are needed, and now and then where they are not.
  std::string within(const Text& text, int strength) {
    const bool plain = text.strength >= strength && chance_.upTo(3) != 0;
    return plain ? text.infix : "( " + text.infix + ")";
  }

  SmallNets chance_;
};

TEST(Infix, SaysTheSameAsPostfix) {
  const Network net = stations();
  BothNotations random(1);
  for (int i = 0; i < 2000; ++i) {
    const auto [infix, strength, postfix, negated] = random.next(1 + i % 5);
    Diagnostics found;
    const auto expected = readProperty("phi", postfix, found);
    ASSERT_TRUE(expected) << postfix;
    const Property property = readInfix(infix, net);
    forAllStates([&](const Locations& at) {
      const std::set<int> held = propositionsAt(net, at);
      EXPECT_EQ(holds(property, {held, at, false}), holds(*expected, {held, at, false}))
          << infix << " and " << postfix;
    });
    if (HasFailure()) return;
  }
}

TEST(Infix, UnknownNamesAreToldWithWhatWouldFit) {
  EXPECT_EQ(mistakeIn("wroks_1"), "0: no proposition `wroks_1`; there is `works_1`");
  EXPECT_EQ(mistakeIn("true && s1.bussy"),
            "11: no location `bussy` in process s1; there is `busy`");
  EXPECT_EQ(mistakeIn("t1.busy"), "0: no process `t1`; there is `s1`");
  EXPECT_EQ(mistakeIn("5.0"), "0: no process `5`");
  EXPECT_EQ(mistakeIn("4.1"), "2: no location `1` in process 4");
  EXPECT_EQ(mistakeIn("atleast(1, zzz*)"), "11: no proposition fits `zzz*`");
  EXPECT_EQ(mistakeIn("atleast(1, s*.zzz*)"),
            "14: no location fits `zzz*` in any of these processes");
}

TEST(Infix, ItemsKnowWhichPartOfTheTextTheyStandFor) {
  const Property property = readInfix("works_1 || atleast(2, *.busy)", stations());
  const PropertyItem& counter = property.items[property.items.size() - 2];
  EXPECT_EQ(counter.kind, PropertyItem::counter);
  EXPECT_EQ(property.text.substr(counter.begin, counter.end - counter.begin), "atleast(2, *.busy)");
}

TEST(Infix, DeepPropertiesDoNotOverflowTheStack) {
  std::string text;
  for (int i = 0; i < 300000; ++i) text += "!(works_1 && ";
  text += "true" + std::string(300000, ')');
  EXPECT_EQ(readInfix(text, stations()).items.size(), 600001U);
}

}  // namespace
}  // namespace tpn
