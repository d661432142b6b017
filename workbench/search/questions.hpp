// The folder with a question for each bound: kK.cnf, kK.lck and what solvers make of them.

#pragma once

#include <string>

#include "model/tpnmodel.hpp"

namespace tpn {

class Questions {
 public:
  // In the folder `keep`, made where it does not exist; or, where that is empty, in one that goes
  // with the object. Throws std::runtime_error where it cannot be made.
  explicit Questions(const std::string& keep);
  ~Questions();
  Questions(const Questions&) = delete;
  Questions& operator=(const Questions&) = delete;

  std::string name(int k) const { return folder_ + "/k" + std::to_string(k); }

  // Removes all that belongs to k, unless files are kept.
  void forget(int k) const;

 private:
  std::string folder_;
  bool temporary_;
};

// Writes NAME.cnf and NAME.lck with the core's code and verifies that they are whole. Fills the
// process-wide store and may end the process: meant for a child. Returns whether a solver is
// needed: not where no formula node occurs.
bool writeQuestion(const NetTimedModel& model, int k, const std::string& name);

// Does this bound's clause file say what it means? Above 500000 variables its numbers fold.
bool fitsClauseFile(const NetTimedModel& model, int k);

}  // namespace tpn
