// The answers of a plan together: a row a job, and what only all of them show. Nothing is believed:
// runs are replayed, certificates rechecked.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/campaign/answerfile.hpp"
#include "workbench/campaign/planfolder.hpp"

namespace tpn {

struct Row {
  enum State {
    complete,     // its answer is there
    gaveUp,       // it told why, and can be asked again
    missing,      // not begun
    begun,        // and no answer: it is at work, or was killed
    broken,       // a file that is no answer; asked again by the next run
    refuted,      // a run that does not replay, a certificate that proves nothing
    superfluous,  // the question has been settled without it
  } state = missing;
  Job job;
  JobAnswer::Kind answer = JobAnswer::undecided;
  int transitions = -1;  // of the run
  bool shortest = false;
  int noRunUpTo = -1;
  double seconds = 0;
  double cpu = 0;
  std::int64_t memory = 0;  // KiB
  std::string why;          // of what is not answered, or undecided
};

bool isSure(const Row& row);  // reachable, unreachable or unsafe, and it holds

// Values of a sweep between which the answer is another one.
struct Turn {
  std::string network;
  std::string asked;
  std::string what;   // is swept
  std::string where;  // the values of the other sweeps, "" where there are none
  std::int64_t from = 0;
  std::int64_t to = 0;
  std::string before;  // the answers
  std::string after;
};

// Of a plan that is one question.
struct Whole {
  JobAnswer::Kind answer = JobAnswer::undecided;
  int noRunUpTo = -1;  // undecided: no run of up to so many transitions, in no cube
  int job = 0;         // whose answer it is; 0: that of all together
  std::string reason;  // undecided: what is open, one line; empty where nothing is. unsafe: why
};

struct Collection {
  Plan plan;
  std::vector<Row> rows;                    // by job
  std::vector<std::string> contradictions;  // one line each
  std::vector<Turn> turns;
  std::optional<Whole> whole;  // cubes, portfolio

  std::size_t count(Row::State state) const;
};

// Throws std::runtime_error, one line, where the plan cannot be read. May run while jobs do.
Collection collect(const std::string& folder);

// Fills `contradictions` and `turns` from the rows.
void findContradictions(Collection& collection);
void findTurns(Collection& collection);

}  // namespace tpn
