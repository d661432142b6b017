// Networks of the end-to-end tests as the workbench's, and what the explorer of those tests, which
// walks states and knows no formulas, says about them.

#pragma once

#include <optional>
#include <string>

#include "tests/endtoend/explorer.hpp"
#include "tests/endtoend/generator.hpp"
#include "tests/endtoend/network.hpp"
#include "workbench/network/propertyreader.hpp"
#include "workbench/network/strictread.hpp"
#include "workbench/runs/replay.hpp"
#include "workbench/search/check.hpp"

struct Explored {
  tpn::Network net;
  tpn::Property property;
};

inline tpn::Property propertyOf(const std::string& text) {
  tpn::Diagnostics diagnostics;
  return tpn::readProperty("phi", text, diagnostics).value();
}

// `spread` times every location number: the workbench tells locations apart by rank.
inline Explored converted(const Network& from, int spread = 1) {
  Explored to;
  to.net.processes.resize(from.processes);
  for (tpn::Process& process : to.net.processes) process.locations.insert(0);
  for (const Transition& t : from.transitions) {
    tpn::Transition transition;
    transition.interval.earliest = t.earliest;
    if (t.latest != noLatest) transition.interval.latest = t.latest;
    for (const Move& move : t.moves) {
      transition.moves.push_back({move.process, spread * move.source, spread * move.target});
      to.net.processes[move.process].locations.insert({spread * move.source, spread * move.target});
    }
    to.net.transitions.push_back(transition);
  }
  for (const Label& label : from.labels)
    to.net.processes[label.process].labels[spread * label.location].insert(label.proposition);
  to.property = propertyOf(from.property);
  return to;
}

// The smallest of the bounds 1, 2, 5, 8, ... up to `longest` that has a run to the property.
inline std::optional<int> smallestBound(const Network& net, int longest) {
  const std::vector<bool> reached = predictions(net, longest);
  for (int k = 1; k <= longest; k += k == 1 ? 1 : 3)
    if (reached[static_cast<std::size_t>(k)]) return k;
  return std::nullopt;
}

inline tpn::Verdict checked(const Explored& e, const tpn::CheckOptions& options) {
  const std::atomic<bool> stop{false};
  return tpn::check(e.net, e.property, options, stop, {});
}

// What is wrong with the verdict where `expected` is the truth up to the largest bound; or empty.
inline std::string wrong(const Explored& e, const tpn::Verdict& v, std::optional<int> expected,
                         int largest) {
  const int bound = expected.value_or(largest);
  if (v.answer != (expected ? tpn::Verdict::reachable : tpn::Verdict::unreached))
    return "answer " + std::to_string(v.answer) + ", bound " + std::to_string(v.bound) + ", " +
           v.reason;
  if (v.bound != bound)
    return "bound " + std::to_string(v.bound) + " and not " + std::to_string(bound);
  if (!expected) return "";
  if (v.run->goal != static_cast<std::size_t>(bound + 1) / 3) return "another goal";
  return tpn::replay(e.net, e.property, *v.run).complaint;
}
