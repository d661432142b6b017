// A way to answer a question. All take the same question and give the same kind of verdict.

#pragma once

#include "workbench/search/question.hpp"
#include "workbench/search/verdict.hpp"
#include "workbench/search/watch.hpp"

namespace tpn {

// Throws std::runtime_error, one line, where something failed.
using Strategy = Verdict (*)(const Question& question, const CheckOptions& options, Watch& watch);

// With the solver in this process: the path grows by an action, the property of its new state is
// assumed, and what was learnt stays for the next bound.
Verdict checkEmbedded(const Question& question, const CheckOptions& options, Watch& watch);

// With a solver program: a clause file a bound, several bounds side by side.
Verdict checkWithProgram(const Question& question, const CheckOptions& options, Watch& watch);

}  // namespace tpn
