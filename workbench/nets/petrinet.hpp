// A time Petri net as a plain value: what a net from outside says, once it says nothing that we do
// not take. No arc weighs more than 1 and no place begins with more than one token; that no place
// ever holds two is not known here.
//
// Transitions are enabled where the places that they consume from or read are marked. A transition
// fires when it has been enabled for a time in its interval, which its latest time does not let
// pass. Firing takes the tokens that it consumes, then puts those that it produces. A transition
// begins to count anew where it was not enabled between the two, and where it was the one that
// fired.

#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "workbench/base/textlines.hpp"
#include "workbench/network/namesreader.hpp"
#include "workbench/network/network.hpp"

namespace tpn {

struct PetriNet {
  struct Place {
    std::string name;   // no other place has it
    std::string label;  // empty: none
    bool marked = false;
    tpn::Place at;  // in its file; 0 where it comes from none
  };
  // Places by index, ascending. A place that is consumed from is not read as well; it may be
  // produced to.
  struct Transition {
    std::string name;  // no other transition has it
    std::string label;
    Interval interval;
    std::vector<std::size_t> consumed;
    std::vector<std::size_t> read;
    std::vector<std::size_t> produced;
    tpn::Place at;
  };
  // A set of places that a file groups; it claims that at most one of them is marked at a time.
  struct Unit {
    std::string name;
    std::vector<std::size_t> places;
  };
  // Which location of which process a place was, where the net says that it was a network.
  struct Spot {
    int process = 0;  // from 1
    int location = 0;
    std::set<int> propositions;
    tpn::Place at;
  };
  struct Origin {
    std::vector<Spot> spots;      // [place]; process 0 where the file does not tell
    std::vector<NameLine> names;  // as in network files
  };

  std::string name;  // empty: none
  std::vector<Place> places;
  std::vector<Transition> transitions;
  std::vector<Unit> units;
  std::optional<Origin> origin;
};

// Do they say the same, wherever it stands?
bool operator==(const PetriNet& a, const PetriNet& b);

}  // namespace tpn
