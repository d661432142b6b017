// What text looks like on a terminal that takes colour; elsewhere it is as it is.

#pragma once

#include <string>

namespace tpn {

enum class Ink { plain, heading, goal, held };

// Line by line: an end of line is never inside a sequence. Empty text stays empty.
std::string coloured(const std::string& text, Ink ink, bool colour);

}  // namespace tpn
