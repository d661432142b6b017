#include "workbench/families/random.hpp"

#include <algorithm>
#include <cassert>

#include "workbench/families/postfix.hpp"

namespace tpn {

namespace {

constexpr std::uint64_t modulus = 2147483647;

}  // namespace

Random::Random(std::uint64_t seed) : state_(seed % modulus) {
  if (state_ == 0) state_ = 1;
}

std::size_t Random::below(std::size_t n) {
  assert(n != 0 && n <= 1U << 15U);
  state_ = state_ * 48271 % modulus;
  return static_cast<std::size_t>(state_ >> 16U) % n;
}

std::size_t RandomNetworks::within(const Range& range) {
  return range.least + random_.upTo(range.most - range.least);
}

Interval RandomNetworks::interval(bool first) {
  const std::size_t earliest = random_.upTo(shape_.earliest);
  std::size_t latest = std::max(earliest, std::min(earliest + within(shape_.span), shape_.largest));
  const bool unlimited = random_.oneIn(shape_.unlimited);
  if (random_.oneIn(shape_.careless)) latest = random_.upTo(shape_.largest);
  Interval drawn{static_cast<std::int64_t>(earliest), static_cast<std::int64_t>(latest)};
  if (unlimited) drawn.latest.reset();
  if (first && shape_.dealt)
    drawn.latest = static_cast<std::int64_t>(shape_.earliest + shape_.span.least);
  return drawn;
}

Move RandomNetworks::anyMove(std::size_t process) {
  const std::size_t source = random_.below(locations_[process]);
  const std::size_t target = random_.below(locations_[process]);
  return {process, static_cast<int>(source), static_cast<int>(target)};
}

// One process always takes part.
std::vector<Move> RandomNetworks::freeMoves() {
  std::vector<Move> moves;
  const std::size_t always = random_.below(locations_.size());
  for (std::size_t p = 0; p < locations_.size(); ++p)
    if (p == always || random_.oneIn(shape_.shared)) moves.push_back(anyMove(p));
  return moves;
}

std::vector<Move> RandomNetworks::dealtMoves(std::size_t transition) {
  const std::size_t process = transition % locations_.size();
  const std::size_t round = transition / locations_.size();
  const std::size_t places = locations_[process];
  if (round < places)
    return {{process, static_cast<int>(round), static_cast<int>((round + 1) % places)}};
  std::vector<Move> moves{anyMove(process)};
  if (random_.oneIn(shape_.shared)) {
    const std::size_t others = locations_.size() - 1;
    moves.push_back(anyMove((process + 1 + random_.below(others)) % locations_.size()));
    if (moves[1].process < moves[0].process) std::swap(moves[0], moves[1]);
  }
  return moves;
}

Network RandomNetworks::next() {
  Network net;
  net.title = "random";
  net.processes.resize(within(shape_.processes));
  net.transitions.resize(within(shape_.transitions));
  locations_.clear();
  for (Process& process : net.processes) {
    locations_.push_back(within(shape_.locations));
    for (std::size_t l = 0; l < locations_.back(); ++l)
      process.locations.insert(static_cast<int>(l));
  }
  for (std::size_t t = 0; t < net.transitions.size(); ++t) {
    net.transitions[t].interval = interval(t == 0);
    net.transitions[t].moves = shape_.dealt ? dealtMoves(t) : freeMoves();
  }
  return net;
}

void keepMentioned(Network& net) {
  for (Process& process : net.processes) process.locations = {0};
  for (const Transition& t : net.transitions)
    for (const Move& move : t.moves)
      net.processes[move.process].locations.insert({move.source, move.target});
}

Network dealtNetwork(std::size_t processes, std::size_t transitions, std::uint64_t seed) {
  assert(processes >= 2 && transitions >= 2 * processes);
  RandomShape shape;
  shape.processes = {processes, processes};
  shape.transitions = {transitions, transitions};
  shape.locations = {2, 1 + std::min<std::size_t>(transitions / processes - 1, 7)};
  shape.earliest = 3;
  shape.span = {1, 4};
  shape.largest = 7;
  shape.careless = 0;
  shape.shared = 2;
  shape.dealt = true;
  Network net = RandomNetworks(shape, seed).next();
  net.title = "random " + std::to_string(processes) + " " + std::to_string(transitions) + " " +
              std::to_string(seed);
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    net.processes[p].labels[*net.processes[p].locations.rbegin()] = {1, about(number(p), 1)};
  return net;
}

}  // namespace tpn
