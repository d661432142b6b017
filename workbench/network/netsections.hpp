// The sections of a network file, and the keywords between them: what a line is to be taken for
// where it stands.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "workbench/base/textlines.hpp"

namespace tpn {

// The section that a line stands in, or what is waited for.
enum class Section { heading, declarations, betweenProcesses, moves, labels, blockEnd, over };

Keyword endOfSection(Section section);  // the keyword that ends it

std::string inQuotes(Keyword keyword);
std::string awaited(Section section);  // what may end it: "process" or "end"

// The keywords that should have come from `expected` on and before `found`, as the beginning of a
// sentence: "valuation" and "endval" are
std::string missingBetween(Keyword expected, Keyword found);

// What line i is to be taken for in this section, if it is a keyword here at all.
std::optional<Meant> keywordIn(const std::vector<Line>& lines, std::size_t i, Section section);

}  // namespace tpn
