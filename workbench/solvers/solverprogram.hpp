// Solvers as programs: how each is called, where it answers, and when it is believed.
//
// An answer "satisfiable" is believed where its values satisfy the clauses. "Unsatisfiable" is
// believed as it is: nothing here could tell a solver that lies.

#pragma once

#include <string>
#include <vector>

#include "workbench/solvers/answer.hpp"

namespace tpn {

class SolverProgram {
 public:
  // A name or a path; programs are told apart by what the name of their file begins with (the table
  // in solverprogram.cpp). One that is in no row takes a clause file and answers like in the
  // competitions. Throws std::runtime_error where there is no such program.
  explicit SolverProgram(const std::string& nameOrPath);

  const std::string& name() const { return name_; }

  // For the clauses NAME.cnf: the command, and the file that it answers in, which is what it prints
  // or one of its own.
  std::vector<std::string> command(const std::string& name) const;
  std::string answerFile(const std::string& name) const;

  // What it answered to NAME.cnf after it exited. The status alone is not believed, nor the text
  // alone, nor values that do not satisfy the clauses: std::runtime_error.
  SolverAnswer answer(const std::string& name, int exitStatus) const;

  struct Row {
    const char* prefix;
    std::vector<std::string> arguments;  // "CNF" and "RESULT" stand for these files
    const char* answersIn;               // a suffix of boundfiles.hpp
  };

 private:
  std::string name_;
  std::string path_;
  const Row* row_;
};

}  // namespace tpn
