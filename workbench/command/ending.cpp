#include "workbench/command/ending.hpp"

#include <algorithm>
#include <cmath>
#include <csignal>

#include "workbench/base/files.hpp"
#include "workbench/command/ranges.hpp"

namespace tpn {

namespace {

std::atomic<bool> stopAsked{false};

}  // namespace

void addTimeout(CLI::App& app, double& timeout) {
  app.add_option("--timeout", timeout, "stop after S seconds")->type_name("S")->check(seconds());
}

std::optional<std::chrono::milliseconds> limitOf(double timeout) {
  // Nobody waits longer, and a clock counts nanoseconds up to ten times that.
  constexpr double longest = 1e9;
  if (timeout <= 0) return std::nullopt;
  return std::chrono::milliseconds(std::llround(std::min(timeout, longest) * 1000));
}

const std::atomic<bool>& stoppedBySignals() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP})
    if (std::signal(signal, SIG_IGN) != SIG_IGN) std::signal(signal, [](int) { stopAsked = true; });
  return stopAsked;
}

Exit stoppedBefore(const Watch& watch) {
  writeFile("-", "undecided: " + watch.reason() + "\n");
  return neither;
}

}  // namespace tpn
