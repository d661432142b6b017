// An answer as JSON, docs/check.schema.json, and as an exit status: the same for check and trace.

#pragma once

#include <string>

#include "workbench/command/reading.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/search/answer.hpp"

namespace tpn {

std::string answerJson(const Inputs& q, const Answer& answer);
Exit exitOf(const Answer& answer);

}  // namespace tpn
