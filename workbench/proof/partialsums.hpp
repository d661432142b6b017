// A linear invariant as sums over one process after the other: what they can be.

#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include "workbench/proof/certificate.hpp"

namespace tpn {

struct PartialSums {
  // What each location of a process adds, for the processes that add anything.
  std::map<std::size_t, std::map<int, std::int64_t>> addends;
  // [i]: the sums over the first i of these from which the total can still be reached.
  std::vector<std::set<std::int64_t>> sums;
};

// None where that takes more than `most` additions, or more than 64 bits: there may be twice as
// many sums with each process. An invariant that is left out makes a proof harder to confirm, not
// easier.
std::optional<PartialSums> partialSums(const Network& net, const LinearInvariant& invariant,
                                       std::size_t most = 4'000'000);

}  // namespace tpn
