// The one place that writes JSON: views hand over values.

#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace tpn {

using Json = nlohmann::ordered_json;  // members keep the order in which a reader wants them

// Indented, with a line end. Titles, file names and what other programs say may be any bytes: those
// that are no UTF-8 become U+FFFD.
std::string jsonText(const Json& value);

}  // namespace tpn
