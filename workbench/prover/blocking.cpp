#include "workbench/prover/blocking.hpp"

#include <algorithm>
#include <cassert>

namespace tpn {

bool solved(Solver& solver) {
  const Solver::Result result = solver.solve();
  if (result == Solver::Result::undecided) throw Interrupted();
  return result == Solver::Result::satisfiable;
}

bool Blocking::solve() {
  ++queries_;
  checkpoint_();
  return solved(solver_);
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

void Blocking::learn(const Cube& cube, std::size_t level) {
  level = learnAlone(cube, level);
  for (const std::int64_t units : {1, -1})
    for (std::int64_t by = units;; by += units) {
      std::optional<Cube> next = delayed(cube, by);
      if (!next || words_.holdsInitially(*next)) break;
      if (!reaches(level, *next)) continue;
      if (intoFrom(*next, level)) break;
      learnAlone(*next, level);
    }
}

std::size_t Blocking::learnAlone(const Cube& cube, std::size_t level) {
  Cube highest = cube;
  while (level < frames_.top() - 1 && raise(highest, level + 1)) ++level;
  frames_.learn(highest, level);
  return level;
}

bool Blocking::raise(Cube& cube, std::size_t level) {
  Cube larger = cube;
  if (intoFrom(larger, level)) return false;
  if (larger != cube && entered(cube, level)) cube = larger;
  return true;
}

bool Blocking::entered(const Cube& cube, std::size_t level) {
  Pass pass{cube, cube, level, {}, {}, {}};
  steps_.forEach(cube, pass.kept, [&](const Query& query) { return ask(query, pass); });
  return pass.found.has_value();
}

// The cube with all bounds on clocks so many units further; none where it bounds no two clocks, or
// where one would not be a bound any more.
std::optional<Cube> Blocking::delayed(const Cube& cube, std::int64_t units) const {
  Cube result = cube;
  std::size_t bounds = 0;
  for (int& literal : result) {
    const Meaning& m = words_.meaning(literal);
    if (!m.isClock) continue;
    ++bounds;
    const std::int64_t value = m.value + units;
    if (value < 1 || value > layout_.width(m.process)) return std::nullopt;
    const int moved = layout_.clock(m.process, value);
    literal = literal < 0 ? -moved : moved;
  }
  if (bounds < 2) return std::nullopt;
  return result;
}

}  // namespace tpn
