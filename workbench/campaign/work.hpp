// One job of a plan, done by this process: the same search as that of `tpn check`.

#pragma once

#include <atomic>
#include <optional>
#include <string>
#include <vector>

#include "workbench/campaign/answerfile.hpp"
#include "workbench/campaign/planfolder.hpp"

namespace tpn {

struct Worked {
  enum How {
    answeredNow,
    wasAnswered,  // before; nothing was asked
    superfluous,  // another job has settled the question
    interrupted,  // by `stop`; nothing is written
    gaveUp        // which is written, and the job remains to be done
  } how = answeredNow;
  std::string reason;    // gaveUp: one line
  bool settles = false;  // the whole plan
};

// Throws std::runtime_error, one line, where the plan cannot be read or the answer not be written.
// In a race it ends soon after another job has settled it.
Worked work(const std::string& folder, int number, const std::atomic<bool>& stop);

// The numbers of the jobs without an answer, ascending; none where the plan is settled.
std::vector<int> unanswered(const std::string& folder);

}  // namespace tpn
