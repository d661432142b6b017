#include "workbench/search/distance.hpp"

#include <algorithm>
#include <map>
#include <numeric>
#include <utility>

namespace tpn {

namespace {

constexpr int never = 1'000'000'000;
constexpr int far = 100'000;  // sums grow beyond what any way has; as good as out of reach

int added(int a, int b) { return std::min(never, a + b); }

}  // namespace

Distance::Distance(const Network& net, const Machine& machine, const Goal& goal)
    : machine_(machine), sources_(machine.transitions.size(), 0) {
  std::size_t spots = 0;
  for (const Machine::Process& process : machine.processes) {
    first_.push_back(spots);
    spots += process.locations.size();
  }
  usedBy_.resize(spots);
  for (std::size_t t = 0; t < machine.transitions.size(); ++t) {
    if (machine.transitions[t].hopeless()) continue;
    for (const Machine::Move& move : machine.transitions[t].moves) {
      usedBy_[first_[move.process] + move.source].push_back(t);
      ++sources_[t];
    }
  }
  std::vector<std::size_t> stack;
  for (const PropertyItem& item : goal.items) {
    Node node;
    if (isLeaf(item)) {
      node = leaf(net, item);
    } else {
      const auto operands = static_cast<std::size_t>(operandsOf(item));
      node.parts.assign(stack.end() - static_cast<std::ptrdiff_t>(operands), stack.end());
      stack.resize(stack.size() - operands);
      node.least = item.kind == PropertyItem::conjunction   ? operands
                   : item.kind == PropertyItem::disjunction ? 1
                                                            : static_cast<std::size_t>(item.least);
    }
    stack.push_back(nodes_.size());
    nodes_.push_back(std::move(node));
  }
  inGoal_.assign(spots, 0);
  for (const Node& node : nodes_)
    for (const Spots& group : node.groups)
      for (const std::size_t spot : group)
        if (std::exchange(inGoal_[spot], 1) == 0) ++goalSpots_;
  nodeCost_.assign(nodes_.size(), never);
  onWay_.assign(machine.transitions.size(), 0);
}

Distance::Spots Distance::elsewhere(std::size_t process, const Spots& than) const {
  Spots result;
  for (std::size_t l = 0; l < machine_.processes[process].locations.size(); ++l)
    if (std::find(than.begin(), than.end(), first_[process] + l) == than.end())
      result.push_back(first_[process] + l);
  return result;
}

Distance::Node Distance::leaf(const Network& net, const PropertyItem& item) const {
  std::map<std::size_t, Spots> labelled;  // process -> where the proposition holds
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    for (const auto& [location, propositions] : net.processes[p].labels)
      if (propositions.contains(item.number))
        labelled[p].push_back(first_[p] + machine_.processes[p].rank(location));
  const auto spot = [&] {
    return Spots{first_[item.process] + machine_.processes[item.process].rank(item.number)};
  };
  Node node;
  switch (item.kind) {
    case PropertyItem::truth:
      break;
    case PropertyItem::at:
      node.groups = {spot()};
      break;
    case PropertyItem::notAt:
      node.groups = {elsewhere(item.process, spot())};
      break;
    case PropertyItem::proposition:
      node.groups.emplace_back();
      for (const auto& [process, where] : labelled)
        node.groups[0].insert(node.groups[0].end(), where.begin(), where.end());
      break;
    case PropertyItem::negated:
      for (const auto& [process, where] : labelled)
        node.groups.push_back(elsewhere(process, where));
      break;
    default:
      node.groups.emplace_back();  // the cheapest of none: never
  }
  return node;
}

void Distance::reach(std::size_t spot, int cost, std::size_t by) {
  if (cost >= cost_[spot]) return;
  cost_[spot] = cost;
  by_[spot] = by;
  if (reached_.size() <= static_cast<std::size_t>(cost))
    reached_.resize(static_cast<std::size_t>(cost) + 1);
  reached_[static_cast<std::size_t>(cost)].push_back(spot);
}

void Distance::use(std::size_t spot, int cost) {
  for (const std::size_t t : usedBy_[spot]) {
    ++effort_;
    sum_[t] += cost;
    if (--missing_[t] > 0 || sum_[t] > far) continue;
    for (const Machine::Move& move : machine_.transitions[t].moves)
      reach(first_[move.process] + move.target, sum_[t], t);
  }
}

// Cheapest first, until all is known that the goal speaks of.
void Distance::spread(const std::uint32_t* ranks) {
  cost_.assign(usedBy_.size(), never);
  by_.assign(usedBy_.size(), 0);
  missing_ = sources_;
  sum_.assign(sources_.size(), 1);
  for (Spots& spots : reached_) spots.clear();
  for (std::size_t p = 0; p < first_.size(); ++p) reach(first_[p] + ranks[p], 0, 0);
  std::size_t left = goalSpots_;
  for (std::size_t cost = 0; cost < reached_.size() && left > 0; ++cost)
    for (std::size_t i = 0; i < reached_[cost].size() && left > 0; ++i) {
      const std::size_t spot = reached_[cost][i];
      if (cost_[spot] != static_cast<int>(cost)) continue;
      if (inGoal_[spot] != 0) --left;
      use(spot, static_cast<int>(cost));
    }
  effort_ += static_cast<long>(usedBy_.size() + sources_.size()) / 4;
}

// Of one or more.
std::size_t Distance::cheapest(const Spots& spots) const {
  return *std::min_element(spots.begin(), spots.end(),
                           [this](std::size_t a, std::size_t b) { return cost_[a] < cost_[b]; });
}

void Distance::sortParts(const Node& node) {
  sorted_ = node.parts;
  if (node.least < sorted_.size())
    std::stable_sort(sorted_.begin(), sorted_.end(),
                     [this](std::size_t a, std::size_t b) { return nodeCost_[a] < nodeCost_[b]; });
  sorted_.resize(std::min(sorted_.size(), node.least));
}

int Distance::costOf(const Node& node) {
  int sum = 0;
  for (const Spots& group : node.groups)
    sum = added(sum, group.empty() ? never : cost_[cheapest(group)]);
  if (node.least > node.parts.size()) return never;
  sortParts(node);
  for (const std::size_t part : sorted_) sum = added(sum, nodeCost_[part]);
  effort_ += static_cast<long>(1 + node.groups.size() + node.parts.size());
  return sum;
}

// The transitions that the goal needs, and what these need.
void Distance::markWay() {
  std::vector<std::size_t> wanted{nodes_.size() - 1};
  Spots todo;
  while (!wanted.empty()) {
    const Node& node = nodes_[wanted.back()];
    wanted.pop_back();
    for (const Spots& group : node.groups) todo.push_back(cheapest(group));
    sortParts(node);
    wanted.insert(wanted.end(), sorted_.begin(), sorted_.end());
  }
  onWay_.assign(onWay_.size(), 0);
  seen_.assign(usedBy_.size(), 0);
  while (!todo.empty()) {
    const std::size_t spot = todo.back();
    todo.pop_back();
    if (cost_[spot] == 0 || std::exchange(seen_[spot], 1) != 0) continue;
    ++effort_;
    if (std::exchange(onWay_[by_[spot]], 1) != 0) continue;
    for (const Machine::Move& move : machine_.transitions[by_[spot]].moves)
      todo.push_back(first_[move.process] + move.source);
  }
}

std::optional<int> Distance::from(const std::uint32_t* ranks) {
  spread(ranks);
  for (std::size_t i = 0; i < nodes_.size(); ++i) nodeCost_[i] = costOf(nodes_[i]);
  if (nodeCost_.back() >= never) return std::nullopt;
  markWay();
  return static_cast<int>(std::count(onWay_.begin(), onWay_.end(), 1));
}

}  // namespace tpn
