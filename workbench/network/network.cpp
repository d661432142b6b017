#include "workbench/network/network.hpp"

#include <algorithm>
#include <cassert>
#include <stdexcept>

namespace tpn {

namespace {

template <class Key>
std::string nameOr(const std::map<Key, std::string>& names, const Key& key,
                   const std::string& otherwise) {
  const auto found = names.find(key);
  return found == names.end() ? otherwise : found->second;
}

}  // namespace

std::string processName(const Network& net, std::size_t process) {
  return nameOr(net.names.processes, process, std::to_string(number(process)));
}

std::string locationName(const Network& net, std::size_t process, int location) {
  return nameOr(net.names.locations, {process, location}, std::to_string(location));
}

std::string transitionName(const Network& net, std::size_t transition) {
  return nameOr(net.names.transitions, transition, std::to_string(number(transition)));
}

std::string propositionName(const Network& net, int proposition) {
  return nameOr(net.names.propositions, proposition, "p" + std::to_string(proposition));
}

Locations initialLocations(const Network& net) { return Locations(net.processes.size(), 0); }

std::int64_t largestLatest(const Network& net) {
  std::int64_t largest = 0;
  for (const Transition& t : net.transitions)
    largest = std::max(largest, t.interval.latest.value_or(0));
  return largest;
}

std::int64_t largestConstant(const Network& net) {
  std::int64_t largest = largestLatest(net);
  for (const Transition& t : net.transitions) largest = std::max(largest, t.interval.earliest);
  return largest;
}

const Move* unmetPrecondition(const Transition& t, const Locations& at) {
  for (const Move& move : t.moves)
    if (at[move.process] != move.source) return &move;
  return nullptr;
}

bool enabled(const Transition& t, const Locations& at) {
  return std::all_of(t.moves.begin(), t.moves.end(), [&](const Move& move) {
    return !move.counts || at[move.process] == move.source;
  });
}

bool isValid(const Transition& t) {
  return std::any_of(t.moves.begin(), t.moves.end(), [](const Move& m) { return m.counts; }) &&
         std::all_of(t.moves.begin(), t.moves.end(),
                     [](const Move& m) { return m.resets || m.source == m.target; });
}

bool hasPlainMoves(const Network& net) {
  return std::all_of(net.transitions.begin(), net.transitions.end(), [](const Transition& t) {
    return std::all_of(t.moves.begin(), t.moves.end(),
                       [](const Move& m) { return m.counts && m.resets; });
  });
}

void requirePlainMoves(const Network& net, const std::string& what) {
  for (std::size_t t = 0; t < net.transitions.size(); ++t)
    for (const Move& move : net.transitions[t].moves) {
      if (move.counts && move.resets) continue;
      const std::string place = processName(net, move.process);
      throw std::runtime_error(what + " cannot say what transition " + transitionName(net, t) +
                               " does: it " + (move.counts ? "reads " : "puts a token on ") +
                               place +
                               (move.counts ? " without taking its token" : " without taking one"));
    }
}

bool mayBeUnsafe(const Network& net) {
  return std::any_of(net.transitions.begin(), net.transitions.end(), [](const Transition& t) {
    return std::any_of(t.moves.begin(), t.moves.end(), [](const Move& m) { return !m.counts; });
  });
}

std::set<int> propositionsAt(const Network& net, const Locations& at) {
  assert(at.size() == net.processes.size());
  std::set<int> held;
  for (std::size_t p = 0; p < at.size(); ++p) {
    const auto label = net.processes[p].labels.find(at[p]);
    if (label != net.processes[p].labels.end())
      held.insert(label->second.begin(), label->second.end());
  }
  return held;
}

std::set<int> propositions(const Network& net) {
  std::set<int> all;
  for (const Process& process : net.processes)
    for (const auto& [location, labels] : process.labels) all.insert(labels.begin(), labels.end());
  return all;
}

}  // namespace tpn
