#include "workbench/campaign/answerfile.hpp"

#include <array>
#include <nlohmann/json.hpp>

#include "workbench/base/json.hpp"
#include "workbench/base/sha256.hpp"

namespace tpn {

namespace {

constexpr std::array<const char*, 5> kinds{"reachable", "unreachable", "undecided", "unsafe",
                                           "failed"};
constexpr std::size_t hashDigits = 64;

Json runJson(const Run& run) {
  Json steps = Json::array();
  for (const Step& step : run.steps)
    steps.push_back(Json::array({step.delay.text(), step.transition}));
  return {{"goal", run.goal}, {"steps", steps}};
}

Run runOf(const Json& json) {
  Run run;
  run.goal = json.at("goal").get<std::size_t>();
  for (const Json& step : json.at("steps")) {
    const auto delay = Rational::read(step.at(0).get<std::string>());
    if (!delay) throw BrokenAnswer("has a delay that is no number");
    run.steps.push_back({*delay, step.at(1).get<std::size_t>()});
  }
  return run;
}

Json jsonOf(const std::string& line, const JobAnswer& a) {
  Json json{{"format", "tpn-answer"},
            {"version", 1},
            {"of", fingerprint(line)},
            {"answer", nameOf(a.kind)}};
  if (a.run) json["run"] = runJson(*a.run);
  if (a.shortest) json["shortest"] = true;
  if (a.noRunUpTo >= 0) json["noRunUpTo"] = a.noRunUpTo;
  if (!a.certificate.empty()) json["certificate"] = a.certificate;
  if (!a.reason.empty()) json["reason"] = a.reason;
  json["seconds"] = a.seconds;
  json["cpu"] = a.cpu;
  json["memory"] = a.memory;
  json["host"] = a.host;
  return json;
}

JobAnswer::Kind kindOf(const std::string& name) {
  for (std::size_t i = 0; i < kinds.size(); ++i)
    if (name == kinds.at(i)) return static_cast<JobAnswer::Kind>(i);
  throw BrokenAnswer("has an answer of no kind that is known");
}

JobAnswer answerOf(const Json& json, const std::string& line) {
  if (json.at("of").get<std::string>() != fingerprint(line))
    throw BrokenAnswer("is about another job");
  JobAnswer a;
  a.kind = kindOf(json.at("answer").get<std::string>());
  if (json.contains("run")) a.run = runOf(json.at("run"));
  a.shortest = json.value("shortest", false);
  a.noRunUpTo = json.value("noRunUpTo", -1);
  a.certificate = json.value("certificate", "");
  a.reason = json.value("reason", "");
  a.seconds = json.at("seconds").get<double>();
  a.cpu = json.at("cpu").get<double>();
  a.memory = json.at("memory").get<std::int64_t>();
  a.host = json.at("host").get<std::string>();
  return a;
}

}  // namespace

const char* nameOf(JobAnswer::Kind kind) { return kinds.at(kind); }

std::string answerText(const std::string& line, const JobAnswer& answer) {
  const std::string text =
      jsonOf(line, answer).dump(-1, ' ', false, Json::error_handler_t::replace);
  return text + "\n" + fingerprint(text) + "\n";
}

JobAnswer readAnswer(const std::string& line, const std::string& text) {
  if (text.size() < hashDigits + 2 || text.back() != '\n') throw BrokenAnswer("is cut");
  const std::size_t end = text.size() - hashDigits - 2;
  const std::string said = text.substr(0, end);
  if (text[end] != '\n' || fingerprint(said) != text.substr(end + 1, hashDigits))
    throw BrokenAnswer("is damaged: its hash is another");
  try {
    return answerOf(Json::parse(said), line);
  } catch (const Json::exception&) {
    throw BrokenAnswer("is of another version");
  }
}

}  // namespace tpn
