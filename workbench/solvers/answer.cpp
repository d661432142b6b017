#include "workbench/solvers/answer.hpp"

#include <charconv>
#include <cstdlib>
#include <map>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace tpn {

namespace {

using Status = SolverAnswer::Status;

// The highest variable that is believed: no clause file has one near it.
constexpr int mostVariable = 1 << 28;

const std::map<std::string_view, Status> competition{{"SATISFIABLE", Status::satisfiable},
                                                     {"UNSATISFIABLE", Status::unsatisfiable},
                                                     {"UNKNOWN", Status::unknown},
                                                     {"INDETERMINATE", Status::unknown}};
const std::map<std::string_view, Status> resultFileWords{
    {"SAT", Status::satisfiable}, {"UNSAT", Status::unsatisfiable}, {"INDET", Status::unknown}};

class AnswerReader {
 public:
  SolverAnswer read(const std::string& text) {
    std::istringstream in(text);
    for (std::string line; std::getline(in, line); ++line_) take(line);
    if (!status_) throw std::runtime_error(nothing_);
    answer_.status = *status_;
    if (answer_.status == Status::satisfiable && !ended_)
      throw std::runtime_error("the answer is cut off: its values do not end with a 0");
    return answer_;
  }

 private:
  void take(std::string_view line) {
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    if (line.empty()) return;
    if (line == "c UNKNOWN") return setStatus(Status::unknown);  // CaDiCaL, at a limit
    if (line[0] == 'c') return;
    if (line.starts_with("s ")) return setStatus(named(line.substr(2), competition, line));
    if (line[0] == 'v' && (line.size() == 1 || line[1] == ' ')) return takeValues(line.substr(1));
    if (!status_ && resultFileWords.contains(line)) {
      values_ = true;
      return setStatus(resultFileWords.at(line));
    }
    if (values_) return takeValues(line);
    if (line == "SATISFIABLE" || line == "UNSATISFIABLE" || line == "INDETERMINATE")
      nothing_ = "this is what MiniSat prints; the answer is in its result file";
    // Anything else is chatter; what matters is that an answer follows.
  }

  static Status named(std::string_view name, const std::map<std::string_view, Status>& names,
                      std::string_view line) {
    const auto found = names.find(name);
    if (found == names.end())
      throw std::runtime_error("no verdict of a solver: \"" + std::string(line.substr(0, 60)) +
                               "\"");
    return found->second;
  }

  void setStatus(Status status) {
    if (status_ && *status_ != status) throw std::runtime_error("the answer contradicts itself");
    status_ = status;
  }

  void takeValues(std::string_view numbers) {
    const char* at = numbers.data();
    const char* const end = at + numbers.size();
    while (true) {
      while (at != end && (*at == ' ' || *at == '\t')) ++at;
      if (at == end) return;
      int literal = 0;
      const auto [next, failure] = std::from_chars(at, end, literal);
      const bool whole = next == end || *next == ' ' || *next == '\t';
      if (failure != std::errc() || !whole || literal < -mostVariable || literal > mostVariable)
        throw std::runtime_error("line " + std::to_string(line_) + " of the answer: no literal");
      at = next;
      takeLiteral(literal);
    }
  }

  void takeLiteral(int literal) {
    if (ended_)
      throw std::runtime_error("line " + std::to_string(line_) +
                               " of the answer: values after the final 0");
    ended_ = literal == 0;
    const auto variable = static_cast<std::size_t>(std::abs(literal));
    if (variable >= answer_.values.size()) answer_.values.resize(variable + 1, 0);
    const signed char value = literal > 0 ? 1 : -1;
    if (!ended_ && answer_.values[variable] == -value)
      throw std::runtime_error("the answer contradicts itself: variable " +
                               std::to_string(variable) + " is true and false");
    if (!ended_) answer_.values[variable] = value;
  }

  SolverAnswer answer_;
  std::optional<Status> status_;
  bool values_ = false;  // lines are values: this is a result file
  bool ended_ = false;   // the 0 was there
  int line_ = 1;
  std::string nothing_ = "no answer of a solver: it has no line \"s ...\", \"SAT\" or \"UNSAT\"";
};

}  // namespace

SolverAnswer readAnswer(const std::string& text) { return AnswerReader().read(text); }

std::string answerText(const std::vector<std::vector<bool>>& values) {
  std::string text = "s SATISFIABLE\n";
  int variable = 0;
  for (const std::vector<bool>& line : values) {
    text += "v";
    for (const bool value : line) {
      text += value ? " " : " -";
      text += std::to_string(++variable);
    }
    text += "\n";
  }
  return text + "v 0\n";
}

}  // namespace tpn
