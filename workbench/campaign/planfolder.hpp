// The folder of a plan: all that workers need besides `tpn`.
//
//     plan.json       what all jobs have in common; written last, so that a folder with it is whole
//     jobs            a line a job
//     inputs/         networks and questions, each under the hash of its bytes
//     answers/T/N     what job N answered, a file of its own; T is N / 1000, rounded down
//     settled         there once one answer made all others superfluous
//     run.slurm, run.parallel
//
// 1. Whoever reads an input has seen that its bytes are those of its hash.
// 2. Nothing but `answers`, `settled` and what the engines log is written after planning.

#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "workbench/campaign/campaign.hpp"
#include "workbench/campaign/job.hpp"

namespace tpn {

struct Plan {
  // How answers make one: each is its own; cubes of one question; the first sure one is that of
  // all.
  enum Kind : std::uint8_t { campaign, cubes, portfolio } kind = campaign;
  std::string title;
  int jobs = 0;
  Limits limits;

  // Does a single answer settle everything?
  bool isRace() const { return kind != campaign; }
};

// Writes inputs and lines as they come, and at last the plan.
class PlanWriter {
 public:
  // The folder is made; it throws std::runtime_error where something is in it already.
  explicit PlanWriter(std::string folder);
  ~PlanWriter();  // where finish() did not come to its end, nothing is left
  PlanWriter(const PlanWriter&) = delete;
  PlanWriter& operator=(const PlanWriter&) = delete;

  // Under which name: HASH plus suffix.
  std::string input(const std::string& bytes, const std::string& suffix);
  void add(Job job);  // with the next number
  void script(const std::string& name, const std::string& text);

  int jobs() const { return jobs_; }
  void finish(Plan plan);  // counts the jobs itself

 private:
  std::string folder_;
  std::string lines_;
  int jobs_ = 0;
  bool finished_ = false;
};

// Each throws std::runtime_error, one line, where a file is not there or not as it was written.
Plan readPlan(const std::string& folder);
Job readJob(const std::string& folder, const Plan& plan, int number);
void forEachJob(const std::string& folder, const Plan& plan,
                const std::function<void(const Job& job, const std::string& line)>& take);
std::string readInput(const std::string& folder, const std::string& name);

std::string answerName(const std::string& folder, int number);
std::string begunName(const std::string& folder, int number);  // while a worker is at it
std::string settledName(const std::string& folder);

}  // namespace tpn
