// One bounded question cut into several, by meaning: when a process moves for the first time.
//
// A process that moves late makes the steps before it those of a smaller network, and one that
// moves early is bound to a few steps; so each part is easier than the whole, and all together are
// hardly more work. Cutting by which transition is some step, or by what the solver's look-ahead
// chooses, is not: docs/machines.md has the figures.
//
// The cubes are all runs, by the way they are made. Whoever believes an answer that is made of
// theirs has that checked by a solver all the same, as cubes come from files. Symmetry is broken
// alike in all of them, so that where there is a run, the one that stands for it is in a cube.

#pragma once

#include <string>
#include <vector>

#include "workbench/network/goal.hpp"
#include "workbench/network/network.hpp"
#include "workbench/runs/run.hpp"
#include "workbench/search/answer.hpp"
#include "workbench/search/runcube.hpp"
#include "workbench/search/watch.hpp"

namespace tpn {

// Two to the power of `depth` cubes, or fewer where runs are short; they have up to
// `maxTransitions`, 1 or more.
std::vector<RunCube> splitRuns(const Network& net, const Goal& goal, int depth, int maxTransitions);

// The bounded search in a cube: reachable with a run, unsafe, or undecided with how far it got.
Answer answeredInCube(const Network& net, const Goal& goal, const RunCube& cube, int maxTransitions,
                      const Watch& watch);

// Does what the cube says hold of the run, as far as that gets?
bool isIn(const RunCube& cube, const Run& run);

// Why not every run of up to `maxTransitions` is in one of the cubes, in one line; empty where it
// is.
std::string coverComplaint(const Network& net, const std::vector<RunCube>& cubes,
                           int maxTransitions);

}  // namespace tpn
