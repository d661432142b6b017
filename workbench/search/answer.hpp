// What a question is answered with in the end, whatever answered it. Lengths are counted in
// transitions.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/network/goal.hpp"
#include "workbench/network/network.hpp"
#include "workbench/proof/certificate.hpp"
#include "workbench/runs/run.hpp"
#include "workbench/search/verdict.hpp"

namespace tpn {

struct Answer {
  // Unsafe: a token would be put where one is before anything that was asked for is reached, and so
  // there is no answer.
  enum Kind { reachable, unreachable, undecided, unsafe } kind = undecided;
  std::optional<Run> run;                  // reachable: replayed, it ends at its goal; or unsafe
  bool shortest = false;                   // reachable: no shorter run does it
  int noRunUpTo = -1;                      // no run of up to so many transitions does it
  std::optional<Certificate> certificate;  // unreachable: rechecked
  std::string reason;                      // undecided: one line; empty where all was asked that
                                           // should be. unsafe: what would happen after the run
  std::vector<Unanswered> unanswered;      // as in a verdict
};

const char* kindName(Answer::Kind kind);  // "reachable", ...

// What a run to a goal with safety in it shows of that: what would happen after it, one line; empty
// where it is one to what was asked for.
std::string unsafety(const Network& net, const Goal& goal, const Run& run);

// Of a search bound by bound.
Answer answerOf(const Verdict& verdict);

// What the answer says before the run is shown: lines that end with a newline.
std::string headline(const Answer& answer);

}  // namespace tpn
