// What ends long work from outside: signals, and the time that --timeout allows.

#pragma once

#include <CLI/CLI.hpp>
#include <atomic>
#include <chrono>
#include <optional>

#include "workbench/command/subcommand.hpp"
#include "workbench/search/watch.hpp"

namespace tpn {

// Declares --timeout S; 0 stands for none.
void addTimeout(CLI::App& app, double& timeout);

// None for 0.
std::optional<std::chrono::milliseconds> limitOf(double timeout);

// From now on the signals that ask for an end set this, and end nothing by themselves. One that was
// ignored from the start, as under nohup, stays so.
const std::atomic<bool>& stoppedBySignals();

// Says on standard output that nothing came of it, and why.
Exit stoppedBefore(const Watch& watch);

}  // namespace tpn
