// What a question is answered with in the end, whatever answered it. Lengths are counted in
// transitions.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/proof/certificate.hpp"
#include "workbench/runs/run.hpp"
#include "workbench/search/verdict.hpp"

namespace tpn {

struct Answer {
  enum Kind { reachable, unreachable, undecided } kind = undecided;
  std::optional<Run> run;                  // reachable: replayed, it ends at its goal
  bool shortest = false;                   // reachable: no shorter run does it
  int noRunUpTo = -1;                      // no run of up to so many transitions does it
  std::optional<Certificate> certificate;  // unreachable: rechecked
  std::string reason;                      // undecided: one line; empty where all was asked that
                                           // should be
  std::vector<Unanswered> unanswered;      // as in a verdict
};

// Of a search bound by bound.
Answer answerOf(const Verdict& verdict);

// What the answer says before the run is shown: lines that end with a newline.
std::string headline(const Answer& answer);

}  // namespace tpn
