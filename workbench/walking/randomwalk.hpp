// A run at random.

#pragma once

#include <cstddef>
#include <cstdint>

#include "workbench/network/network.hpp"
#include "workbench/walking/walk.hpp"

namespace tpn {

// At most `steps` random steps; delays are multiples of 1/12. The same for the same seed
// everywhere. Keeps the steps, 24 bytes each, and one state.
Walked walkRandomly(const Network& net, std::uint64_t seed, std::size_t steps);

}  // namespace tpn
