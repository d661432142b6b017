#include "workbench/prover/ic3.hpp"

#include <algorithm>
#include <cassert>
#include <deque>
#include <memory>
#include <optional>
#include <queue>
#include <tuple>
#include <utility>

#include "workbench/prover/blocking.hpp"
#include "workbench/prover/frames.hpp"
#include "workbench/prover/steps.hpp"
#include "workbench/solvers/solver.hpp"

namespace tpn {

namespace {

// A cube from which the goal can be reached, and how: by `way` into that of `next`.
struct Obligation {
  Cube cube;
  Way way;
  std::optional<std::size_t> next;
  std::vector<std::size_t> about;  // processes, ascending
};

class Prover {
 public:
  Prover(const Machine& machine, const StateLayout& layout, const StateFormula& goal,
         const Orbits& orbits, const ProverOptions& options, const std::function<bool()>& stop,
         const std::function<void(const ProverProgress&)>& report)
      : machine_(machine),
        words_(machine, layout),
        solver_(makeCadical(Use::manyShortSearches)),
        stateSize_(layout.size()),
        goal_(addFacts(machine, layout, options, goal)),
        steps_(machine, layout, words_, options.delays,
               Interchange(machine, layout, words_, orbits.generators()), *solver_,
               stateSize_ + options.helpers + goal.helpers + 1),
        frames_(words_, orbits, options.mostImages, *solver_, steps_.variables() + 1),
        blocking_(machine, layout, words_, steps_, frames_, *solver_),
        stop_(stop),
        report_(report) {
    solver_->stop(stop_);
    // Processes that do not matter are where they were at first.
    for (int v = 1; v <= stateSize_; ++v) solver_->prefer(words_.initially(v) ? v : -v);
  }

  ProverResult run() {
    if (const auto cube = goalIn(0)) return reached(addGoal(*cube));
    for (std::size_t level = 1;; ++level) {
      frames_.openTo(level + 1);
      result_.frames = level - 1;
      tell(level);
      while (const auto cube = goalIn(level)) {
        const std::size_t first = addGoal(*cube);
        if (words_.holdsInitially(*cube)) return reached(first);
        if (const auto run = block(first, level)) return reached(*run);
      }
      if (const auto fixed = propagate(level)) return proved(*fixed);
    }
  }

  const ProverResult& soFar() const { return result_; }

 private:
  int addFacts(const Machine& machine, const StateLayout& layout, const ProverOptions& options,
               const StateFormula& goal) {
    addAt(*solver_, facts(machine, layout), 0);
    addAt(*solver_, options.facts, 0);
    return addFormula(*solver_, goal, layout.size(), 0, layout.size() + options.helpers);
  }

  std::size_t add(Obligation obligation) {
    obligations_.push_back(std::move(obligation));
    return obligations_.size() - 1;
  }

  std::size_t addGoal(const Cube& cube) {
    std::vector<std::size_t> about;
    for (const int literal : cube) about.push_back(words_.meaning(literal).process);
    return add({cube, {}, std::nullopt, about});
  }

  bool solve() {
    const Solver::Result result = solver_->solve();
    if (result == Solver::Result::undecided) throw ProverStopped();
    return result == Solver::Result::satisfiable;
  }

  // Goal states around one of the frame, if it has one.
  std::optional<Cube> goalIn(std::size_t level) {
    solver_->assume(frames_.frame(level));
    solver_->assume(goal_);
    if (!solve()) return std::nullopt;
    Cube state;
    for (int v = 1; v <= stateSize_; ++v) state.push_back(solver_->value(v) ? v : -v);
    return whyGoal(words_.normal(state));
  }

  // The literals of a goal state that make it one.
  Cube whyGoal(Cube cube) {
    const auto suffices = [this](const Cube& literals) {
      solver_->assume(-goal_);
      for (const int literal : literals) solver_->assume(literal);
      return !solve();
    };
    const auto needed = [&](const Cube& literals) {
      Cube rest;
      for (const int literal : literals)
        if (solver_->failed(literal)) rest.push_back(literal);
      return rest;
    };
    const bool isGoal = suffices(cube);
    assert(isGoal);
    cube = needed(cube);
    for (std::size_t i = cube.size(); i-- > 0;) {
      Cube rest = cube;
      rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(i));
      if (suffices(rest)) cube = rest;
    }
    return words_.normal(cube);
  }

  // Blocks an obligation at a level, and those that come up on the way; the obligation with the
  // initial state in it, if there is one.
  std::optional<std::size_t> block(std::size_t first, std::size_t level) {
    using Entry = std::pair<std::size_t, std::size_t>;  // level, obligation: lowest, newest first
    const auto later = [](const Entry& a, const Entry& b) {
      return a.first != b.first ? a.first > b.first : a.second < b.second;
    };
    std::priority_queue<Entry, std::vector<Entry>, decltype(later)> queue(later);
    queue.emplace(level, first);
    while (!queue.empty()) {
      if (stop_ && stop_()) throw ProverStopped();
      const auto [at, index] = queue.top();
      if (!blocking_.reaches(at, obligations_[index].cube)) {
        queue.pop();
        if (at < frames_.top() - 1) queue.emplace(at + 1, index);
        continue;
      }
      Cube cube = obligations_[index].cube;
      const std::vector<std::size_t> distance = distances(obligations_[index]);
      if (auto core = coreOf(obligations_[index], distance, at)) {
        queue.pop();
        exclude(*core, at, distance);
        if (at < frames_.top() - 1) queue.emplace(at + 1, index);
        continue;
      }
      if (const auto before = blocking_.intoFrom(cube, at)) {
        const std::size_t next = add(
            {before->cube, before->way, index, aboutAlso(obligations_[index].about, before->way)});
        if (words_.holdsInitially(before->cube)) return next;
        assert(at > 1);
        queue.emplace(at - 1, next);
        continue;
      }
      queue.pop();
      exclude(cube, at, distance);
      if (at < frames_.top() - 1) queue.emplace(at + 1, index);
    }
    obligations_.clear();
    return std::nullopt;
  }

  // [process]: how many transitions away from those that the obligation is about; empty where its
  // cube is about no others.
  std::vector<std::size_t> distances(const Obligation& o) const {
    std::vector<std::size_t> reached = o.about;
    const auto isNear = [&](int literal) {
      return std::binary_search(o.about.begin(), o.about.end(), words_.meaning(literal).process);
    };
    if (std::all_of(o.cube.begin(), o.cube.end(), isNear)) return {};
    const std::size_t far = machine_.processes.size();
    std::vector<std::size_t> distance(far, far);
    std::vector<bool> seen(machine_.transitions.size(), false);
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

  // A part of an obligation's cube that is not stepped into either: what it says of processes that
  // the goal and the moves towards it are about, or of their neighbours too. The rest says only
  // that no deadline is in the way, and is seldom needed.
  std::optional<Cube> coreOf(const Obligation& o, const std::vector<std::size_t>& distance,
                             std::size_t level) {
    if (distance.empty()) return std::nullopt;
    std::size_t last = 0;
    for (const std::size_t most : {0U, 1U, 2U}) {
      Cube core;
      for (const int literal : o.cube)
        if (distance[words_.meaning(literal).process] <= most) core.push_back(literal);
      if (core.size() == last || core.size() == o.cube.size() || words_.holdsInitially(core))
        continue;
      last = core.size();
      if (!blocking_.intoFrom(core, level)) return core;
    }
    return std::nullopt;
  }

  std::vector<std::size_t> aboutAlso(std::vector<std::size_t> about, const Way& way) const {
    if (way.isDelay()) return about;
    for (const Machine::Move& move : machine_.transitions[way.transition].moves)
      about.push_back(move.process);
    std::sort(about.begin(), about.end());
    about.erase(std::unique(about.begin(), about.end()), about.end());
    return about;
  }

  void exclude(Cube& cube, std::size_t level, const std::vector<std::size_t>& distance) {
    blocking_.generalise(cube, level, distance);
    for (Cube same = cube; level < frames_.top() - 1 && !blocking_.intoFrom(same, level + 1);
         same = cube)
      ++level;
    frames_.learn(cube, level);
    tell(frames_.top() - 1);
  }

  // Raises what can be raised. The level whose clauses all could be, if there is one: they are
  // inductive.
  std::optional<std::size_t> propagate(std::size_t top) {
    for (std::size_t level = 1; level <= top; ++level) {
      for (std::size_t i = 0; i < frames_.learnt().size(); ++i) {
        if (frames_.learnt()[i].level != level) continue;
        Cube cube = frames_.learnt()[i].cube;
        if (!blocking_.intoFrom(cube, level + 1)) frames_.raise(i, level + 1);
      }
      if (frames_.empty(level)) return level + 1;
    }
    return std::nullopt;
  }

  ProverResult reached(std::size_t index) {
    result_.answer = ProverResult::reachable;
    result_.delays = {0};
    for (std::optional<std::size_t> at = index; obligations_[*at].next;
         at = obligations_[*at].next) {
      const Way& way = obligations_[*at].way;
      result_.delays.back() += way.delay;
      if (way.isDelay()) continue;
      result_.transitions.push_back(way.transition);
      result_.delays.push_back(0);
    }
    return result_;
  }

  ProverResult proved(std::size_t level) {
    result_.answer = ProverResult::unreachable;
    for (const Frames::Learnt& learnt : frames_.learnt())
      if (learnt.level >= level) result_.invariant.push_back(learnt.cube);
    return result_;
  }

  void tell(std::size_t level) {
    if (report_)
      report_({level, frames_.learnt().size(), obligations_.size(), blocking_.queries()});
  }

  const Machine& machine_;
  Vocabulary words_;
  std::unique_ptr<Solver> solver_;
  int stateSize_;
  int goal_;
  Steps steps_;
  Frames frames_;
  Blocking blocking_;
  const std::function<bool()>& stop_;
  const std::function<void(const ProverProgress&)>& report_;
  std::deque<Obligation> obligations_;
  ProverResult result_;
};

ProverResult attempt(const Machine& machine, const StateLayout& layout, const StateFormula& goal,
                     const Orbits& orbits, const ProverOptions& options,
                     const std::function<bool()>& stop,
                     const std::function<void(const ProverProgress&)>& report) {
  Prover prover(machine, layout, goal, orbits, options, stop, report);
  ProverResult result;
  try {
    result = prover.run();
  } catch (const ProverStopped&) {
    result = prover.soFar();
  }
  result.symmetric = !orbits.trivial();
  return result;
}

}  // namespace

ProverResult prove(const Machine& machine, const StateLayout& layout, const StateFormula& goal,
                   const Orbits& orbits, const ProverOptions& options,
                   const std::function<bool()>& stop,
                   const std::function<void(const ProverProgress&)>& report) {
  try {
    return attempt(machine, layout, goal, orbits, options, stop, report);
  } catch (const OrbitTooLarge&) {
    return attempt(machine, layout, goal, Orbits(), options, stop, report);
  }
}

}  // namespace tpn
