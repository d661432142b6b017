// TOML is turned into the values of JSON first, so that there is one reader of what a campaign
// says.

#include <algorithm>
#include <filesystem>
#include <limits>
#include <nlohmann/json.hpp>
#include <set>
#include <stdexcept>

#include "workbench/base/files.hpp"
#include "workbench/base/json.hpp"
#include "workbench/base/printable.hpp"
#include "workbench/campaign/campaign.hpp"
#include "workbench/campaign/toml.hpp"
#include "workbench/search/engines.hpp"

namespace tpn {

namespace {

// One table of the file; `place` is told in front of what is wrong with it.
class Table {
 public:
  Table(const Json& json, std::string place, const std::set<std::string>& keys)
      : json_(json), place_(std::move(place)) {
    if (!json.is_object()) wrong("is no table");
    for (const auto& [key, value] : json.items())
      if (!keys.contains(key)) wrong("nothing is called " + key);
  }

  [[noreturn]] void wrong(const std::string& what) const {
    throw std::runtime_error(place_ + printable(what));
  }

  bool has(const std::string& key) const { return json_.contains(key); }

  std::string text(const std::string& key) const {
    if (!has(key)) return "";
    const Json& value = json_.at(key);
    if (!value.is_string() || value.get<std::string>().empty()) wrong(key + " is a text");
    return value.get<std::string>();
  }

  std::vector<std::string> texts(const std::string& key) const {
    std::vector<std::string> result;
    if (!has(key)) return result;
    const Json& values = json_.at(key);
    if (!values.is_array() || values.empty()) wrong(key + " is a list of texts");
    for (const Json& value : values) {
      if (!value.is_string()) wrong(key + " is a list of texts");
      result.push_back(value.get<std::string>());
    }
    return result;
  }

  // A number, a list of numbers, or a range as text.
  std::vector<std::int64_t> numbers(const std::string& key) const {
    if (!has(key)) return {};
    const Json& value = json_.at(key);
    if (value.is_string()) {
      const auto range = readRange(value.get<std::string>());
      if (!range) wrong(key + " is no range like 2..20 or 2..20 step 3");
      return *range;
    }
    std::vector<std::int64_t> result;
    for (const Json& one : value.is_array() ? value : Json::array({value})) {
      if (!one.is_number_integer() || one.get<std::int64_t>() < 0)
        wrong(key + " are whole numbers, or a range like 2..20");
      result.push_back(one.get<std::int64_t>());
    }
    if (result.empty()) wrong(key + " is empty");
    return result;
  }

  std::optional<std::int64_t> number(const std::string& key, std::int64_t least) const {
    if (!has(key)) return std::nullopt;
    const Json& value = json_.at(key);
    if (!value.is_number_integer() || value.get<std::int64_t>() < least ||
        value.get<std::int64_t>() > std::numeric_limits<std::int32_t>::max())
      wrong(key + " is a whole number from " + std::to_string(least) + " on");
    return value.get<std::int64_t>();
  }

  std::optional<double> seconds(const std::string& key) const {
    if (!has(key)) return std::nullopt;
    const Json& value = json_.at(key);
    if (!value.is_number() || !(value.get<double>() > 0)) wrong(key + " is a time in seconds");
    return value.get<double>();
  }

 private:
  const Json& json_;
  std::string place_;
};

std::vector<Sweep> sweepsOf(const Table& table) {
  std::vector<Sweep> sweeps;
  for (const std::string& text : table.texts("sweep")) {
    const auto sweep = readSweep(text);
    if (!sweep) table.wrong("\"" + text + "\" is nothing like \"transition reply: latest 1..8\"");
    sweeps.push_back(*sweep);
  }
  return sweeps;
}

NetworkEntry entryOf(const Json& json, const std::string& place,
                     const std::filesystem::path& folder) {
  const Table table(json, place,
                    {"file", "family", "sizes", "properties", "questions", "named", "sweep"});
  NetworkEntry entry;
  if (table.has("file") == table.has("family")) table.wrong("has either a file or a family");
  if (table.has("family") != table.has("sizes")) table.wrong("sizes go with a family");
  if (table.has("named") && !table.has("family")) table.wrong("only a family has named questions");
  if (table.has("file")) entry.file = folder / table.text("file");
  entry.family = table.text("family");
  entry.sizes = table.numbers("sizes");
  for (const std::string& name : table.texts("properties"))
    entry.properties.push_back(folder / name);
  entry.questions = table.texts("questions");
  entry.named = table.texts("named");
  if (entry.properties.empty() && entry.questions.empty() && entry.named.empty())
    table.wrong("asks nothing: it has neither properties nor questions");
  entry.sweeps = sweepsOf(table);
  return entry;
}

void expectEngines(const Table& table, const std::vector<std::string>& engines) {
  for (const std::string& name : engines)
    if (std::none_of(engineNames.begin(), engineNames.end(),
                     [&](const EngineName& row) { return row.name == name; }))
      table.wrong("no engine is called " + name);
}

Campaign campaignOf(const Json& json, const std::string& file) {
  const std::string place = printable(file) + ": ";
  const Table table(
      json, place,
      {"title", "engines", "seeds", "timeout", "max-transitions", "memory", "network"});
  Campaign campaign;
  campaign.title = table.text("title");
  if (table.has("engines")) campaign.engines = table.texts("engines");
  expectEngines(table, campaign.engines);
  if (table.has("seeds")) campaign.seeds = table.numbers("seeds");
  campaign.limits.timeout = table.seconds("timeout");
  campaign.limits.memory = table.number("memory", 1);
  if (const auto most = table.number("max-transitions", 0))
    campaign.limits.maxTransitions = static_cast<int>(*most);
  if (!table.has("network") || !json.at("network").is_array() || json.at("network").empty())
    table.wrong("has no [[network]]");
  const std::filesystem::path folder = std::filesystem::path(file).parent_path();
  for (const Json& one : json.at("network"))
    campaign.networks.push_back(entryOf(
        one, place + "network " + std::to_string(campaign.networks.size() + 1) + ": ", folder));
  return campaign;
}

Json jsonOf(const std::string& file, const std::string& text) {
  if (std::filesystem::path(file).extension() != ".json") return tomlAsJson(file, text);
  try {
    return Json::parse(text);
  } catch (const Json::parse_error& e) {
    throw std::runtime_error(printable(file) + ": is no JSON: byte " + std::to_string(e.byte));
  }
}

}  // namespace

Campaign readCampaign(const std::string& file) {
  return campaignOf(jsonOf(file, readFile(file, largestInput)), file);
}

}  // namespace tpn
