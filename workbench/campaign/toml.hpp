// TOML as the values of JSON. toml++ is included in one file only: it is all headers.

#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "workbench/base/json.hpp"

namespace tpn {

// Throws std::runtime_error, one line with the place, where the text is no TOML. Dates are texts.
Json tomlAsJson(const std::string& file, const std::string& text);

}  // namespace tpn
