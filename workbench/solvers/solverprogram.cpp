#include "workbench/solvers/solverprogram.hpp"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <stdexcept>

#include "workbench/base/files.hpp"
#include "workbench/base/programpath.hpp"
#include "workbench/solvers/boundfiles.hpp"
#include "workbench/solvers/clausefile.hpp"

namespace tpn {

namespace {

// The programs that want to be called in a way of their own; the last row fits every other one.
const std::vector<SolverProgram::Row>& programs() {
  static const std::vector<SolverProgram::Row> rows{
      {"cadical", {"-q", "CNF"}, outSuffix},
      {"minisat", {"-verb=0", "CNF", "RESULT"}, resultSuffix},
      {"cryptominisat", {"--verb", "0", "CNF"}, outSuffix},
      {"", {"CNF"}, outSuffix},
  };
  return rows;
}

constexpr int exitSatisfiable = 10;
constexpr int exitUnsatisfiable = 20;

// What it said last before it gave up, in brackets.
std::string lastWords(const std::string& errFile) {
  std::error_code none;
  if (!std::filesystem::is_regular_file(errFile, none)) return "";
  std::istringstream in(readFile(errFile));
  std::string last;
  for (std::string line; std::getline(in, line);)
    if (!line.empty()) last = line.substr(0, 200);
  return last.empty() ? "" : " (" + last + ")";
}

std::string statusText(int exitStatus) { return "exit status " + std::to_string(exitStatus); }

}  // namespace

SolverProgram::SolverProgram(const std::string& nameOrPath) : path_(programPath(nameOrPath)) {
  if (path_.empty()) throw std::runtime_error("there is no solver program " + nameOrPath);
  name_ = std::filesystem::path(path_).filename();
  row_ = &*std::find_if(programs().begin(), programs().end(),
                        [&](const Row& row) { return name_.starts_with(row.prefix); });
}

std::string SolverProgram::answerFile(const std::string& name) const {
  return name + row_->answersIn;
}

std::vector<std::string> SolverProgram::command(const std::string& name) const {
  std::vector<std::string> words{path_};
  for (const std::string& argument : row_->arguments) {
    if (argument == "CNF")
      words.push_back(clauseFile(name));
    else
      words.push_back(argument == "RESULT" ? resultFile(name) : argument);
  }
  return words;
}

SolverAnswer SolverProgram::answer(const std::string& name, int exitStatus) const {
  std::error_code none;
  SolverAnswer found;
  try {
    const std::string file = answerFile(name);
    const bool there = std::filesystem::is_regular_file(file, none);
    found = readAnswer(there ? readFile(file, largestInput) : "");
  } catch (const std::runtime_error& e) {
    throw std::runtime_error(name_ + ", " + statusText(exitStatus) + ": " + e.what() +
                             lastWords(errFile(name)));
  }
  const bool yes = exitStatus == exitSatisfiable;
  const bool no = exitStatus == exitUnsatisfiable;
  const bool agree = found.status == SolverAnswer::satisfiable     ? yes
                     : found.status == SolverAnswer::unsatisfiable ? no
                                                                   : !yes && !no;
  if (!agree)
    throw std::runtime_error(name_ + ": " + statusText(exitStatus) + " contradicts its answer");
  if (found.status != SolverAnswer::satisfiable) return found;
  const std::string wrong = violation(readClauses(readFile(clauseFile(name))), found);
  if (!wrong.empty()) throw std::runtime_error(name_ + " gave no model: " + wrong);
  return found;
}

}  // namespace tpn
