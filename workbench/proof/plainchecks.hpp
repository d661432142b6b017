// The parts of a certificate's check that need no solver. Each says what is wrong, in one line, or
// nothing where all is well.

#pragma once

#include <string>

#include "workbench/base/checkpoint.hpp"
#include "workbench/proof/certificate.hpp"

namespace tpn {

// Do all processes and locations exist, is every number in its range?
std::string shapeComplaint(const Network& net, const Certificate& certificate);

// Is each generator a permutation that maps the network onto itself?
std::string symmetryComplaint(const Network& net, const std::vector<Generator>& generators,
                              const Checkpoint& checkpoint = {});

// Does each sum have its total at first, and does no transition change it?
std::string linearComplaint(const Network& net, const std::vector<LinearInvariant>& invariants,
                            const Checkpoint& checkpoint = {});

// Is each clause true in the initial state?
std::string initialComplaint(const Network& net, const std::vector<AtomClause>& clauses);

std::string text(const Atom& atom);          // as in the file
std::string text(const AtomClause& clause);  // its atoms, a blank between them

// "clause -2@1 3>=4", and in parentheses what that means where the network has names.
std::string text(const Network& net, const AtomClause& clause);

}  // namespace tpn
