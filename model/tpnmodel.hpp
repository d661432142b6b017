// The network: processes that are finite automata over numbered locations, one clock each, and that
// synchronise on shared transition numbers; with the encodings of its states and steps as formulas.
//
// Life: constructed empty, filled once by readNetwork, widths set once by compNrOfBits, property
// set by readFormula; from then on only read, but for the counter nrInvTerms. Processes and
// transitions are numbered from 1, locations from 0. Process p owns clock p.
//
// tpnmodel.cpp holds the formulas over one state, stateterms.cpp the atoms they share, tpnsucc.cpp
// the formulas over two, tpnlayout.cpp the widths and the variable map, tpnreader.cpp the input
// files.

#pragma once

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <map>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "boolform/boolform.hpp"
#include "boolform/outputfile.hpp"
#include "clock/clockcond.hpp"
#include "clock/clockval.hpp"
#include "ectl/ectlform.hpp"
#include "ectl/refusal.hpp"
#include "model/symstate.hpp"

// An input file that was opened, and then the system could not read it.
struct Unreadable : Refusal {
  using Refusal::Refusal;
};

class NetTimedModel {
 public:
  using Number = std::uint32_t;  // as read from a file; a negative number wraps round
  using Pair = std::pair<Number, Number>;

  int nrOfProcs = 0;
  int nrOfTrans = 0;              // lines of the transitions section, duplicates counted
  mutable int nrInvTerms = 0;     // invariant terms other than true, over all calls of invariant;
                                  // wraps at 32 bits
  int totalNrVertBits = 0;        // location bits of one state
  std::vector<int> nrVertBits;    // [p]: location bits of process p; [0] is 0
  std::vector<int> firstVertBit;  // [p]: where they start within the location vector
  int nrOfClocks = 0;             // one clock a process
  int maxConst = 0;               // largest latest firing time
  int intPLen = 0;                // bits of a clock's integer part
  int frPLen = 0;                 // bits of a clock's fractional part
  std::set<Pair> vertices;        // (process, location)
  std::map<Number, NumSet> transProcs;          // transition -> its processes
  std::map<Pair, Pair> localTrans;              // (process, transition) -> (source, target)
  std::vector<Pair> timeIntervals;              // [t]: (earliest, latest); nrOfTrans + 1 of them
  std::unique_ptr<EctlForm> formula;            // the property
  std::set<std::pair<Pair, Number>> valuation;  // ((process, location), proposition)

  // Called before each transition's part of an action step, which has a term for every process:
  // with thousands of both, building it takes a while. May throw; the formula is lost then.
  std::function<void()> checkpoint;

  NetTimedModel() = default;
  NetTimedModel(const NetTimedModel&) = delete;
  NetTimedModel& operator=(const NetTimedModel&) = delete;

  // --- Input. A file that cannot be opened or starts a section wrongly ends the process with exit
  // status 1 and a message on standard error; one that ends too early is waited on for ever. One
  // that can be opened and then not be read throws Unreadable; lack of memory throws bad_alloc.

  void readNetwork(std::string name);  // name.tpn
  void readFormula(std::string name);  // name.tpn, its first non-empty line

  // --- Layout of a symbolic state. ---

  void compNrOfBits();                    // the widths, after readNetwork
  std::int64_t getSymStateLen() const;    // variables of one state
  SymState genSymState(int first) const;  // the state whose variables start at `first`

  // Writes name.lck, the variable map: k the path length, maxVar the highest model variable that
  // the clauses use. Prints nothing where that fails.
  Written showLCK(int k, int maxVar, std::string name) const;

  // --- Formulas over one state. ---

  BoolForm bef(int p, int l, const BoolFormVect& loc) const;  // process p is in location l
  BoolForm enabled(const SymState& s, int t) const;  // all processes of t are in their sources
  BoolForm guard(const SymState& s, int t) const;    // the clocks allow t to fire
  // No enabled transition is past its latest firing time. Ends the process with exit status 1
  // where a transition 1..nrOfTrans has no process.
  BoolForm invariant(const SymState& s) const;
  BoolForm fI(int l, const SymState& s) const;  // every process in location l, all clocks zero
  BoolForm fP(int q, const SymState& s) const;  // proposition q holds

  void countInvTerms(unsigned more) const;  // adds to nrInvTerms

  class StateTerms;  // stateterms.hpp

  // --- Steps from s1 to s2. ---

  // t moves its processes, all others stay; clocks are not mentioned.
  BoolForm fired(const SymState& s1, int t, const SymState& s2) const;
  BoolForm timeSucc(const SymState& s1, const SymState& s2) const;    // s1's delay passes
  BoolForm actionSucc(const SymState& s1, const SymState& s2) const;  // some transition fires
  BoolForm adjustSucc(const SymState& s1, const SymState& s2) const;  // clocks are normalised

 private:
  // What a process does in a transition.
  struct Move {
    Number process;
    Number source;
    Number target;
  };
  class StepTerms;

  void readTransitions(std::ifstream& file);
  bool readProcess(std::ifstream& file);  // false at the end of the process list

  void listMoves();
  std::span<const Move> movesOf(int t) const {  // by process, ascending
    const auto i = static_cast<std::size_t>(t);
    return std::span(moves_).subspan(firstMove_[i], firstMove_[i + 1] - firstMove_[i]);
  }
  int crewOf(int t) const { return crewOf_[static_cast<std::size_t>(t)]; }

  BoolForm enabled(StateTerms& s, int t) const;
  BoolForm guard(StateTerms& s, int t) const;
  static BoolForm inTime(StateTerms& s, Number p, Number latest);
  BoolForm invariant(StateTerms& s) const;
  BoolForm fired(int t, StepTerms& terms) const;

  // transProcs and localTrans as arrays, from compNrOfBits on: each step asks for all of them.
  std::vector<Move> moves_;             // transition by transition
  std::vector<std::size_t> firstMove_;  // [t]; nrOfTrans + 2 of them
  std::vector<int> crewOf_;             // [t]: 1..crews_, the same where the processes are the same
  int crews_ = 0;
};
