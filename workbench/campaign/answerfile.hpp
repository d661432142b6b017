// What a job answered, as a file. It tells which job it is of and ends with a hash of itself, so
// that a file that was cut, changed or copied is not taken for an answer.

#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "workbench/campaign/job.hpp"
#include "workbench/runs/run.hpp"

namespace tpn {

struct JobAnswer {
  // As of an Answer (search/answer.hpp), or that there was none.
  enum Kind { reachable, unreachable, undecided, unsafe, gaveUp } kind = undecided;
  std::optional<Run> run;   // reachable, unsafe
  bool shortest = false;    // reachable: no shorter run does it
  int noRunUpTo = -1;       // no run (in the job's cube) of up to so many transitions does it
  std::string certificate;  // unreachable: as text; empty where the question was split
  std::string reason;       // undecided, unsafe, gaveUp: one line
  double seconds = 0;       // by the clock
  double cpu = 0;           // seconds, of what it called, too
  std::int64_t memory = 0;  // most that it held, KiB
  std::string host;

  // Is there nothing to be gained by asking once more?
  bool isDone() const { return kind != gaveUp; }
  // Does it answer the question for good?
  bool isSure() const { return kind == reachable || kind == unreachable || kind == unsafe; }
};

const char* nameOf(JobAnswer::Kind kind);

// `line` is the job's in the plan.
std::string answerText(const std::string& line, const JobAnswer& answer);

struct BrokenAnswer : std::runtime_error {
  using std::runtime_error::runtime_error;
};
JobAnswer readAnswer(const std::string& line, const std::string& text);  // throws BrokenAnswer

}  // namespace tpn
