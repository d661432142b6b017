#include "workbench/prover/blocking.hpp"

#include <algorithm>
#include <cassert>

namespace tpn {

namespace {

bool contains(const std::vector<int>& literals, int literal) {
  return std::find(literals.begin(), literals.end(), literal) != literals.end();
}

}  // namespace

bool Blocking::solve() {
  ++queries_;
  const Solver::Result result = solver_.solve();
  if (result == Solver::Result::undecided) throw ProverStopped();
  return result == Solver::Result::satisfiable;
}

bool Blocking::reaches(std::size_t level, const Cube& cube) {
  solver_.assume(frames_.frame(level));
  for (const int literal : cube) solver_.assume(literal);
  return solve();
}

std::optional<Blocking::Predecessor> Blocking::intoFrom(Cube& cube, std::size_t level) {
  assert(level > 0 && !words_.holdsInitially(cube));
  std::vector<int> kept;
  std::optional<Predecessor> found;
  steps_.forEach(cube, kept, [&](const Query& query) {
    solver_.assume(frames_.frame(level - 1));
    for (const int literal : query.fixed) solver_.assume(literal);
    for (const auto& [assumed, literal] : query.literals) solver_.assume(assumed);
    if (query.outside != 0) solver_.assume(query.outside);
    if (solve()) {
      const auto state = [this](int literal) { return solver_.value(literal); };
      found = Predecessor{steps_.before(cube, query.way, state), query.way};
      return false;
    }
    for (const auto& [assumed, literal] : query.literals)
      if (solver_.failed(assumed) && !contains(kept, literal)) kept.push_back(literal);
    return true;
  });
  if (!found) reduce(cube, kept);
  return found;
}

void Blocking::reduce(Cube& cube, const std::vector<int>& kept) const {
  Cube rest;
  for (const int literal : cube)
    if (contains(kept, literal)) rest.push_back(literal);
  if (words_.holdsInitially(rest)) {
    const auto other = std::find_if_not(cube.begin(), cube.end(),
                                        [this](int literal) { return words_.initially(literal); });
    rest.push_back(*other);
  }
  cube = words_.normal(rest);
}

bool Blocking::excluded(const Cube& cube, std::size_t level, Cube& result) {
  if (words_.holdsInitially(cube)) return false;
  Cube smaller = cube;
  if (intoFrom(smaller, level)) return false;
  result = smaller;
  return true;
}

bool Blocking::tryDropping(Cube& cube, std::size_t i, std::size_t level) {
  Cube rest = cube;
  rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(i));
  return excluded(rest, level, cube);
}

// A location as the negation of all others, of which not all may be needed; a bound on a clock one
// step further out.
bool Blocking::tryWeaker(Cube& cube, std::size_t i, std::size_t level) {
  const int literal = cube[i];
  const Meaning& m = words_.meaning(literal);
  Cube rest = cube;
  rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(i));
  if (m.isClock) {
    const std::int64_t further = literal > 0 ? m.value - 1 : m.value + 1;
    if (further < 1 || further > layout_.width(m.process)) return false;
    const int weaker = layout_.clock(m.process, further);
    rest.push_back(literal > 0 ? weaker : -weaker);
    return excluded(words_.normal(rest), level, cube);
  }
  const std::size_t locations = machine_.processes[m.process].locations.size();
  if (literal < 0 || locations < 3 || locations > mostNegations) return false;
  for (std::size_t l = 0; l < locations; ++l)
    if (static_cast<std::int64_t>(l) != m.value) rest.push_back(-layout_.location(m.process, l));
  const Cube before = words_.normal(rest);
  Cube after;
  return excluded(before, level, after) && after.size() < before.size() && (cube = after, true);
}

// All literals of some processes at once: halves of them, then quarters, and so on.
void Blocking::dropProcesses(Cube& cube, std::size_t level) {
  std::vector<std::size_t> processes = processesOf(cube);
  for (std::size_t chunk = processes.size() / 2; chunk > 1 && processes.size() > 4; chunk /= 2)
    for (std::size_t end = processes.size(); end > 0;) {
      const std::size_t begin = end > chunk ? end - chunk : 0;
      const auto from = processes.begin() + static_cast<std::ptrdiff_t>(begin);
      const auto to = processes.begin() + static_cast<std::ptrdiff_t>(end);
      Cube rest;
      for (const int literal : cube)
        if (!std::binary_search(from, to, words_.meaning(literal).process)) rest.push_back(literal);
      if (!rest.empty() && excluded(rest, level, cube)) processes = processesOf(cube);
      end = std::min(begin, processes.size());
    }
}

std::vector<std::size_t> Blocking::processesOf(const Cube& cube) const {
  std::vector<std::size_t> processes;
  for (const int literal : cube) processes.push_back(words_.meaning(literal).process);
  processes.erase(std::unique(processes.begin(), processes.end()), processes.end());
  return processes;
}

void Blocking::generalise(Cube& cube, std::size_t level) {
  dropProcesses(cube, level);
  // From the back: clocks before locations. What could not be dropped stays in place, so the index
  // goes down over what has not been tried.
  for (std::size_t i = cube.size(); i-- > 0;) {
    if (i >= cube.size()) continue;
    if (cube.size() > 1 && tryDropping(cube, i, level)) {
      i = std::min(i + 1, cube.size());
      continue;
    }
  }
  for (std::size_t i = cube.size(); i-- > 0;) {
    if (i >= cube.size()) continue;
    const std::size_t size = cube.size();
    const bool isClock = words_.meaning(cube[i]).isClock;
    if (!tryWeaker(cube, i, level)) continue;
    if (isClock) {
      i = std::min(i + 1, cube.size());
      continue;
    }
    // The negations that came in its place, one by one.
    for (std::size_t j = std::min(cube.size(), i + (cube.size() - std::min(cube.size(), size)) + 1);
         j-- > i;)
      if (j < cube.size() && cube.size() > 1) tryDropping(cube, j, level);
  }
}

}  // namespace tpn
