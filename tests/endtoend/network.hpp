// A network of timed processes as plain data, and what one state of it means.
//
// Everything in this folder judges the program from outside: it shares no code with it, but for the
// generator of random networks, so that a misreading has to be made twice to go unnoticed. The
// meaning is written here once, for clock values counted in any unit: whole time units in the
// explorer, fixed-point steps in the checker of decoded runs.
//
// Processes and transitions count from 0 here and from 1 in the files; process p owns clock p.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

constexpr int noLatest = -1;  // the transition may wait for ever

struct Move {
  std::size_t process;
  int source;
  int target;
};

struct Transition {
  int earliest;
  int latest;               // or noLatest
  std::vector<Move> moves;  // one for each process that takes part; at least one
};

struct Label {
  std::size_t process;
  int location;
  int proposition;
};

// The locations of each process are 0..m - 1 and all of them occur in its moves, unless it has no
// move at all: the program tells apart no more locations than it counts in the file.
struct Network {
  std::size_t processes;
  std::vector<Transition> transitions;
  std::vector<Label> labels;
  std::string property;  // postfix: p and p- with a number, &, +, T
};

struct State {
  std::vector<int> locations;        // [p]
  std::vector<std::int64_t> clocks;  // [p], in the unit that the functions are told

  friend auto operator<=>(const State&, const State&) = default;
};

// How many clock steps one time unit has.
using Unit = std::int64_t;

State initialState(const Network& net);  // all in location 0, all clocks zero
int largestLatest(const Network& net);   // of the finite latest times; 0 where there is none
int largestConstant(const Network& net);

// Every process of t is in its source.
bool enabled(const Transition& t, const State& s);

// Some process of t has not passed the latest time.
bool inTime(const Transition& t, const State& s, Unit unit);

// t may fire: enabled, in time, and every process of t has reached the earliest time.
bool mayFire(const Transition& t, const State& s, Unit unit);

// What firing t leads to; the invariant is the caller's to ask.
State fired(const Transition& t, const State& s);

// Every transition that is enabled is in time.
bool invariant(const Network& net, const State& s, Unit unit);

bool propertyHolds(const Network& net, const State& s);

// The text of the network file.
std::string networkFile(const Network& net);
