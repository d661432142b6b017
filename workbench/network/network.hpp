// A network of timed processes as plain values: what the file says, once it says nothing wrong.
//
// Transitions and processes are numbered from 1 in files and in everything the user sees, and from
// 0 here; `number` turns one into the other. Locations and propositions keep the numbers that the
// file gives them.

#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "workbench/network/names.hpp"

namespace tpn {

// A firing interval in time units, both ends included; no latest time: it may wait for ever.
struct Interval {
  std::int64_t earliest = 0;
  std::optional<std::int64_t> latest;

  friend bool operator==(const Interval&, const Interval&) = default;
};

// What a transition does to one of its processes.
//
// Moves of network files count and reset. Those of nets from outside need not, where a process is a
// place that holds a token or none:
// - A move that does not count is a token that is put down. Whether its process is in the source
//   makes no difference to when the transition is enabled and how long it has been: it is asked
//   when the transition fires, which it cannot do where the process is elsewhere.
// - A move that does not reset is a token that is looked at: the process stays where it is, and its
//   clock goes on.
struct Move {
  std::size_t process = 0;  // index
  int source = 0;           // location numbers
  int target = 0;           // the source where it does not reset
  bool counts = true;
  bool resets = true;

  friend bool operator==(const Move&, const Move&) = default;
};

struct Transition {
  Interval interval;
  std::vector<Move> moves;  // by process, ascending; at least one of them counts

  friend bool operator==(const Transition&, const Transition&) = default;
};

struct Process {
  std::set<int> locations;              // 0 is the initial one
  std::map<int, std::set<int>> labels;  // location -> its propositions

  friend bool operator==(const Process&, const Process&) = default;
};

struct Network {
  std::string title;  // the file's first line
  std::vector<Transition> transitions;
  std::vector<Process> processes;
  Names names;

  friend bool operator==(const Network&, const Network&) = default;
};

// The number that files and users know an index by.
constexpr int number(std::size_t index) { return static_cast<int>(index) + 1; }

// What to call the parts of a network: their names, or else their numbers.
std::string processName(const Network& net, std::size_t process);
std::string locationName(const Network& net, std::size_t process, int location);
std::string transitionName(const Network& net, std::size_t transition);
std::string propositionName(const Network& net, int proposition);  // "committed", "p11"

// The location of every process.
using Locations = std::vector<int>;

Locations initialLocations(const Network& net);    // 0 everywhere
std::int64_t largestConstant(const Network& net);  // of all earliest and finite latest times
std::int64_t largestLatest(const Network& net);    // of the finite latest times

// The most that can be encoded: twice it and 2 more is counted in 31 bits.
constexpr std::int64_t mostConstant = (std::int64_t{1} << 30) - 2;
// Is each of its processes, as far as its moves count, in the source of its move?
bool enabled(const Transition& t, const Locations& at);
// The first of its moves, counting or not, whose process is elsewhere; null where there is none.
const Move* unmetPrecondition(const Transition& t, const Locations& at);

// Do its moves keep what is said of them above?
bool isValid(const Transition& t);
// Do all moves count and reset? Network files and clause files know no others.
bool hasPlainMoves(const Network& net);
// Throws std::runtime_error with the reason, one line, where they do not: "what" cannot say it.
void requirePlainMoves(const Network& net, const std::string& what);
// Has it a move that does not count? Then it may be unsafe.
bool mayBeUnsafe(const Network& net);

std::set<int> propositionsAt(const Network& net, const Locations& at);  // those that hold
std::set<int> propositions(const Network& net);  // those that label any location

}  // namespace tpn
