#include "workbench/solvers/clausefile.hpp"

#include <algorithm>
#include <charconv>
#include <cstdlib>

namespace tpn {

namespace {

// The next number of text, past blanks; false where there is none.
bool next(const char*& at, const char* end, long& number) {
  while (at != end && (*at == ' ' || *at == '\n')) ++at;
  const auto [after, failure] = std::from_chars(at, end, number);
  at = after;
  return failure == std::errc();
}

}  // namespace

Clauses readClauses(const std::string& text) {
  Clauses clauses;
  const char* at = text.data() + std::min(text.find('\n'), text.size());
  const char* const end = text.data() + text.size();
  std::vector<int> clause;
  for (long literal = 0; next(at, end, literal);) {
    if (literal != 0) {
      clause.push_back(static_cast<int>(literal));
      continue;
    }
    clauses.push_back(clause);
    clause.clear();
  }
  return clauses;
}

SolverAnswer constantAnswer(const Clauses& clauses) {
  SolverAnswer answer;
  answer.status = SolverAnswer::satisfiable;
  for (const std::vector<int>& clause : clauses) {
    if (clause.empty()) return {SolverAnswer::unsatisfiable, {}};
    const auto variable = static_cast<std::size_t>(std::abs(clause.front()));
    answer.values.resize(std::max(answer.values.size(), variable + 1), 0);
    answer.values[variable] = clause.front() > 0 ? 1 : -1;
  }
  return answer;
}

std::string violation(const Clauses& clauses, const SolverAnswer& answer) {
  const auto isTrue = [&](int literal) {
    return (answer.value(static_cast<std::size_t>(std::abs(literal))) > 0) == (literal > 0);
  };
  for (std::size_t i = 0; i < clauses.size(); ++i) {
    if (std::any_of(clauses[i].begin(), clauses[i].end(), isTrue)) continue;
    for (const int literal : clauses[i])
      if (answer.value(static_cast<std::size_t>(std::abs(literal))) == 0)
        return "it leaves out variable " + std::to_string(std::abs(literal)) + ", which clause " +
               std::to_string(i + 1) + " needs";
    return "its values violate clause " + std::to_string(i + 1);
  }
  return "";
}

}  // namespace tpn
