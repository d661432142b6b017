// A verdict as JSON, docs/check.schema.json, and as an exit status: the same for check and trace.

#pragma once

#include <string>

#include "workbench/command/reading.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/search/verdict.hpp"

namespace tpn {

std::string verdictJson(const Inputs& q, const Verdict& verdict);
Exit exitOf(const Verdict& verdict);

}  // namespace tpn
