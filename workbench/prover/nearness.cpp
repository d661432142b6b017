#include "workbench/prover/nearness.hpp"

#include <algorithm>
#include <iterator>

namespace tpn {

namespace {

void sortUnique(Processes& processes) {
  std::sort(processes.begin(), processes.end());
  processes.erase(std::unique(processes.begin(), processes.end()), processes.end());
}

}  // namespace

bool Nearness::contains(const Processes& about, int literal) const {
  return std::binary_search(about.begin(), about.end(), words_.meaning(literal).process);
}

Processes Nearness::of(const Cube& cube) const {
  Processes processes;
  for (const int literal : cube) processes.push_back(words_.meaning(literal).process);
  sortUnique(processes);
  return processes;
}

Processes Nearness::with(Processes about, const Way& way) const {
  if (way.isDelay()) return about;
  for (const Machine::Move& move : machine_.transitions[way.transition].moves)
    about.push_back(move.process);
  sortUnique(about);
  return about;
}

Cube Nearness::part(const Cube& cube, const Processes& about) const {
  Cube result;
  std::copy_if(cube.begin(), cube.end(), std::back_inserter(result),
               [&](int literal) { return contains(about, literal); });
  return result;
}

std::vector<std::size_t> Nearness::distances(const Cube& cube, const Processes& about) const {
  if (std::all_of(cube.begin(), cube.end(), [&](int literal) { return contains(about, literal); }))
    return {};
  const std::size_t far = machine_.processes.size();
  std::vector<std::size_t> distance(far, far);
  std::vector<bool> seen(machine_.transitions.size(), false);
  std::vector<std::size_t> reached = about;
  for (const std::size_t process : reached) distance[process] = 0;
  for (std::size_t i = 0; i < reached.size(); ++i)
    for (const std::size_t t : machine_.processes[reached[i]].movers) {
      if (seen[t]) continue;
      seen[t] = true;
      for (const Machine::Move& move : machine_.transitions[t].moves) {
        if (distance[move.process] < far) continue;
        distance[move.process] = distance[reached[i]] + 1;
        reached.push_back(move.process);
      }
    }
  return distance;
}

}  // namespace tpn
