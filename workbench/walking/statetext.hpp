// What a walk shows of a state: where everybody is, and what can fire.

#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "workbench/network/network.hpp"
#include "workbench/runs/run.hpp"

namespace tpn {

// In lines of at most `width` columns, where names leave room for that.
void showState(const Network& net, const TimedState& state, std::size_t width, std::ostream& out);

std::string delaysText(const std::optional<Window>& delays);  // "delay 1 to 2"

}  // namespace tpn
