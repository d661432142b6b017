#include "workbench/campaign/cubes.hpp"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <utility>

#include "workbench/machine/exchange.hpp"
#include "workbench/search/bounded.hpp"
#include "workbench/solvers/solver.hpp"

namespace tpn {

namespace {

// Of a largest class of processes that can be exchanged, the last one that moves; the symmetry is
// broken so. Where none can be, the process with the most transitions.
std::size_t lateProcess(const Network& net, const Goal& goal) {
  const auto classes = interchangeable(net, makeMachine(net), &goal);
  const auto largest =
      std::max_element(classes.begin(), classes.end(),
                       [](const auto& a, const auto& b) { return a.size() < b.size(); });
  if (largest != classes.end()) return largest->back();
  std::vector<int> moves(net.processes.size());
  for (const Transition& t : net.transitions)
    for (const Move& move : t.moves) ++moves[move.process];
  return static_cast<std::size_t>(std::max_element(moves.begin(), moves.end()) - moves.begin());
}

std::vector<std::size_t> transitionsOf(const Network& net, std::size_t process) {
  std::vector<std::size_t> transitions;
  for (std::size_t t = 0; t < net.transitions.size(); ++t)
    if (std::any_of(net.transitions[t].moves.begin(), net.transitions[t].moves.end(),
                    [&](const Move& move) { return move.process == process; }))
      transitions.push_back(t);
  return transitions;
}

// The last steps of all parts but the last one, ascending: parts become shorter towards the end,
// where more can have happened before.
std::vector<std::size_t> cuts(int parts, int maxTransitions) {
  std::vector<std::size_t> ends;
  for (int i = 1; i < parts; ++i) {
    const double share = std::sqrt(static_cast<double>(i) / parts);
    const auto end = static_cast<std::size_t>(std::lround(share * maxTransitions));
    if (end >= 1 && (ends.empty() || end > ends.back()) &&
        end < static_cast<std::size_t>(maxTransitions))
      ends.push_back(end);
  }
  return ends;
}

// Adds that a run is in none of the cubes. The variable of a step and a transition says that the
// one is the other.
class Uncovered {
 public:
  explicit Uncovered(Solver& solver) : solver_(solver) {}

  void leave(const RunCube& cube) {
    std::vector<int> missed;
    for (const CubePart& part : cube) {
      missed.push_back(++last_);  // implies that the part does not hold
      if (!part.some) solver_.add(-missed.back());
      for (std::size_t step = part.first; step <= part.last; ++step)
        for (const std::size_t t : part.transitions) addFiring(part, missed.back(), step, t);
      if (!part.some) solver_.add(0);
    }
    addClause(missed);
  }

  // Some transition is each of the steps.
  void addSteps(std::size_t transitions, std::size_t steps) {
    for (std::size_t step = 1; step <= steps; ++step) {
      std::vector<int> some;
      for (std::size_t t = 0; t < transitions; ++t) some.push_back(variable(step, t));
      addClause(some);
    }
  }

 private:
  // Where some should fire, that it missed says of each that it does not; where none should, that
  // one of them does.
  void addFiring(const CubePart& part, int missed, std::size_t step, std::size_t t) {
    const int fires = variable(step, t);
    if (!part.some) return solver_.add(fires);
    addClause({-missed, -fires});
  }
  int variable(std::size_t step, std::size_t transition) {
    int& variable = variables_[{step, transition}];
    if (variable == 0) variable = ++last_;
    return variable;
  }
  void addClause(const std::vector<int>& literals) {
    for (const int literal : literals) solver_.add(literal);
    solver_.add(0);
  }

  Solver& solver_;
  std::map<std::pair<std::size_t, std::size_t>, int> variables_;
  int last_ = 0;
};

bool isAbout(const Network& net, const RunCube& cube, int maxTransitions) {
  return std::all_of(cube.begin(), cube.end(), [&](const CubePart& part) {
    return part.first >= 1 && part.first <= part.last &&
           part.last <= static_cast<std::size_t>(maxTransitions) &&
           std::is_sorted(part.transitions.begin(), part.transitions.end()) &&
           (part.transitions.empty() || part.transitions.back() < net.transitions.size());
  });
}

}  // namespace

std::vector<RunCube> splitRuns(const Network& net, const Goal& goal, int depth,
                               int maxTransitions) {
  const std::vector<std::size_t> moves = transitionsOf(net, lateProcess(net, goal));
  std::vector<RunCube> cubes;
  std::size_t before = 0;  // steps in which it has not moved yet
  for (const std::size_t end : cuts(1 << depth, maxTransitions)) {
    cubes.push_back({{before + 1, end, true, moves}});
    if (before > 0) cubes.back().push_back({1, before, false, moves});
    before = end;
  }
  cubes.emplace_back();
  if (before > 0) cubes.back().push_back({1, before, false, moves});
  return cubes;
}

Answer answeredInCube(const Network& net, const Goal& goal, const RunCube& cube, int maxTransitions,
                      const Watch& watch) {
  BoundedOptions options;
  options.maxTransitions = maxTransitions;
  options.cube = cube;
  const BoundedVerdict verdict =
      searchBounded(net, goal, options, [&] { return watch.over(); }, {});
  Answer answer;
  answer.noRunUpTo = verdict.noRunUpTo;
  if (verdict.answer == BoundedVerdict::reached) {
    answer.run = verdict.run;
    answer.reason = unsafety(net, goal, *answer.run);
    answer.kind = answer.reason.empty() ? Answer::reachable : Answer::unsafe;
  } else if (verdict.answer == BoundedVerdict::stuck) {
    answer.noRunUpTo = maxTransitions;
  } else if (verdict.answer == BoundedVerdict::undecided) {
    answer.reason = watch.over() ? watch.reason() : verdict.reason;
  }
  return answer;
}

bool isIn(const RunCube& cube, const Run& run) {
  return std::all_of(cube.begin(), cube.end(), [&](const CubePart& part) {
    if (part.some && part.last > run.steps.size()) return true;
    for (std::size_t step = part.first; step <= std::min(part.last, run.steps.size()); ++step)
      if (std::binary_search(part.transitions.begin(), part.transitions.end(),
                             run.steps[step - 1].transition))
        return part.some;
    return !part.some;
  });
}

std::string coverComplaint(const Network& net, const std::vector<RunCube>& cubes,
                           int maxTransitions) {
  const std::unique_ptr<Solver> solver = makeCadical(Use::manyShortSearches);
  Uncovered uncovered(*solver);
  for (const RunCube& cube : cubes) {
    if (!isAbout(net, cube, maxTransitions)) return "a cube is about what is not there";
    uncovered.leave(cube);
  }
  uncovered.addSteps(net.transitions.size(), static_cast<std::size_t>(maxTransitions));
  if (solver->solve() == Solver::Result::unsatisfiable) return "";
  return "there are runs in none of the cubes";
}

}  // namespace tpn
