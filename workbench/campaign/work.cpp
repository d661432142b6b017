#include "workbench/campaign/work.hpp"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <ctime>
#include <filesystem>
#include <new>

#include "workbench/base/files.hpp"
#include "workbench/campaign/asking.hpp"
#include "workbench/campaign/cubes.hpp"
#include "workbench/campaign/lookout.hpp"
#include "workbench/proof/certificatetext.hpp"
#include "workbench/search/engines.hpp"

namespace tpn {

namespace {

using Clock = std::chrono::steady_clock;

std::string hostName() {
  std::array<char, 256> host{};
  gethostname(host.data(), host.size() - 1);
  return host.data();
}

double secondsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

void measure(JobAnswer& answer, Clock::time_point start) {
  answer.seconds = std::chrono::duration<double>(Clock::now() - start).count();
  for (const int whose : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
    rusage usage{};
    getrusage(whose, &usage);
    answer.cpu += secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime);
    answer.memory = std::max<std::int64_t>(answer.memory, usage.ru_maxrss);
  }
  answer.host = hostName();
}

// Memory that is asked for beyond it is not there, which the search tells in its own words.
void limitMemory(const Limits& limits) {
  if (!limits.memory) return;
  const auto bytes = static_cast<rlim_t>(*limits.memory) << 20U;
  const rlimit limit{bytes, bytes};
  setrlimit(RLIMIT_AS, &limit);
}

std::optional<std::chrono::milliseconds> timeoutOf(const Limits& limits) {
  if (!limits.timeout) return std::nullopt;
  return std::chrono::milliseconds(std::llround(std::min(*limits.timeout, 1e9) * 1000));
}

EngineOptions optionsOf(const Job& job, const Limits& limits) {
  EngineOptions options;
  for (const EngineName& row : engineNames)
    if (row.name == job.engine) options.engine = row.engine;
  options.seed = static_cast<std::uint64_t>(job.seed);
  options.maxTransitions = limits.maxTransitions;
  if (options.engine == Engine::bounded && !options.maxTransitions)
    options.maxTransitions = usualLength;
  return options;
}

JobAnswer::Kind kindOf(const Answer& found) {
  switch (found.kind) {
    case Answer::reachable:
      return JobAnswer::reachable;
    case Answer::unreachable:
      return JobAnswer::unreachable;
    case Answer::unsafe:
      return JobAnswer::unsafe;
    case Answer::undecided:
      break;
  }
  return JobAnswer::undecided;
}

JobAnswer searched(const std::string& folder, const Job& job, const Limits& limits,
                   const std::atomic<bool>& stop) {
  const Network net = networkOf(folder, job);
  const Goal goal = goalOf(folder, job, net);
  const Watch::Report silent;
  Watch watch(timeoutOf(limits), stop, silent);
  const Answer found = job.cube.empty()
                           ? answered(net, goal, optionsOf(job, limits), watch)
                           : answeredInCube(net, goal, job.cube, *limits.maxTransitions, watch);
  JobAnswer answer;
  answer.kind = kindOf(found);
  answer.run = found.run;
  answer.shortest = found.shortest;
  answer.noRunUpTo = found.noRunUpTo;
  answer.reason = found.reason;
  if (found.certificate)
    answer.certificate = certificateText({statement(net, goal), *found.certificate});
  return answer;
}

JobAnswer searchedOrFailed(const std::string& folder, const Job& job, const Limits& limits,
                           const std::atomic<bool>& stop) {
  const auto failure = [](const std::string& reason) {
    JobAnswer answer;
    answer.kind = JobAnswer::gaveUp;
    answer.reason = reason;
    return answer;
  };
  try {
    return searched(folder, job, limits, stop);
  } catch (const std::bad_alloc&) {
    return failure("this needs more memory than there is");
  } catch (const std::runtime_error& e) {
    return failure(e.what());
  }
}

// Nothing where there is none, or one that is broken or tells of a failure: it is written anew.
std::optional<JobAnswer> answerThere(const std::string& folder, const Job& job) {
  const std::string name = answerName(folder, job.number);
  if (!std::filesystem::exists(name)) return std::nullopt;
  try {
    JobAnswer answer = readAnswer(jobLine(job), readFile(name));
    if (answer.isDone()) return answer;
  } catch (const std::runtime_error&) {
    // Collecting tells what is wrong with it.
  }
  return std::nullopt;
}

// Who works on it since when: what collecting tells of a job without an answer.
class Begun {
 public:
  Begun(const std::string& folder, int number) : name_(begunName(folder, number)) {
    std::array<char, 32> time{};
    const std::time_t now = std::time(nullptr);
    std::tm utc{};
    std::strftime(time.data(), time.size(), "%Y-%m-%d %H:%M:%S UTC", gmtime_r(&now, &utc));
    writeFile(name_, "begun on " + hostName() + " at " + time.data() + "\n");
  }
  ~Begun() { unlink(name_.c_str()); }
  Begun(const Begun&) = delete;
  Begun& operator=(const Begun&) = delete;

 private:
  std::string name_;
};

// The file names the job that settled it; its answer must still be there.
bool isSettled(const std::string& folder, const Plan& plan) {
  const std::string file = settledName(folder);
  if (!plan.isRace() || !std::filesystem::exists(file)) return false;
  const std::string text = readFile(file);
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  if (number >= 1 && number <= plan.jobs && answerThere(folder, readJob(folder, plan, number)))
    return true;
  unlink(file.c_str());
  return false;
}

// Has this answer settled the plan? Then that is remembered.
bool settle(const std::string& folder, const Plan& plan, const Job& job, const JobAnswer& answer) {
  if (!plan.isRace() || !answer.isSure()) return false;
  replaceFile(settledName(folder), std::to_string(job.number) + "\n");
  return true;
}

Worked answerNow(const std::string& folder, const Plan& plan, const Job& job,
                 const std::atomic<bool>& stop) {
  const Clock::time_point start = Clock::now();
  const Begun begun(folder, job.number);
  limitMemory(plan.limits);
  const Lookout lookout(plan.isRace() ? settledName(folder) : "", stop);
  JobAnswer answer = searchedOrFailed(folder, job, plan.limits, lookout.over());
  if (lookout.over() && !answer.isSure())
    return {lookout.seen() ? Worked::superfluous : Worked::interrupted, "", false};
  measure(answer, start);
  replaceFile(answerName(folder, job.number), answerText(jobLine(job), answer));
  if (answer.kind == JobAnswer::gaveUp) return {Worked::gaveUp, answer.reason, false};
  return {Worked::answeredNow, "", settle(folder, plan, job, answer)};
}

}  // namespace

Worked work(const std::string& folder, int number, const std::atomic<bool>& stop) {
  const Plan plan = readPlan(folder);
  const Job job = readJob(folder, plan, number);
  if (const auto there = answerThere(folder, job))
    return {Worked::wasAnswered, "", settle(folder, plan, job, *there)};
  if (isSettled(folder, plan)) return {Worked::superfluous, "", false};
  return answerNow(folder, plan, job, stop);
}

std::vector<int> unanswered(const std::string& folder) {
  const Plan plan = readPlan(folder);
  std::vector<int> numbers;
  if (isSettled(folder, plan)) return numbers;
  forEachJob(folder, plan, [&](const Job& job, const std::string& /*line*/) {
    if (!answerThere(folder, job)) numbers.push_back(job.number);
  });
  return numbers;
}

}  // namespace tpn
