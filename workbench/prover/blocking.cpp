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
  std::optional<Predecessor> found;
  keepOut(cube, level, cube.size(), found);
  return found;
}

bool Blocking::keepOut(Cube& cube, std::size_t level, std::size_t most,
                       std::optional<Predecessor>& found) {
  assert(level > 0 && !words_.holdsInitially(cube));
  Cube part{seed(cube)};
  while (part.size() <= most) {
    Pass pass{cube, part, level, {}, {}, {}};
    steps_.forEach(part, pass.kept, [&](const Query& query) { return ask(query, pass); });
    found = pass.found;
    if (found) return false;
    if (pass.added.empty()) {
      cube = part;
      reduce(cube, pass.kept);
      return true;
    }
    Cube more;
    for (const int literal : cube)
      if (contains(part, literal) || contains(pass.added, literal)) more.push_back(literal);
    part = std::move(more);
  }
  return false;
}

// Where the part does not keep a step out, the whole cube may: with what of it that takes.
bool Blocking::ask(const Query& query, Pass& pass) {
  assume(query, pass);
  if (!solve()) {
    for (const auto& [assumed, literal] : query.literals)
      if (solver_.failed(assumed) && !contains(pass.kept, literal)) pass.kept.push_back(literal);
    return true;
  }
  std::vector<std::pair<int, int>> rest;
  for (const int literal : pass.cube) {
    if (contains(pass.part, literal)) continue;
    const Steps::Carried carried = steps_.carried(literal, query.way);
    if (!carried.decided) {
      rest.emplace_back(carried.assumed, literal);
    } else if (!carried.value) {
      pass.added.push_back(literal);
      return true;
    }
  }
  if (!rest.empty()) {
    assume(query, pass);
    rest = nearestFirst(std::move(rest), pass);
    for (const auto& [assumed, literal] : rest) solver_.assume(assumed);
    if (!solve()) {
      for (const auto& [assumed, literal] : rest)
        if (solver_.failed(assumed)) pass.added.push_back(literal);
      return true;
    }
  }
  const auto state = [this](int literal) { return solver_.value(literal); };
  pass.found = Predecessor{steps_.before(pass.cube, query.way, state), query.way};
  return false;
}

void Blocking::meet() {
  neighbours_.resize(machine_.processes.size());
  for (const Machine::Transition& t : machine_.transitions)
    for (const Machine::Move& one : t.moves)
      for (const Machine::Move& other : t.moves)
        if (one.process != other.process) neighbours_[one.process].push_back(other.process);
  for (std::vector<std::size_t>& list : neighbours_) {
    std::sort(list.begin(), list.end());
    list.erase(std::unique(list.begin(), list.end()), list.end());
  }
}

// What is to be added anyway, then what is about the processes of the part, then about those that
// these move together with: the solver blames the first that do. A reason that is far away is true
// of few steps only, and needs one such process more for each further frame.
std::vector<std::pair<int, int>> Blocking::nearestFirst(std::vector<std::pair<int, int>> rest,
                                                        const Pass& pass) const {
  std::vector<int> distance(machine_.processes.size(), 3);
  for (const int literal : pass.part)
    for (const std::size_t near : neighbours_[words_.meaning(literal).process]) distance[near] = 2;
  for (const int literal : pass.part) distance[words_.meaning(literal).process] = 1;
  const auto of = [&](int literal) {
    return contains(pass.added, literal) ? 0 : distance[words_.meaning(literal).process];
  };
  std::stable_sort(rest.begin(), rest.end(),
                   [&](const auto& a, const auto& b) { return of(a.second) < of(b.second); });
  return rest;
}

void Blocking::assume(const Query& query, const Pass& pass) {
  solver_.assume(frames_.frame(pass.level - 1));
  for (const int literal : query.fixed) solver_.assume(literal);
  if (query.outside != 0) solver_.assume(query.outside);
  // Those that are needed already come first, so that others are not blamed in their place.
  for (const auto& [assumed, literal] : query.literals)
    if (contains(pass.kept, literal)) solver_.assume(assumed);
  for (const auto& [assumed, literal] : query.literals)
    if (!contains(pass.kept, literal)) solver_.assume(assumed);
}

// A literal that keeps the initial state out, and that few transitions make true.
int Blocking::seed(const Cube& cube) const {
  int best = 0;
  std::size_t fewest = 0;
  for (const int literal : cube) {
    if (words_.initially(literal)) continue;
    const Meaning& m = words_.meaning(literal);
    const Machine::Process& process = machine_.processes[m.process];
    const bool at = !m.isClock && literal > 0;
    const std::size_t ways =
        at ? process.locations[static_cast<std::size_t>(m.value)].entering.size()
           : process.movers.size();
    if (best == 0 || ways < fewest) {
      best = literal;
      fewest = ways;
    }
  }
  return best;
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
