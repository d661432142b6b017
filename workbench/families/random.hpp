// Random networks, for tests and measurements alike: the same seed gives the same network with
// every compiler and library.

#pragma once

#include <cstddef>
#include <cstdint>

#include "workbench/network/network.hpp"

namespace tpn {

// Numbers that look random: the upper bits of x -> 48271 * x modulo 2^31 - 1.
class Random {
 public:
  explicit Random(std::uint64_t seed);  // seeds that differ by 2^31 - 1 are the same

  std::size_t below(std::size_t n);  // 0 .. n - 1; n from 1 to 2^15
  std::size_t upTo(std::size_t most) { return below(most + 1); }
  bool oneIn(std::size_t n) { return n != 0 && below(n) == 0; }  // 0: never

 private:
  std::uint64_t state_;
};

// Seeds that have nothing to do with one another, for numbers that follow one another.
constexpr std::uint64_t scattered(std::uint64_t number) {
  return (number + 1) * 0x9e3779b97f4a7c15 >> 32U;
}

struct Range {
  std::size_t least;
  std::size_t most;  // included
};

// What networks to draw. As it stands: small ones of every kind, for tests.
struct RandomShape {
  Range processes{1, 3};
  Range transitions{1, 6};
  Range locations{1, 3};     // of each process
  std::size_t earliest = 4;  // at most
  Range span{0, 3};          // from the earliest to the latest time
  std::size_t largest = 4;   // of the latest times, where that is not before the earliest
  // One in so many, or none where it is 0:
  std::size_t unlimited = 4;  // transitions: have no latest time
  std::size_t careless = 20;  // transitions: any latest time, maybe before the earliest
  std::size_t shared = 4;     // processes besides the first: take part in a transition
  // Transitions are dealt out to the processes in turn. The first ones of a process are its own
  // alone and lead once round its locations, so that it can get everywhere; the others lead
  // anywhere, and one in `shared` of them has a partner. The first transition's latest time is not
  // before any earliest one.
  bool dealt = false;
};

class RandomNetworks {
 public:
  RandomNetworks(const RandomShape& shape, std::uint64_t seed) : shape_(shape), random_(seed) {}

  Network next();  // without propositions

  Random& random() { return random_; }

 private:
  std::size_t within(const Range& range);
  Interval interval(bool first);
  std::vector<Move> freeMoves();
  std::vector<Move> dealtMoves(std::size_t transition);
  Move anyMove(std::size_t process);

  RandomShape shape_;
  Random random_;
  std::vector<std::size_t> locations_;  // of each process of the network in the making
};

// Takes away the locations that no move mentions, but for 0: a file would not tell of them.
void keepMentioned(Network& net);

// Processes of 2 to 8 locations with constants up to 7. Proposition 1 holds where a process is in
// its last location, 10 * i + 1 where process i is. REQUIRES: 2 processes, twice as many
// transitions.
Network dealtNetwork(std::size_t processes, std::size_t transitions, std::uint64_t seed);

}  // namespace tpn
