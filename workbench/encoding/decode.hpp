// From the bits of a path's states to a run.
//
// The bits say what was in which location and how the clocks stood, not which transition fired: it
// is one that moves what moved, resets what was reset and was in time. What the run is then does
// not depend on the bits any more: its times are computed from the order of its transitions, and it
// is replayed before anybody sees it.

#pragma once

#include <stdexcept>
#include <vector>

#include "model/tpnmodel.hpp"
#include "workbench/encoding/encode.hpp"
#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"
#include "workbench/runs/run.hpp"

namespace tpn {

// The bits are no run; one line says where.
struct NoRun : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// [i][j]: variable j of state i, both from 0. Steps rotate as ever: time, action, adjust.
using PathBits = std::vector<std::vector<bool>>;

// The path whose states have the variables firsts[i] .. firsts[i] + length - 1, in a model that
// says by value(variable) what is true.
template <class Value>
PathBits pathBits(const std::vector<int>& firsts, int length, Value value) {
  PathBits path;
  path.reserve(firsts.size());
  for (const int first : firsts) {
    std::vector<bool>& state = path.emplace_back();
    for (int j = 0; j < length; ++j) state.push_back(value(first + j));
  }
  return path;
}

// Where the k + 1 states of a clause file begin.
std::vector<int> firstVariables(const NetTimedModel& model, int k);

// The run; its goal is the first state with the property. Throws NoRun.
Run decode(const Network& net, const Property& property, LocationCoding coding,
           const NetTimedModel& model, const PathBits& path);

// The same for a path that a solver found and that satisfies the clauses of bound k: that it is no
// run can only be a bug, and std::runtime_error says so.
Run decodeFound(const Network& net, const Property& property, const NetTimedModel& model,
                const PathBits& path, int k);

}  // namespace tpn
