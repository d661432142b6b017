// The clause set as a DIMACS file.
//
// Problem variables keep their numbers; node variables are moved down to follow the highest problem
// variable that the clauses use. With o that variable and shift = 1000000 - o, a literal x is
// written as it is while |x| <= shift and moved by shift towards 0 otherwise. (Above o = 500000
// the rule moves problem variables as well; README, Limitations.)

#pragma once

#include <string>

#include "boolform/clauseset.hpp"
#include "boolform/outputfile.hpp"

// The largest absolute value of a literal, 0 where there is none.
int maxCNFVarNr(const ClauseSet& cnf);

// The largest absolute value of a problem variable's literal (at most 999999), 0 where there is
// none.
int maxCNFOrgVarNr(const ClauseSet& cnf);

// The variables that the header of name.cnf counts, whatever the clauses hold: maxCNFVarNr - shift.
// Negative where no node occurs.
int headerVariables(const ClauseSet& cnf);

// Writes name.cnf: the header "p cnf V C", then one line a clause in the set's order, renumbered.
// Prints nothing where that fails.
Written showCNF(const ClauseSet& cnf, std::string name);

// Writes test.cnf with the numbers as they are in the store: a debugging aid.
Written showCNF(const ClauseSet& cnf);
