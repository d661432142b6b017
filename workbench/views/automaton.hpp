// What a picture of a network shows of its processes, in words: an automaton for each, or a table,
// whatever draws it. Processes that are alike are drawn once.
//
// Processes are alike where they have the same locations with the same moves between them, as many
// with the same intervals and as many partners, and where all names are equal but for numbers.
//
// A process is a table, one row a location, where its arrows would be a thicket. It is data to
// others, such as a variable that anybody sets: from each of at least four locations to each other
// one leads an arrow that is shared. Or it is a counter: more than eight locations, and all arrows
// are shared. Or it is too large to be followed as a graph.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "workbench/network/network.hpp"
#include "workbench/views/viewparts.hpp"

namespace tpn {

// Transitions between the same locations share an arrow; shared ones and others have an arrow each,
// and so have those that do not count or do not reset.
struct Arrow {
  int source = 0;
  int target = 0;
  bool shared = false;
  bool puts = false;   // a token down: the move does not count
  bool reads = false;  // it does not reset

  friend auto operator<=>(const Arrow&, const Arrow&) = default;
};

// Of an arrow, one line: transitions with equal intervals and partners of the same kind.
struct Caption {
  std::string words;                     // "write1_over*  [0, 0] with variable"
  std::vector<std::size_t> transitions;  // indices of all of them
  std::vector<std::string> names;        // and how they are shown
};

struct DrawnArrow {
  Arrow arrow;
  std::vector<Caption> captions;
};

struct DrawnLocation {
  int location = 0;
  std::string name;
  std::string propositions;  // empty: none, or one with the name
  Colour colour;
};

// A row of a table: how its location is entered, or kept. Words of several columns.
struct Entry {
  std::string from;  // "from any other", "from P1, P2", "stays"
  Arrow arrow;       // its source says nothing
  Caption caption;
};
struct TableRow {
  DrawnLocation location;
  std::vector<Entry> entries;
};

struct Automaton {
  std::vector<std::size_t> processes;  // indices, ascending: those that look like this
  std::string name;                    // "P1", "P1 .. P20", "process 1"
  std::string which;                   // "process 1", "processes 1 .. 20"; empty: the name says so
  std::vector<DrawnLocation> locations;
  std::vector<DrawnArrow> arrows;  // none where there is a table
  std::vector<TableRow> table;     // none where it is drawn with arrows
};

// What style sheets and scripts find them by: "location at-1-0 at-2-0" by the numbers of processes
// and locations, "fires-1 fires-7" by those of transitions.
std::string classesOf(const Automaton& automaton, int location);
std::string classesOf(const Caption& caption);

// In the order of their first processes. With `each`, or with at most four processes, those that
// are alike stand for themselves as well.
std::vector<Automaton> automataOf(const Network& net, bool each);

}  // namespace tpn
