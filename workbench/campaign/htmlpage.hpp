// A collection as one page without scripts or links, which its policy rules out as well: the
// summary, both plots, the table.

#pragma once

#include <string>

#include "workbench/campaign/collect.hpp"

namespace tpn {

std::string collectionHtml(const Collection& c);

}  // namespace tpn
