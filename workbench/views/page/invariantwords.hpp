// A certificate in sentences: what always holds, so that a goal is never reached.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "workbench/network/network.hpp"
#include "workbench/proof/certificate.hpp"

namespace tpn {

// Whole sentences, printable; times in the network's units, `unit` of which a certificate's clocks
// count as one.
std::string sentence(const Network& net, const LinearInvariant& invariant);
std::string sentence(const Network& net, const AtomClause& clause, std::int64_t unit);
std::string sentence(const Network& net, const Generator& generator);

// Of a whole certificate, each once; the shortest clauses first, without those that follow from one
// of the others.
struct InvariantWords {
  std::vector<std::string> sums;
  std::vector<std::string> clauses;
  std::vector<std::string> exchanges;  // of symmetry: what is said is said of all images
};
InvariantWords inWords(const Network& net, const Certificate& certificate);

}  // namespace tpn
