// What answers show beside one another: engines that contradict each other, and where the answer of
// a sweep turns.

#include <algorithm>
#include <map>
#include <tuple>

#include "workbench/base/printable.hpp"
#include "workbench/campaign/collect.hpp"

namespace tpn {

namespace {

std::string called(const Row& row) {
  return "job " + std::to_string(row.job.number) + " (" + row.job.engine + ")";
}

// What all answers to one question say together.
struct Said {
  const Row* run = nullptr;    // a shortest that there is
  const Row* never = nullptr;  // says that there is none
  const Row* most = nullptr;   // says that there is none of up to the largest number
};

void add(const Row& row, Said& said) {
  if (row.state != Row::complete) return;
  if ((row.answer == JobAnswer::reachable || row.answer == JobAnswer::unsafe) &&
      (said.run == nullptr || row.transitions < said.run->transitions))
    said.run = &row;
  if (row.answer == JobAnswer::unreachable) said.never = &row;
  const int known = row.shortest ? row.transitions - 1 : row.noRunUpTo;
  const int best = said.most == nullptr  ? -1
                   : said.most->shortest ? said.most->transitions - 1
                                         : said.most->noRunUpTo;
  if (known > best && row.answer != JobAnswer::unreachable) said.most = &row;
}

std::string contradiction(const Said& said) {
  if (said.run == nullptr) return "";
  const std::string found = called(*said.run) + " has a run of " +
                            std::to_string(said.run->transitions) + " transitions, ";
  if (said.never != nullptr) return found + called(*said.never) + " says that there is none";
  if (said.most == nullptr) return "";
  const int known = said.most->shortest ? said.most->transitions - 1 : said.most->noRunUpTo;
  if (known < said.run->transitions) return "";
  return found + called(*said.most) + " says that none of up to " + std::to_string(known) +
         " does it";
}

// The other values of a job's sweeps, in words.
std::string others(const Job& job, std::size_t except) {
  std::string text;
  for (std::size_t i = 0; i < job.swept.size(); ++i)
    if (i != except)
      text += (text.empty() ? "" : ", ") + job.swept[i].what() + " " +
              std::to_string(job.swept[i].value);
  return text;
}

using Series = std::tuple<std::string, std::int64_t, std::string, std::string, std::string>;

// Sure answers by value.
using Answers = std::map<std::int64_t, JobAnswer::Kind>;

void addTurns(const Series& series, const Answers& answers, std::vector<Turn>& turns) {
  const auto& [network, size, asked, what, where] = series;
  for (auto at = answers.begin(); at != answers.end(); ++at) {
    const auto next = std::next(at);
    if (next == answers.end()) return;
    if (at->second != next->second)
      turns.push_back({network, asked, what, where, at->first, next->first, nameOf(at->second),
                       nameOf(next->second)});
  }
}

}  // namespace

// Cubes are questions of their own; what they say of lengths is about the cube.
void findContradictions(Collection& c) {
  std::map<std::tuple<std::string, std::string, std::string>, Said> byQuestion;
  if (c.plan.kind == Plan::cubes) return;
  for (const Row& row : c.rows)
    add(row, byQuestion[{row.job.network, row.job.question, sweptText(row.job)}]);
  for (const auto& [question, said] : byQuestion) {
    const std::string& swept = std::get<2>(question);
    const std::string found = contradiction(said);
    if (!found.empty())
      c.contradictions.push_back(said.run->job.name + ", " + said.run->job.asked +
                                 (swept.empty() ? "" : ", " + swept) + ": " + found);
  }
}

void findTurns(Collection& c) {
  std::map<Series, Answers> series;
  for (const Row& row : c.rows) {
    for (std::size_t i = 0; isSure(row) && i < row.job.swept.size(); ++i)
      series[{row.job.name, row.job.size, row.job.asked, row.job.swept[i].what(),
              others(row.job, i)}][row.job.swept[i].value] = row.answer;
  }
  for (const auto& [key, answers] : series) addTurns(key, answers, c.turns);
}

}  // namespace tpn
