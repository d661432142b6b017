#include "workbench/search/shuffled.hpp"

#include <algorithm>
#include <numeric>
#include <random>
#include <utility>

namespace tpn {

namespace {

// Of 0 .. count - 1; the same on every machine, which std::shuffle does not promise.
std::vector<std::size_t> permutation(std::size_t count, std::mt19937_64& random) {
  std::vector<std::size_t> order(count);
  std::iota(order.begin(), order.end(), std::size_t{0});
  for (std::size_t i = count; i > 1; --i) std::swap(order[i - 1], order[random() % i]);
  return order;
}

std::vector<std::size_t> inverse(const std::vector<std::size_t>& order) {
  std::vector<std::size_t> result(order.size());
  for (std::size_t i = 0; i < order.size(); ++i) result[order[i]] = i;
  return result;
}

Transition renamed(Transition t, const std::vector<std::size_t>& processes) {
  for (Move& move : t.moves) move.process = processes[move.process];
  std::sort(t.moves.begin(), t.moves.end(),
            [](const Move& a, const Move& b) { return a.process < b.process; });
  return t;
}

}  // namespace

Shuffled::Shuffled(const Network& net, const Goal& goal, std::uint64_t seed)
    : net_(net), goal_(goal), seed_(seed) {
  if (seed == 0) return;
  std::mt19937_64 random(seed);
  processes_ = permutation(net.processes.size(), random);
  transitions_ = permutation(net.transitions.size(), random);
  const std::vector<std::size_t> there = inverse(processes_);
  net_ = {net.title, {}, {}, {}};
  for (const std::size_t process : processes_) net_.processes.push_back(net.processes[process]);
  for (const std::size_t transition : transitions_)
    net_.transitions.push_back(renamed(net.transitions[transition], there));
  for (PropertyItem& item : goal_.items)
    if (item.kind == PropertyItem::at || item.kind == PropertyItem::notAt)
      item.process = there[item.process];
}

Run Shuffled::back(Run run) const {
  if (seed_ == 0) return run;
  for (Step& step : run.steps) step.transition = transitions_[step.transition];
  return run;
}

Certificate Shuffled::back(const Certificate& certificate) const {
  if (seed_ == 0) return certificate;
  const auto here = [this](Spot spot) { return Spot{processes_[spot.process], spot.location}; };
  Certificate result;
  for (const LinearInvariant& invariant : certificate.linear) {
    LinearInvariant renamed{{}, invariant.total};
    for (const auto& [spot, coefficient] : invariant.coefficients)
      renamed.coefficients[here(spot)] = coefficient;
    result.linear.push_back(std::move(renamed));
  }
  for (const Generator& generator : certificate.generators) {
    Generator renamed;
    for (const auto& [from, to] : generator.processes)
      renamed.processes[processes_[from]] = processes_[to];
    for (const auto& [spot, location] : generator.locations)
      renamed.locations[here(spot)] = location;
    result.generators.push_back(std::move(renamed));
  }
  for (AtomClause clause : certificate.clauses) {
    for (Atom& atom : clause) atom.process = processes_[atom.process];
    std::sort(clause.begin(), clause.end());
    result.clauses.push_back(std::move(clause));
  }
  return result;
}

}  // namespace tpn
