// Larger cubes around one that no step leads into.

#include <algorithm>

#include "workbench/prover/blocking.hpp"

namespace tpn {

bool Blocking::excluded(Cube cube, std::size_t level, std::size_t most, Cube& result) {
  std::optional<Predecessor> found;
  if (words_.holdsInitially(cube) || !keepOut(cube, level, most, found)) return false;
  result = std::move(cube);
  return true;
}

bool Blocking::tryDropping(Cube& cube, int literal, std::size_t level) {
  Cube rest = cube;
  std::erase(rest, literal);
  return !rest.empty() && excluded(rest, level, rest.size(), cube);
}

// A bound on a clock: as far out as can be, in steps that double and then halve.
void Blocking::weakenClock(Cube& cube, int literal, std::size_t level) {
  const Meaning& m = words_.meaning(literal);
  const std::int64_t most = literal > 0 ? m.value - 1 : layout_.width(m.process) - m.value;
  std::int64_t done = 0;
  for (std::int64_t step = 1, failed = most + 1; failed - done > 1;) {
    const std::int64_t next = done + std::min(step, (failed - done + 1) / 2);
    const int old = bound(m.process, literal > 0, m.value, done);
    const int weaker = bound(m.process, literal > 0, m.value, next);
    if (!contains(cube, old)) return;
    Cube rest = cube;
    std::replace(rest.begin(), rest.end(), old, weaker);
    if (excluded(rest, level, rest.size(), cube)) {
      done = next;
      step *= 2;
    } else {
      failed = next;
      step = most;
    }
  }
}

int Blocking::bound(std::size_t process, bool lower, std::int64_t value,
                    std::int64_t further) const {
  return lower ? layout_.clock(process, value - further) : -layout_.clock(process, value + further);
}

// A location as the negation of all others, of which not all may be needed.
void Blocking::weakenLocation(Cube& cube, int literal, std::size_t level) {
  const Meaning m = words_.meaning(literal);
  const std::size_t locations = machine_.processes[m.process].locations.size();
  if (literal < 0 || locations < 3) return;
  Cube rest = cube;
  std::erase(rest, literal);
  Cube others;
  for (std::size_t l = 0; l < locations; ++l)
    if (static_cast<std::int64_t>(l) != m.value) others.push_back(-layout_.location(m.process, l));
  rest.insert(rest.end(), others.begin(), others.end());
  const Cube before = words_.normal(rest);
  Cube after;
  const std::size_t most = cube.size() + (locations <= 8 ? locations - 3 : 2);
  if (!excluded(before, level, most, after)) return;
  cube = after;
  for (const int other : others)
    if (contains(cube, other)) tryDropping(cube, other, level);
}

// All literals of some processes at once: halves of them, then quarters, and so on.
void Blocking::dropProcesses(Cube& cube, std::size_t level,
                             const std::vector<std::size_t>& distance) {
  constexpr std::size_t few = 4;
  std::vector<std::size_t> processes = processesOf(cube, distance);
  for (std::size_t chunk = processes.size() / 2; chunk > 1 && processes.size() > few; chunk /= 2)
    for (std::size_t begin = 0; begin < processes.size();) {
      const std::size_t end = std::min(begin + chunk, processes.size());
      const auto gone = [&](int literal) {
        const auto from = processes.begin() + static_cast<std::ptrdiff_t>(begin);
        const auto to = processes.begin() + static_cast<std::ptrdiff_t>(end);
        return std::find(from, to, words_.meaning(literal).process) != to;
      };
      Cube rest = cube;
      std::erase_if(rest, gone);
      if (!rest.empty() && excluded(rest, level, rest.size(), cube))
        processes = processesOf(cube, distance);
      else
        begin = end;
    }
}

// The farthest first.
std::vector<std::size_t> Blocking::processesOf(const Cube& cube,
                                               const std::vector<std::size_t>& distance) const {
  std::vector<std::size_t> processes;
  for (const int literal : cube) processes.push_back(words_.meaning(literal).process);
  processes.erase(std::unique(processes.begin(), processes.end()), processes.end());
  std::reverse(processes.begin(), processes.end());
  if (!distance.empty())
    std::stable_sort(processes.begin(), processes.end(),
                     [&](std::size_t a, std::size_t b) { return distance[a] > distance[b]; });
  return processes;
}

// By process, the farthest first; clocks before locations.
Cube Blocking::inOrder(Cube cube, const std::vector<std::size_t>& distance) const {
  std::reverse(cube.begin(), cube.end());
  if (!distance.empty())
    std::stable_sort(cube.begin(), cube.end(), [&](int a, int b) {
      return distance[words_.meaning(a).process] > distance[words_.meaning(b).process];
    });
  return cube;
}

void Blocking::generalise(Cube& cube, std::size_t level, const std::vector<std::size_t>& distance) {
  dropProcesses(cube, level, distance);
  for (const int literal : inOrder(cube, distance))
    if (contains(cube, literal)) tryDropping(cube, literal, level);
  for (const int literal : inOrder(cube, distance)) {
    if (!contains(cube, literal)) continue;
    if (words_.meaning(literal).isClock)
      weakenClock(cube, literal, level);
    else
      weakenLocation(cube, literal, level);
  }
}

}  // namespace tpn
