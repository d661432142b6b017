// What a question asks for: a state with a property. "deadlock" is one like others.

#pragma once

#include "workbench/network/property.hpp"

namespace tpn {

using Goal = Property;

}  // namespace tpn
