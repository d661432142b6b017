#include "tests/endtoend/solver.hpp"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

namespace {

constexpr int exitSatisfiable = 10;
constexpr int exitUnsatisfiable = 20;

int highestVariable(const Cnf& cnf) {
  int highest = 0;
  for (const std::vector<int>& clause : cnf.clauses)
    for (const int literal : clause) highest = std::max(highest, std::abs(literal));
  return highest;
}

std::vector<int> parseClause(const std::string& line) {
  std::istringstream in(line);
  std::vector<int> clause;
  int literal = 0;
  while (in >> literal && literal != 0) clause.push_back(literal);
  std::string rest;
  if (!in || in >> rest) throw std::runtime_error("no clause: " + line);
  return clause;
}

bool isTrue(const std::vector<bool>& model, int literal) {
  const auto v = static_cast<std::size_t>(std::abs(literal));
  return v < model.size() && model[v] == (literal > 0);
}

bool satisfies(const std::vector<bool>& model, const Cnf& cnf) {
  return std::all_of(cnf.clauses.begin(), cnf.clauses.end(), [&](const std::vector<int>& clause) {
    return std::any_of(clause.begin(), clause.end(),
                       [&](int literal) { return isTrue(model, literal); });
  });
}

// The numbers among the words of a solver's answer, as values of variables.
std::vector<bool> parseModel(const std::string& text, const Cnf& cnf) {
  std::vector<bool> model(static_cast<std::size_t>(highestVariable(cnf)) + 1, false);
  std::istringstream in(text);
  for (std::string word; in >> word;) {
    const int literal = std::atoi(word.c_str());  // 0 for "v", "SAT" and the like
    const auto v = static_cast<std::size_t>(std::abs(literal));
    if (v != 0 && v < model.size()) model[v] = literal > 0;
  }
  return model;
}

Answer answer(const std::string& solver, int status, const std::string& text, const Cnf& cnf) {
  if (status == exitUnsatisfiable) return {false, {}};
  if (status != exitSatisfiable)
    throw std::runtime_error(solver + " ended with status " + std::to_string(status));
  Answer found{true, parseModel(text, cnf)};
  if (!satisfies(found.model, cnf)) throw std::runtime_error(solver + " gave no model");
  return found;
}

Answer runCadical(const Sandbox& sandbox, const std::string& file, const Cnf& cnf) {
  const int status = sandbox.run({"cadical", "-q", file});
  return answer("cadical", status, sandbox.read("stdout"), cnf);
}

Answer runMinisat(const Sandbox& sandbox, const std::string& file, const Cnf& cnf) {
  const int status = sandbox.run({"minisat", "-verb=0", file, "minisat.out"});
  const bool satisfiable = status == exitSatisfiable;
  return answer("minisat", status, satisfiable ? sandbox.read("minisat.out") : "", cnf);
}

}  // namespace

Cnf parseCnf(const std::string& text) {
  std::istringstream in(text);
  std::string line;
  std::string p;
  std::string format;
  Cnf cnf{};
  std::size_t announced = 0;
  std::getline(in, line);
  std::istringstream header(line);
  if (!(header >> p >> format >> cnf.variables >> announced) || p != "p" || format != "cnf")
    throw std::runtime_error("no clause file header: " + line);
  while (std::getline(in, line)) cnf.clauses.push_back(parseClause(line));
  if (cnf.clauses.size() != announced)
    throw std::runtime_error("the header announces another number of clauses");
  if (cnf.variables > 0 && cnf.variables < highestVariable(cnf))
    throw std::runtime_error("too few variables announced");
  return cnf;
}

std::string cnfText(const Cnf& cnf) {
  std::ostringstream out;
  out << "p cnf " << highestVariable(cnf) << " " << cnf.clauses.size() << "\n";
  for (const std::vector<int>& clause : cnf.clauses) {
    for (const int literal : clause) out << literal << " ";
    out << "0\n";
  }
  return out.str();
}

std::optional<bool> constantValue(const Cnf& cnf) {
  if (cnf.clauses.empty()) return true;
  const bool hasEmpty = std::any_of(cnf.clauses.begin(), cnf.clauses.end(),
                                    [](const std::vector<int>& clause) { return clause.empty(); });
  if (hasEmpty) return false;
  return std::nullopt;
}

Answers solve(const Sandbox& sandbox, const std::string& file) {
  const Cnf cnf = parseCnf(sandbox.read(file));
  if (const std::optional<bool> value = constantValue(cnf)) {
    const Answer constant{*value, {}};
    return {constant, constant};
  }
  std::string accepted = file;
  if (cnf.variables <= 0) {
    accepted = "proper-" + file;
    sandbox.write(accepted, cnfText(cnf));
  }
  const Answer first = runCadical(sandbox, accepted, cnf);
  const Answer second = runMinisat(sandbox, accepted, cnf);
  return {first, second};
}
