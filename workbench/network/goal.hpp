// What a question asks for: a state with a property, or a deadlock, a state in which no transition
// can fire, now or after any delay.

#pragma once

#include <optional>

#include "workbench/network/property.hpp"

namespace tpn {

struct Goal {
  std::optional<Property> property;  // none: a deadlock

  bool deadlock() const { return !property; }
};

}  // namespace tpn
