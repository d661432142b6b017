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
    for (const auto& [assumed, literal] : rest)
      if (contains(pass.added, literal)) solver_.assume(assumed);
    for (const auto& [assumed, literal] : rest)
      if (!contains(pass.added, literal)) solver_.assume(assumed);
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

bool Blocking::tryDropping(Cube& cube, std::size_t i, std::size_t level) {
  Cube rest = cube;
  rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(i));
  return excluded(rest, level, rest.size(), cube);
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
    return excluded(words_.normal(rest), level, cube.size(), cube);
  }
  const std::size_t locations = machine_.processes[m.process].locations.size();
  if (literal < 0 || locations < 3) return false;
  for (std::size_t l = 0; l < locations; ++l)
    if (static_cast<std::int64_t>(l) != m.value) rest.push_back(-layout_.location(m.process, l));
  const Cube before = words_.normal(rest);
  Cube after;
  const std::size_t most = cube.size() + (locations <= 8 ? locations - 3 : 2);
  return excluded(before, level, most, after) && (cube = after, true);
}

void Blocking::generalise(Cube& cube, std::size_t level) {
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
