// Solvers as programs: how each is called, where it answers, and when it is believed.

#pragma once

#include <string>
#include <vector>

#include "workbench/solvers/answer.hpp"

namespace tpn {

class SolverProgram {
 public:
  // "cadical", "minisat", "picosat", "cryptominisat5", or a path to one of these or to any program
  // that takes a clause file and answers like in the competitions. Throws std::runtime_error where
  // there is no such program.
  explicit SolverProgram(const std::string& nameOrPath);

  const std::string& name() const { return name_; }

  // The files that belong to the question NAME.cnf: what the program prints, its errors, and where
  // it answers, which is what it prints or a file of its own.
  static std::string outFile(const std::string& name) { return name + ".out"; }
  static std::string errFile(const std::string& name) { return name + ".err"; }
  std::string answerFile(const std::string& name) const;
  std::vector<std::string> command(const std::string& name) const;

  // What it answered to NAME.cnf after it exited. The status alone is not believed, nor the text
  // alone, nor values that do not satisfy the clauses: std::runtime_error.
  SolverAnswer answer(const std::string& name, int exitStatus) const;

 private:
  enum Kind { cadical, minisat, cryptominisat, other };

  std::string name_;
  std::string path_;
  Kind kind_ = other;
};

}  // namespace tpn
