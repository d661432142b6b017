#include "workbench/prover/ic3.hpp"

#include <cassert>
#include <deque>
#include <memory>
#include <optional>
#include <queue>
#include <utility>

#include "workbench/base/checkpoint.hpp"
#include "workbench/machine/sink.hpp"
#include "workbench/prover/blocking.hpp"
#include "workbench/prover/cores.hpp"
#include "workbench/prover/facts.hpp"
#include "workbench/prover/frames.hpp"
#include "workbench/prover/goalstates.hpp"
#include "workbench/prover/nearness.hpp"
#include "workbench/prover/steps.hpp"
#include "workbench/solvers/solver.hpp"

namespace tpn {

namespace {

// A cube from which the goal can be reached, and how: by `way` into that of `next`.
struct Obligation {
  Cube cube;
  Way way;
  std::optional<std::size_t> next;
  Processes about;
};

class Prover {
 public:
  Prover(const Machine& machine, const StateLayout& layout, const StateFormula& goal,
         const Orbits& orbits, const ProverOptions& options, const std::function<bool()>& stop,
         const std::function<void(const ProverProgress&)>& report, ProverResult& result)
      : checkpoint_(stop),
        words_(machine, layout),
        solver_(makeCadical(Use::manyShortSearches)),
        sink_(*solver_),
        goal_(addAll(machine, layout, options, goal)),
        steps_(machine, layout, words_, options.delays,
               Interchange(machine, layout, words_, orbits.generators(), checkpoint_), sink_,
               checkpoint_),
        frames_(words_, orbits, options.mostImages, sink_),
        goalStates_(words_, frames_, *solver_, goal_),
        blocking_(machine, layout, words_, steps_, frames_, *solver_, checkpoint_),
        nearness_(machine, words_),
        cores_(words_, nearness_, blocking_, checkpoint_),
        aside_(options.aside),
        report_(report),
        result_(result) {
    solver_->stop(stop);
    // Processes that do not matter are where they were at first.
    for (int v = 1; v <= words_.variables(); ++v) solver_->prefer(words_.initially(v) ? v : -v);
  }

  void run() {
    if (const auto cube = goalStates_.of(0)) return reached(addGoal(*cube));
    for (std::size_t level = 1;; ++level) {
      frames_.openTo(level + 1);
      result_.frames = level - 1;
      tell(level);
      while (const auto cube = goalStates_.of(level)) {
        const std::size_t first = addGoal(*cube);
        if (words_.holdsInitially(*cube)) return reached(first);
        if (const auto run = block(first, level)) return reached(*run);
      }
      if (const auto fixed = propagate(level)) return proved(*fixed);
    }
  }

 private:
  // What is known from the start, and the goal; the goal's literal.
  int addAll(const Machine& machine, const StateLayout& layout, const ProverOptions& options,
             const StateFormula& goal) {
    sink_.fresh(layout.size() + options.helpers);
    addFacts(machine, layout, sink_, checkpoint_);
    sink_.addAt(options.facts, 0);
    return addFormula(*solver_, goal, layout.size(), 0, sink_.fresh(goal.helpers) - 1);
  }

  std::size_t add(Obligation obligation) {
    obligations_.push_back(std::move(obligation));
    return obligations_.size() - 1;
  }

  std::size_t addGoal(const Cube& cube) {
    return add({cube, {}, std::nullopt, nearness_.of(cube)});
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
      checkpoint_();
      if (aside_ && aside_(blocking_.queries())) throw Interrupted();
      const auto [at, index] = queue.top();
      if (const auto before = predecessor(obligations_[index], at)) {
        const std::size_t next = add({before->cube, before->way, index,
                                      nearness_.with(obligations_[index].about, before->way)});
        if (words_.holdsInitially(before->cube)) return next;
        assert(at > 1);
        queue.emplace(at - 1, next);
        continue;
      }
      tell(frames_.top() - 1);
      queue.pop();
      if (at < frames_.top() - 1) queue.emplace(at + 1, index);
    }
    obligations_.clear();
    return std::nullopt;
  }

  // Of an obligation that a step leads into from the level below; where none does, the level has no
  // state in it any more.
  std::optional<Blocking::Predecessor> predecessor(const Obligation& o, std::size_t level) {
    if (!blocking_.reaches(level, o.cube)) return std::nullopt;
    const std::vector<std::size_t> distance = nearness_.distances(o.cube, o.about);
    if (auto core = coreOf(o.cube, distance, level)) {
      blocking_.exclude(*core, level, distance);
      return std::nullopt;
    }
    Cube cube = o.cube;
    if (auto before = blocking_.intoFrom(cube, level)) return before;
    blocking_.generalise(cube, level, distance);
    const std::size_t near = nearness_.of(nearness_.part(cube, o.about)).size();
    const bool strays = nearness_.of(cube).size() > 2 * near;
    if (!strays || !cores_.block(o.cube, o.about, level)) blocking_.learn(cube, level);
    return std::nullopt;
  }

  // A part of an obligation's cube that is not stepped into either: what it is about, or its
  // neighbours too.
  std::optional<Cube> coreOf(const Cube& cube, const std::vector<std::size_t>& distance,
                             std::size_t level) {
    if (distance.empty()) return std::nullopt;
    std::size_t last = 0;
    for (const std::size_t most : {0U, 1U, 2U}) {
      Cube core;
      for (const int literal : cube)
        if (distance[words_.meaning(literal).process] <= most) core.push_back(literal);
      if (core.size() == last || core.size() == cube.size() || words_.holdsInitially(core))
        continue;
      last = core.size();
      if (!blocking_.intoFrom(core, level)) return core;
    }
    return std::nullopt;
  }

  // Raises what can be raised. The level whose clauses all could be, if there is one: they are
  // inductive.
  std::optional<std::size_t> propagate(std::size_t top) {
    for (std::size_t level = 1; level <= top; ++level) {
      for (std::size_t i = 0; i < frames_.learnt().size(); ++i) {
        if (frames_.learnt()[i].level != level) continue;
        Cube cube = frames_.learnt()[i].cube;
        if (!blocking_.raise(cube, level + 1)) continue;
        if (cube != frames_.learnt()[i].cube) frames_.learn(cube, level + 1);
        frames_.raise(i, level + 1);
      }
      if (frames_.empty(level)) return level + 1;
    }
    return std::nullopt;
  }

  void reached(std::size_t index) {
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
  }

  void proved(std::size_t level) {
    result_.answer = ProverResult::unreachable;
    for (const Frames::Learnt& learnt : frames_.learnt())
      if (learnt.level >= level) result_.invariant.push_back(learnt.cube);
  }

  void tell(std::size_t level) {
    if (report_)
      report_({level, frames_.learnt().size(), obligations_.size(), blocking_.queries()});
  }

  Checkpoint checkpoint_;
  Vocabulary words_;
  std::unique_ptr<Solver> solver_;
  ClauseSink sink_;
  int goal_;
  Steps steps_;
  Frames frames_;
  GoalStates goalStates_;
  Blocking blocking_;
  Nearness nearness_;
  Cores cores_;
  const std::function<bool(long)>& aside_;
  const std::function<void(const ProverProgress&)>& report_;
  std::deque<Obligation> obligations_;
  ProverResult& result_;
};

ProverResult attempt(const Machine& machine, const StateLayout& layout, const StateFormula& goal,
                     const Orbits& orbits, const ProverOptions& options,
                     const std::function<bool()>& stop,
                     const std::function<void(const ProverProgress&)>& report) {
  ProverResult result;
  try {
    Prover(machine, layout, goal, orbits, options, stop, report, result).run();
  } catch (const Interrupted&) {
    result.answer = ProverResult::undecided;
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
