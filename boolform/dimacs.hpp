// The clause set as a DIMACS file.
//
// Problem variables keep their numbers; node variables are moved down to follow the highest problem
// variable that the clauses use. With o that variable and shift = 1000000 - o, a literal x is
// written as it is while |x| <= shift and moved by shift towards 0 otherwise. (Above o = 500000
// the rule moves problem variables as well; README, Limitations.)

#pragma once

#include <string>

#include "boolform/clauseset.hpp"

// The largest absolute value of a literal, 0 where there is none.
int maxCNFVarNr(const ClauseSet& cnf);

// The largest absolute value of a problem variable's literal (at most 999999), 0 where there is
// none.
int maxCNFOrgVarNr(const ClauseSet& cnf);

// Writes name.cnf: the header "p cnf V C", then one line a clause in the set's order, renumbered.
// V is maxCNFVarNr - shift whatever the clauses hold, so it is negative where no node occurs. A
// file that cannot be opened is skipped silently.
void showCNF(const ClauseSet& cnf, std::string name);

// Writes test.cnf with the numbers as they are in the store: a debugging aid.
void showCNF(const ClauseSet& cnf);
