#include "workbench/campaign/collect.hpp"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "workbench/base/files.hpp"
#include "workbench/campaign/cubes.hpp"
#include "workbench/campaign/judging.hpp"

namespace tpn {

namespace {

// The file's text; nothing where there is none.
std::optional<std::string> textOf(const std::string& file) {
  try {
    return readFile(file, largestInput);
  } catch (const std::runtime_error&) {
    if (std::filesystem::exists(file)) throw;
    return std::nullopt;
  }
}

void take(const JobAnswer& answer, Row& row) {
  row.state = answer.kind == JobAnswer::gaveUp ? Row::gaveUp : Row::complete;
  row.answer = answer.kind;
  if (answer.run) row.transitions = static_cast<int>(answer.run->steps.size());
  row.shortest = answer.shortest;
  row.noRunUpTo = answer.noRunUpTo;
  row.seconds = answer.seconds;
  row.cpu = answer.cpu;
  row.memory = answer.memory;
  row.why = answer.reason;
}

// Of a job that has no answer: has somebody begun with it?
void takeBeginning(const std::string& folder, Row& row) {
  const auto text = textOf(begunName(folder, row.job.number));
  row.state = text ? Row::begun : Row::missing;
  row.why =
      text ? text->substr(0, text->find('\n')) + "; it is at work, or was killed" : "not begun";
}

Row rowOf(const std::string& folder, const Job& job, const std::string& line, Judge& judge) {
  Row row;
  row.job = job;
  const auto text = textOf(answerName(folder, job.number));
  if (!text) {
    takeBeginning(folder, row);
    return row;
  }
  try {
    const JobAnswer answer = readAnswer(line, *text);
    take(answer, row);
    const std::string complaint = judge.complaint(job, answer);
    if (complaint.empty()) return row;
    row.state = Row::refuted;
    row.why = complaint;
  } catch (const BrokenAnswer& e) {
    row.state = Row::broken;
    row.why = std::string("the answer's file ") + e.what() + "; the next run asks again";
  } catch (const std::runtime_error& e) {  // inputs, or times that no number holds
    row.state = Row::refuted;
    row.why = e.what();
  }
  return row;
}

void dropSuperfluous(std::vector<Row>& rows) {
  for (Row& row : rows)
    if (row.state == Row::missing || row.state == Row::begun) {
      row.state = Row::superfluous;
      row.why = "";
    }
}

// No cube has a run of so many transitions, as far as each of them got.
Whole cubesTogether(const Collection& c, Judge& judge) {
  Whole whole;
  std::vector<RunCube> cubes;
  int open = 0;
  whole.noRunUpTo = *c.plan.limits.maxTransitions;
  for (const Row& row : c.rows) {
    cubes.push_back(row.job.cube);
    const int known = row.state == Row::complete ? row.noRunUpTo : -1;
    whole.noRunUpTo = std::min(whole.noRunUpTo, known);
    if (known < *c.plan.limits.maxTransitions) ++open;
  }
  if (open > 0)
    whole.reason = std::to_string(open) + (open == 1 ? " cube is open" : " cubes are open");
  const std::string complaint =
      coverComplaint(judge.network(c.rows.front().job), cubes, *c.plan.limits.maxTransitions);
  if (complaint.empty()) return whole;
  whole.noRunUpTo = -1;
  whole.reason = complaint;
  return whole;
}

// The engine in a cube bears witness of runs alone; elsewhere any sure answer counts.
Whole wholeOf(Collection& c, Judge& judge) {
  const auto sure = std::find_if(c.rows.begin(), c.rows.end(), isSure);
  if (sure != c.rows.end()) {
    dropSuperfluous(c.rows);
    return {sure->answer, -1, sure->job.number, sure->why};
  }
  if (c.plan.kind == Plan::cubes) return cubesTogether(c, judge);
  Whole whole;
  whole.reason = "no job has a sure answer";
  for (const Row& row : c.rows) whole.noRunUpTo = std::max(whole.noRunUpTo, row.noRunUpTo);
  return whole;
}

}  // namespace

bool isSure(const Row& row) {
  return row.state == Row::complete &&
         (row.answer == JobAnswer::reachable || row.answer == JobAnswer::unreachable ||
          row.answer == JobAnswer::unsafe);
}

std::size_t Collection::count(Row::State state) const {
  return static_cast<std::size_t>(
      std::count_if(rows.begin(), rows.end(), [&](const Row& row) { return row.state == state; }));
}

Collection collect(const std::string& folder) {
  Collection collection;
  collection.plan = readPlan(folder);
  collection.rows.reserve(static_cast<std::size_t>(collection.plan.jobs));
  Judge judge(folder);
  forEachJob(folder, collection.plan, [&](const Job& job, const std::string& line) {
    collection.rows.push_back(rowOf(folder, job, line, judge));
  });
  if (collection.plan.isRace()) collection.whole = wholeOf(collection, judge);
  findContradictions(collection);
  findTurns(collection);
  return collection;
}

}  // namespace tpn
