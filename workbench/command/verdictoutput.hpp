// An answer as text, as JSON (docs/check.schema.json) and as an exit status: the same for check and
// trace. `q` is what was asked, without what is added to it of a net that may be unsafe.

#pragma once

#include <string>

#include "workbench/command/reading.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/network/goal.hpp"
#include "workbench/search/answer.hpp"
#include "workbench/search/watch.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

// What the answer's run leads to: the question, or that the net is not safe.
Goal shownGoal(const Goal& question, const Answer& answer);

// All that is said but for the run. The question is in it where no run repeats it.
std::string answerText(const Inputs& q, const Answer& answer, const Look& look);
std::string answerJson(const Inputs& q, const Answer& answer);
Exit exitOf(const Answer& answer);

// The proof of an answer, with all its clauses where it is to be flat. Throws std::runtime_error
// with one line where the file cannot be written, or the watch is over before all are there.
void writeCertificate(const std::string& file, const Asked& asked, const Certificate& proof,
                      bool flat, const Watch& watch);

}  // namespace tpn
