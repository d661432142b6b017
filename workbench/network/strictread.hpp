// The strict reader of networks: takes what zervan reads as its writer meant it, says everything
// else that is wrong, all in one go, and always ends.

#pragma once

#include <optional>
#include <string>

#include "workbench/base/checkpoint.hpp"
#include "workbench/network/diagnostic.hpp"
#include "workbench/network/network.hpp"

namespace tpn {

// `file` is the name used in the diagnostics, `text` the file's whole content. The value is there
// where no error was found; warnings do not matter. Diagnostics are appended in order of position.
// Takes time linear in the text, but for logarithms.
std::optional<Network> readNetwork(const std::string& file, const std::string& text,
                                   Diagnostics& diagnostics, const Checkpoint& checkpoint = {});

}  // namespace tpn
