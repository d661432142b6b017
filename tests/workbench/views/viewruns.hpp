// The fixed runs that the golden files in golden/ show, and runs at random for everything else.

#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "tests/workbench/network/smallnets.hpp"
#include "workbench/network/infix.hpp"
#include "workbench/network/propertyreader.hpp"
#include "workbench/network/strictread.hpp"
#include "workbench/runs/replay.hpp"
#include "workbench/views/views.hpp"
#include "workbench/walking/randomwalk.hpp"
#include "workbench/walking/walk.hpp"

namespace tpn {

struct Shown {
  Network net;
  Property property;
  Run run;
};

inline std::string fileText(const std::string& name) {
  std::ifstream in(name, std::ios::binary);
  EXPECT_TRUE(in) << name;
  return {std::istreambuf_iterator<char>(in), {}};
}

inline std::string viewsFolder() { return ZERVAN_SOURCE_DIR "/tests/workbench/views/golden/"; }

inline Network networkIn(const std::string& file) {
  Diagnostics diagnostics;
  const auto net = readNetwork(file, fileText(file), diagnostics);
  EXPECT_TRUE(net) << file;
  return net.value_or(Network{});
}

inline Property propertyOf(const std::string& text) {
  Diagnostics diagnostics;
  const auto property = readProperty("property", text + "\n", diagnostics);
  EXPECT_TRUE(property) << text;
  return property.value_or(Property{});
}

// Steps as users number them.
inline Step fires(int transition, const Rational& delay = 0) {
  return {delay, static_cast<std::size_t>(transition - 1)};
}

// Two processes of Fischer's protocol with its delays swapped meet in their critical sections, and
// one of them leaves.
inline Shown violation() {
  return {networkIn(viewsFolder() + "swapped.tpn"),
          propertyOf("p11p21&"),
          {{fires(1), fires(16, Rational(1, 2)), fires(2), fires(3), fires(7, 1), fires(9),
            fires(17, Rational(1, 4)), fires(19), fires(22, 1), fires(25), fires(13 + 1, 2)},
           10}};
}

// The same run with names for most things, asked for in infix notation.
inline Shown named() {
  Shown shown = violation();
  shown.net.names.processes = {{0, "alice"}, {1, "bob & co"}, {3, "lock"}};
  for (const std::size_t p : {0U, 1U, 2U}) {
    shown.net.names.locations[{p, 0}] = "idle";
    shown.net.names.locations[{p, 5}] = "critical";
  }
  shown.net.names.locations[{3, 0}] = "no one";
  shown.net.names.transitions = {{0, "wish"}, {15, "{wish}"}, {6, "look again"}};
  shown.net.names.propositions = {{11, "alice_in"}, {21, "step"}};
  shown.property = readInfix("atleast(2, *.critical) || lock.3 && !alice_in", shown.net);
  return shown;
}

// Thirds and long waits; a title that every format has to escape.
inline Shown thirds() {
  Network net = twoProcesses();
  net.title = "two <processes> & a \"title\" \\ $end &lt; \xc5\xbc \xff";
  return {net,
          propertyOf("p7p8&p-3&"),
          {{fires(1, Rational(4, 3)), fires(2), fires(3, 100), fires(2, Rational(1, 3)),
            fires(1, Rational(2, 3))},
           2}};
}

// Nothing happens, and that is what was asked for.
inline Shown standstill() { return {twoProcesses(), propertyOf("p-7"), {}}; }

// The longest of a few random walks, with all goals that its property has to offer.
inline Shown randomShown(unsigned seed, std::size_t steps) {
  SmallNets nets(seed);
  Shown best{nets.next(), anything(), {}};
  for (int tries = 0; tries < 20; ++tries) {
    Network net = nets.next();
    for (std::size_t p = 0; p < net.processes.size(); ++p)
      for (const int location : net.processes[p].locations)
        if (nets.upTo(2) == 0) net.processes[p].labels[location] = {1, 11 + static_cast<int>(p)};
    const Run run = walkRandomly(net, seed, steps).run;
    if (run.steps.size() > best.run.steps.size()) best = {net, anything(), run};
  }
  best.run.goal = nets.upTo(best.run.steps.size());
  const Replay replayed = replay(best.net, best.property, best.run);
  const Locations& at = replayed.states.at(best.run.goal).locations;
  const std::set<int> holding = propositionsAt(best.net, at);
  if (!holding.empty()) best.property = propertyOf("p" + std::to_string(*holding.rbegin()));
  return best;
}

}  // namespace tpn
