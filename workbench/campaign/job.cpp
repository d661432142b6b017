#include "workbench/campaign/job.hpp"

#include <nlohmann/json.hpp>
#include <stdexcept>

#include "workbench/base/json.hpp"

namespace tpn {

namespace {

Json cubeJson(const RunCube& cube) {
  Json parts = Json::array();
  for (const CubePart& part : cube)
    parts.push_back({{"first", part.first},
                     {"last", part.last},
                     {part.some ? "some" : "none", part.transitions}});
  return parts;
}

RunCube cubeOf(const Json& json) {
  RunCube cube;
  for (const Json& part : json)
    cube.push_back(
        {part.at("first").get<std::size_t>(), part.at("last").get<std::size_t>(),
         part.contains("some"),
         part.at(part.contains("some") ? "some" : "none").get<std::vector<std::size_t>>()});
  return cube;
}

}  // namespace

std::string sweptText(const Job& job) {
  std::string text;
  for (const Swept& swept : job.swept)
    text += (text.empty() ? "" : ", ") + swept.what() + " " + std::to_string(swept.value);
  return text;
}

std::string jobLine(const Job& job) {
  Json json{{"job", job.number},    {"network", job.network}, {"question", job.question},
            {"engine", job.engine}, {"name", job.name},       {"asked", job.asked},
            {"size", job.size}};
  if (job.seed != 0) json["seed"] = job.seed;
  for (const Swept& swept : job.swept)
    json["swept"].push_back({{"transition", swept.transition},
                             {"bound", swept.latest ? "latest" : "earliest"},
                             {"value", swept.value}});
  if (!job.cube.empty()) json["cube"] = cubeJson(job.cube);
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Job readJobLine(const std::string& line) {
  try {
    const Json json = Json::parse(line);
    Job job;
    job.number = json.at("job").get<int>();
    job.network = json.at("network").get<std::string>();
    job.question = json.at("question").get<std::string>();
    job.engine = json.at("engine").get<std::string>();
    job.name = json.at("name").get<std::string>();
    job.asked = json.at("asked").get<std::string>();
    job.size = json.at("size").get<std::int64_t>();
    job.seed = json.value("seed", std::int64_t{0});
    if (json.contains("swept"))
      for (const Json& swept : json.at("swept"))
        job.swept.push_back({swept.at("transition").get<std::string>(),
                             swept.at("bound").get<std::string>() == "latest",
                             swept.at("value").get<std::int64_t>()});
    if (json.contains("cube")) job.cube = cubeOf(json.at("cube"));
    return job;
  } catch (const Json::exception&) {
    throw std::runtime_error("is no line about a job");
  }
}

}  // namespace tpn
