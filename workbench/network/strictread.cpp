#include "workbench/network/strictread.hpp"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstdint>

#include "workbench/network/lintrules.hpp"
#include "workbench/network/netchecks.hpp"
#include "workbench/network/netreader.hpp"

namespace tpn {

namespace {

constexpr std::int64_t mostVariables = 999999;
constexpr std::int64_t mostUnfolded = 500000;  // docs/formats.md, "Above 500000 problem variables"

std::int64_t digits(std::int64_t n) {
  return static_cast<std::int64_t>(std::bit_width(static_cast<std::uint64_t>(n)));
}

// The variables of one state in zervan's clause file: locations, then the integer and fractional
// parts of the delay and the clocks, and the split value.
std::int64_t variablesPerState(const Network& net) {
  std::int64_t locationBits = 0;
  for (const Process& process : net.processes)
    locationBits += digits(static_cast<std::int64_t>(process.locations.size()) - 1);
  std::int64_t latest = 0;
  for (const Transition& t : net.transitions)
    latest = std::max(latest, t.interval.latest.value_or(0));
  const auto clocks = static_cast<std::int64_t>(net.processes.size());
  const std::int64_t integerBits = digits(2 * latest + 2);
  const std::int64_t fractionBits = clocks > 0 ? digits(2 * clocks - 1) : 0;
  return locationBits + (clocks + 1) * (integerBits + fractionBits) + fractionBits;
}

}  // namespace

std::optional<Network> readNetwork(const std::string& file, const std::string& text,
                                   Diagnostics& diagnostics) {
  Report report(file, diagnostics);
  const NetworkFile read = readNetworkFile(text, report);
  checkNumbers(read, report);
  if (report.hasErrors()) return std::nullopt;
  return networkOf(read);
}

void lintBound(const Network& net, const std::string& file, int k, Diagnostics& diagnostics) {
  Report report(file, diagnostics);
  const std::string length = "path length " + std::to_string(k);
  if (k < 1) {
    report.add(Rule::boundTooSmall, {}, length + " is below 1");
    return;
  }
  const std::int64_t perState = variablesPerState(net);
  assert(perState > 0);  // there is always the delay
  const std::int64_t needed = (std::int64_t{k} + 1) * perState;
  const std::int64_t largest = mostUnfolded / perState - 1;
  const std::string fits =
      largest < 1 ? "none works" : std::to_string(largest) + " is the largest that works";
  if (needed > mostVariables)
    report.add(Rule::tooManyVariables, {},
               length + " takes " + std::to_string(needed) +
                   " variables, zervan refuses more than " + std::to_string(mostVariables) + "; " +
                   fits);
  else if (needed > mostUnfolded)
    report.add(Rule::variablesFold, {},
               length + " takes " + std::to_string(needed) + " variables, above " +
                   std::to_string(mostUnfolded) + " zervan's clause file is wrong; " + fits);
}

}  // namespace tpn
