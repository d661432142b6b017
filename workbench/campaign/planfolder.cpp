#include "workbench/campaign/planfolder.hpp"

#include <filesystem>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "workbench/base/files.hpp"
#include "workbench/base/json.hpp"
#include "workbench/base/sha256.hpp"

namespace tpn {

namespace {

constexpr std::size_t inputDigits = 32;
constexpr int answersAFolder = 1000;
constexpr const char* planKinds[] = {"campaign", "cubes", "portfolio"};

std::string hashOf(const std::string& bytes) { return fingerprint(bytes).substr(0, inputDigits); }

std::string answerFolder(const std::string& folder, int number) {
  return folder + "/answers/" + std::to_string(number / answersAFolder);
}

Json planJson(const Plan& plan) {
  Json json{{"format", "tpn-plan"},
            {"version", 1},
            {"kind", planKinds[plan.kind]},
            {"title", plan.title},
            {"jobs", plan.jobs}};
  if (plan.limits.timeout) json["timeout"] = *plan.limits.timeout;
  if (plan.limits.maxTransitions) json["maxTransitions"] = *plan.limits.maxTransitions;
  if (plan.limits.memory) json["memory"] = *plan.limits.memory;
  return json;
}

Plan planOf(const Json& json) {
  Plan plan;
  const auto kind = json.at("kind").get<std::string>();
  while (planKinds[plan.kind] != kind) {
    if (plan.kind == Plan::portfolio) throw std::runtime_error("is of a later version of tpn");
    plan.kind = static_cast<Plan::Kind>(plan.kind + 1);
  }
  plan.title = json.at("title").get<std::string>();
  plan.jobs = json.at("jobs").get<int>();
  if (json.contains("timeout")) plan.limits.timeout = json.at("timeout").get<double>();
  if (json.contains("maxTransitions"))
    plan.limits.maxTransitions = json.at("maxTransitions").get<int>();
  if (json.contains("memory")) plan.limits.memory = json.at("memory").get<std::int64_t>();
  if (plan.jobs < 1) throw std::runtime_error("has no jobs");
  if (plan.kind == Plan::cubes && plan.limits.maxTransitions.value_or(0) < 1)
    throw std::runtime_error("does not say how long runs may be");
  return plan;
}

// The lines of a text, one after the other, without a copy of the whole.
class Lines {
 public:
  explicit Lines(const std::string& text) : text_(text) {}

  bool skip() {
    const std::size_t end = text_.find('\n', at_);
    if (end == std::string::npos) return false;
    at_ = end + 1;
    return true;
  }
  std::string next() {
    const std::size_t begin = at_;
    return skip() ? text_.substr(begin, at_ - 1 - begin) : "";
  }

 private:
  const std::string& text_;
  std::size_t at_ = 0;
};

Job jobIn(const std::string& folder, const std::string& line, int number) {
  const std::string place = folder + "/jobs: line " + std::to_string(number) + " ";
  try {
    Job job = readJobLine(line);
    if (job.number == number) return job;
  } catch (const std::runtime_error& e) {
    throw std::runtime_error(place + e.what());
  }
  throw std::runtime_error(place + "is about another job");
}

}  // namespace

PlanWriter::PlanWriter(std::string folder) : folder_(std::move(folder)) {
  std::filesystem::create_directories(folder_);
  if (!std::filesystem::is_empty(folder_))
    throw std::runtime_error(folder_ + ": a plan needs an empty folder");
  std::filesystem::create_directory(folder_ + "/inputs");
}

std::string PlanWriter::input(const std::string& bytes, const std::string& suffix) {
  std::string name = hashOf(bytes) + suffix;
  const std::string file = folder_ + "/inputs/" + name;
  if (!std::filesystem::exists(file)) writeFile(file, bytes);
  return name;
}

PlanWriter::~PlanWriter() {
  std::error_code ignored;
  if (finished_) return;
  for (const char* const ours : {"inputs", "jobs", "answers", "run.slurm", "run.parallel"})
    std::filesystem::remove_all(folder_ + "/" + ours, ignored);
  std::filesystem::remove(folder_, ignored);
}

void PlanWriter::script(const std::string& name, const std::string& text) {
  const std::string file = folder_ + "/" + name;
  writeFile(file, text);
  using std::filesystem::perms;
  std::filesystem::permissions(file, perms::owner_exec | perms::group_exec | perms::others_exec,
                               std::filesystem::perm_options::add);
}

void PlanWriter::add(Job job) {
  job.number = ++jobs_;
  lines_ += jobLine(job) + "\n";
}

void PlanWriter::finish(Plan plan) {
  plan.jobs = jobs_;
  writeFile(folder_ + "/jobs", lines_);
  for (int n = 0; n <= jobs_; n += answersAFolder)
    std::filesystem::create_directories(answerFolder(folder_, n));
  replaceFile(folder_ + "/plan.json", jsonText(planJson(plan)));
  finished_ = true;
}

Plan readPlan(const std::string& folder) {
  const std::string name = folder + "/plan.json";
  const std::string text = readFile(name, largestInput);
  try {
    return planOf(Json::parse(text));
  } catch (const Json::exception&) {
    throw std::runtime_error(name + ": is no plan");
  } catch (const std::runtime_error& e) {
    throw std::runtime_error(name + ": " + e.what());
  }
}

Job readJob(const std::string& folder, const Plan& plan, int number) {
  if (number < 1 || number > plan.jobs)
    throw std::runtime_error(folder + " has the jobs 1 to " + std::to_string(plan.jobs));
  const std::string text = readFile(folder + "/jobs");
  Lines lines(text);
  for (int n = 1; n < number; ++n) lines.skip();
  return jobIn(folder, lines.next(), number);
}

void forEachJob(const std::string& folder, const Plan& plan,
                const std::function<void(const Job& job, const std::string& line)>& take) {
  const std::string text = readFile(folder + "/jobs");
  Lines lines(text);
  for (int n = 1; n <= plan.jobs; ++n) {
    const std::string line = lines.next();
    take(jobIn(folder, line, n), line);
  }
}

std::string readInput(const std::string& folder, const std::string& name) {
  const std::string file = folder + "/inputs/" + name;
  std::string bytes = readFile(file, largestInput);
  if (hashOf(bytes) != name.substr(0, inputDigits))
    throw std::runtime_error(file + ": is not what was planned");
  return bytes;
}

std::string answerName(const std::string& folder, int number) {
  return answerFolder(folder, number) + "/" + std::to_string(number);
}

std::string begunName(const std::string& folder, int number) {
  return answerName(folder, number) + ".begun";
}

std::string settledName(const std::string& folder) { return folder + "/settled"; }

}  // namespace tpn
