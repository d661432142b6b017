// From model, property and path length to the clause file.
//
// One symbolic path: state copies 0..k, each on its own block of variables, linked by steps in the
// fixed rotation time, action, adjust. The property is a state formula asked of every state of the
// path. The clause set of their conjunction is satisfiable exactly when the path has k legal steps
// and some state on it satisfies the property.
//
// The state length L is the number of variables of one state; state i starts at variable 1 + i * L.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "boolform/boolform.hpp"
#include "boolform/outputfile.hpp"
#include "model/tpnmodel.hpp"

// What a run leaves.
struct WrittenRun {
  Written clauses;              // name.cnf
  Written map;                  // name.lck
  int variables = 0;            // as the clause file's header counts them: below 1 where the whole
                                // formula is a constant or a literal
  std::size_t clauseCount = 0;  // its lines after the header
};

class EctlTransl {
 public:
  // The model is borrowed and outlives the translator; k >= 1.
  EctlTransl(const NetTimedModel& net, int length) : k(length), model(net) {}

  // Runs everything: path, property, clauses, name.cnf and name.lck, with progress lines. Both
  // files are attempted whatever becomes of either. Throws a PathRefusal (pathlimit.hpp) where the
  // path needs more variables or nodes than there are numbers, or more memory than there is; no
  // file is touched then. Progress lines that are cut short by that are ended first.
  // The files are those of a process of its own where the store is empty and model.nrInvTerms 0.
  WrittenRun checkEctlFormula(const std::string& name);

  // The initial state, then k steps: ((initial and step 0) and step 1) and ...
  BoolForm symbPath();

  // The property in some state of the path; reports the store's size on standard error.
  BoolForm transl(const EctlForm& property);

  // The same, without the report.
  BoolForm inSomeState(const EctlForm& property);

  // The property in state i. A temporal operator makes it false. Asserts that the postfix items
  // leave one value.
  BoolForm transl(const EctlForm& property, int i);

  // The first variable of state i; 1 for i <= 0.
  int getStartNr(int i) const;

 private:
  SymState stateAt(int i) const { return model.genSymState(getStartNr(i)); }
  BoolForm step(int i, const SymState& from, const SymState& to) const;

  // What there was before a step.
  struct Milestone {
    std::size_t nodes;
    unsigned invTerms;
    BoolForm path;
  };
  // Do the last three steps repeat from here on? `reached` has a milestone before every step built,
  // and one for now.
  bool repeats(const std::vector<Milestone>& reached) const;
  // The path with all k steps, where they do.
  BoolForm repeatLast(const std::vector<Milestone>& reached) const;
  Distance rotationSince(const Milestone& begin) const;
  WrittenRun run(const std::string& name);
  WrittenRun writeDown(const ClauseSet& cnf, const std::string& name) const;

  int k;
  const NetTimedModel& model;
};
