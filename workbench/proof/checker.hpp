// The check of a certificate, which trusts nobody: it shares no more with the prover than the
// values Network, Goal and Certificate.
//
// Where the prover has a state before a step and one after it, this check has only the one before.
// A clause that a transition could make false says of the state before: the transition can fire,
// and all that the clause says of processes that do not move is false. That is a handful of
// assumptions, and one question to the solver for each clause and each transition that touches it.
// It is asked of the representatives only, and assumes all images of all clauses: a generator maps
// the proof for a clause to the proof for its image.

#pragma once

#include <functional>
#include <string>

#include "workbench/network/goal.hpp"
#include "workbench/proof/certificatetext.hpp"

namespace tpn {

struct Recheck {
  enum Result { confirmed, refuted, stopped } result = confirmed;
  std::string complaint;  // refuted: what fails, one line
};

// Does the certificate prove that the goal is never reached? `stop` is asked now and then.
Recheck recheck(const Network& net, const Goal& goal, const Certificate& certificate,
                const std::function<bool()>& stop);

// The same for a file, which also has to be about this network and this goal.
Recheck recheck(const Network& net, const Goal& goal, const CertificateFile& file,
                const std::function<bool()>& stop);

}  // namespace tpn
