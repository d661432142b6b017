#include "workbench/search/proving.hpp"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "workbench/machine/invariants.hpp"
#include "workbench/machine/linearclauses.hpp"
#include "workbench/machine/symmetry.hpp"
#include "workbench/proof/checker.hpp"
#include "workbench/prover/certify.hpp"
#include "workbench/search/foundrun.hpp"
#include "workbench/search/greedy.hpp"

namespace tpn {

namespace {

// The second widest clock: what takes many units to prove is a difference of two.
std::int64_t widestPair(const Machine& machine) {
  std::int64_t widest = 0;
  std::int64_t second = 0;
  for (const Machine::Process& process : machine.processes) {
    second = std::max(second, std::min(widest, process.cap));
    widest = std::max(widest, process.cap);
  }
  return second;
}

// 1, 4, 16, ... up to between a tenth and two fifths of the widest clocks: each unit on its own
// makes a frame of its own, and each delay queries for whatever time may make true
// (docs/performance.md).
std::vector<std::int64_t> delaysFor(const Machine& machine) {
  std::vector<std::int64_t> delays{1};
  while (delays.back() * 10 <= widestPair(machine)) delays.push_back(4 * delays.back());
  return delays;
}

// Are there more variables than the prover can do anything with? Frames are about as many as units,
// so that wide clocks are hopeless long before memory runs out.
bool tooWide(const Machine& machine) {
  constexpr std::int64_t widest = 100'000;
  constexpr std::int64_t mostVariables = 4'000'000;
  if (widestClock(machine) > widest || !StateLayout::fits(machine)) return true;
  const auto copies = 1 + 2 * static_cast<std::int64_t>(delaysFor(machine).size());
  return StateLayout::capped(machine).size() * copies > mostVariables;
}

class Proving {
 public:
  Proving(const Network& net, const Goal& goal, const std::function<bool()>& over,
          const ProvingOptions& options)
      : net_(net),
        goal_(goal),
        over_(over),
        options_(options),
        checkpoint_(over),
        machine_(makeMachine(net)),
        layout_(StateLayout::capped(machine_)),
        symmetries_(symmetries(machine_, checkpoint_)),
        invariants_(placeInvariants(machine_)) {}

  Proved run(const std::function<void(const ProverProgress&)>& report) {
    std::vector<Orbits::Permutation> generators;
    for (const Symmetry& s : symmetries_) {
      if (!options_.symmetry) break;
      generators.push_back(permutationOf(machine_, layout_, s));
      checkpoint_();
    }
    ProverOptions options;
    if (options_.longDelays) options.delays = delaysFor(machine_);
    LinearClauses linear = linearClauses(machine_, layout_, invariants_, checkpoint_);
    options.facts = std::move(linear.clauses);
    options.helpers = linear.helpers;
    const StateFormula formula = propertyFormula(net_, machine_, layout_, goal_);
    if (options_.greedy && !asksDeadlock(goal_))
      options.aside = [this](long queries) { return greedyFinds(queries); };
    const ProverResult result =
        prove(machine_, layout_, formula, Orbits(generators), options, over_, report);
    if (found_) return {runOf(*found_), {}, false};
    if (result.answer == ProverResult::reachable)
      return {runOf({result.transitions, result.delays}), {}, false};
    if (result.answer == ProverResult::unreachable) return {{}, checked(result), false};
    return {};
  }

 private:
  // Where time decides on the goal, the earliest times need not lead to one.
  Run runOf(const Greedy::Found& found) const {
    std::vector<std::int64_t> delays;
    if (asksSafety(goal_) || (asksDeadlock(goal_) && hasHopeless(machine_))) delays = found.delays;
    for (std::int64_t& delay : delays) delay *= machine_.unit;
    return foundRun(net_, goal_, found.transitions, delays);
  }

  // The greedy search's share of the time, after so many queries of the prover's: some hundredths
  // where symmetries make proofs short, or else a quarter at first.
  bool greedyFinds(long queries) {
    constexpr long start = 250;  // what is answered by then needs no other search
    constexpr long early = 12'000;
    constexpr long least = 40;        // a query
    constexpr long more = 360;        // the same, early, without symmetries
    constexpr long most = 1'000'000;  // at a time
    if (queries < start || greedyEnded_) return false;
    long share = least * (queries - start);
    if (symmetries_.empty()) share += more * std::min(queries - start, early);
    if (!greedy_) greedy_.emplace(net_, machine_, goal_, checkpoint_);
    found_ = greedy_->goOn(std::min(most, share - greedy_->effort()));
    greedyEnded_ = greedy_->over();
    if (greedyEnded_) greedy_.reset();  // and with it all of its states
    return found_.has_value();
  }

  std::optional<Certificate> checked(const ProverResult& result) const {
    Certificate certificate = certificateOf(machine_, layout_, result, invariants_, symmetries_);
    const Recheck recheck = tpn::recheck(net_, goal_, certificate, over_);
    if (recheck.result == Recheck::stopped) return std::nullopt;
    if (recheck.result == Recheck::refuted)
      throw std::runtime_error("the proof that was found does not check: " + recheck.complaint);
    return certificate;
  }

  const Network& net_;
  const Goal& goal_;
  const std::function<bool()>& over_;
  const ProvingOptions& options_;
  Checkpoint checkpoint_;
  Machine machine_;
  StateLayout layout_;
  std::vector<Symmetry> symmetries_;
  std::vector<PlaceInvariant> invariants_;
  std::optional<Greedy> greedy_;
  bool greedyEnded_ = false;
  std::optional<Greedy::Found> found_;
};

}  // namespace

Proved proved(const Network& net, const Goal& goal, const std::function<bool()>& over,
              const std::function<void(const ProverProgress&)>& report,
              const ProvingOptions& options) {
  if (tooWide(makeMachine(net))) return {{}, {}, true};
  try {
    return Proving(net, goal, over, options).run(report);
  } catch (const Interrupted&) {
    return {};
  }
}

}  // namespace tpn
