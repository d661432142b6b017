// JSON of runs and networks: by its schema, and saying what the run and the network say.

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "tests/workbench/base/jsonschema.hpp"
#include "tests/workbench/views/viewruns.hpp"

namespace tpn {

namespace {

using nlohmann::json;

json schema(const std::string& name) {
  return json::parse(fileText(ZERVAN_SOURCE_DIR "/docs/" + name + ".schema.json"));
}

json runOf(const Shown& shown) {
  return json::parse(tpn::jsonText(runJson(shown.net, shown.property, shown.run)));
}

Rational exact(const json& time) {
  const std::string text = time["exact"];
  const auto slash = text.find('/');
  const Rational r(std::stoll(text),
                   slash == std::string::npos ? 1 : std::stoll(text.substr(slash + 1)));
  EXPECT_EQ(r.text(), text);
  EXPECT_DOUBLE_EQ(time["value"], r.value());
  return r;
}

std::vector<Move> movesIn(const json& moves) {
  std::vector<Move> result;
  for (const json& move : moves)
    result.push_back({move["process"].get<std::size_t>() - 1, move["from"], move["to"]});
  return result;
}

TEST(RunJson, FollowsItsSchema) {
  const json rules = schema("run");
  for (const Shown& shown : {violation(), named(), thirds(), standstill()})
    EXPECT_EQ(schemaComplaint(rules, runOf(shown)), "");
  for (unsigned seed = 1; seed <= 50; ++seed)
    EXPECT_EQ(schemaComplaint(rules, runOf(randomShown(seed, 12))), "") << "seed " << seed;
}

TEST(RunJson, SchemaTakesNothingElse) {
  const json rules = schema("run");
  const json good = runOf(violation());
  for (const auto& [name, value] : good.items()) {
    json bad = good;
    bad.erase(name);
    EXPECT_NE(schemaComplaint(rules, bad), "") << "without " << name;
  }
  json bad = good;
  bad["states"][1]["time"]["exact"] = "0.5";
  EXPECT_NE(schemaComplaint(rules, bad), "");
  bad = good;
  bad["steps"][0]["moves"] = json::array();
  EXPECT_NE(schemaComplaint(rules, bad), "");
}

TEST(RunJson, SaysWhatTheReplaySays) {
  for (unsigned seed = 1; seed <= 50; ++seed) {
    const Shown shown = randomShown(seed, 12);
    const Replay replayed = replay(shown.net, shown.property, shown.run);
    const json run = runOf(shown);
    ASSERT_EQ(run["states"].size(), replayed.states.size());
    ASSERT_EQ(run["steps"].size(), shown.run.steps.size());
    EXPECT_EQ(run["goal"], shown.run.goal);
    for (std::size_t i = 0; i < replayed.states.size(); ++i) {
      const json& state = run["states"][i];
      const std::set<int> held = propositionsAt(shown.net, replayed.states[i].locations);
      EXPECT_EQ(exact(state["time"]), replayed.times[i]);
      EXPECT_EQ(state["locations"], json(replayed.states[i].locations));
      EXPECT_EQ(state["propositions"], json(held));
      EXPECT_EQ(state["property"], holds(shown.property, {held, {}, false}));
      for (std::size_t p = 0; p < shown.net.processes.size(); ++p)
        EXPECT_EQ(exact(state["clocks"][p]), replayed.states[i].clocks[p]);
    }
    for (std::size_t i = 0; i < shown.run.steps.size(); ++i) {
      const json& step = run["steps"][i];
      EXPECT_EQ(exact(step["delay"]), shown.run.steps[i].delay);
      EXPECT_EQ(exact(step["time"]), replayed.times[i + 1]);
      EXPECT_EQ(step["transition"], shown.run.steps[i].transition + 1);
      EXPECT_EQ(movesIn(step["moves"]), shown.net.transitions[shown.run.steps[i].transition].moves);
    }
  }
}

TEST(RunJson, HasNamesBesideNumbers) {
  const json run = runOf(named());
  EXPECT_EQ(run["held"], json({"alice.critical", "{bob & co}.critical"}));
  EXPECT_EQ(run["states"][0]["locationNames"], json({"idle", "idle", "idle", "no one"}));
  const json& goal = run["states"][10];
  EXPECT_EQ(goal["locationNames"], json({"critical", "critical", "idle", nullptr}));
  EXPECT_EQ(goal["propositions"], json({1, 11, 21}));
  EXPECT_EQ(goal["propositionNames"], json({nullptr, "alice_in", "step"}));
  const json& step = run["steps"][0];
  EXPECT_EQ(step["name"], "wish");
  EXPECT_EQ(
      step["moves"][0],
      json({{"process", 1}, {"name", "alice"}, {"from", 0}, {"fromName", "idle"}, {"to", 1}}));
}

TEST(RunJson, HasNoNamesWhereThereAreNone) {
  EXPECT_EQ(jsonText(runJson(violation().net, violation().property, violation().run)).find("ame\""),
            std::string::npos);
}

TEST(RunJson, ReplacesWhatIsNoUtf8) {
  EXPECT_EQ(runOf(thirds())["network"]["title"],
            "two <processes> & a \"title\" \\ $end &lt; \u017c \ufffd");
}

// --- Networks. ---

// The name in a member, if there is one.
template <class Key>
void takeName(const json& object, const Key& key, std::map<Key, std::string>& names) {
  if (object.contains("name")) names[key] = object["name"];
}

Network networkFrom(const json& value) {
  Network net;
  for (const json& q : value["propositions"])
    takeName(q, q["number"].get<int>(), net.names.propositions);
  net.title = value["title"];
  for (const json& t : value["transitions"]) {
    Transition transition;
    transition.interval.earliest = t["earliest"];
    if (!t["latest"].is_null()) transition.interval.latest = t["latest"].get<std::int64_t>();
    transition.moves = movesIn(t["moves"]);
    takeName(t, net.transitions.size(), net.names.transitions);
    net.transitions.push_back(transition);
  }
  for (const json& p : value["processes"]) {
    Process process;
    for (const json& location : p["locations"]) {
      const int name = location["number"];
      process.locations.insert(name);
      takeName(location, std::pair(net.processes.size(), name), net.names.locations);
      if (!location["propositions"].empty())
        process.labels[location["number"]] = location["propositions"].get<std::set<int>>();
    }
    takeName(p, net.processes.size(), net.names.processes);
    net.processes.push_back(process);
  }
  return net;
}

TEST(NetworkJson, FollowsItsSchemaAndHoldsTheWholeNetwork) {
  const json rules = schema("network");
  for (unsigned seed = 1; seed <= 50; ++seed) {
    const Network net = randomShown(seed, 1).net;
    const json value = json::parse(tpn::jsonText(networkJson(net)));
    EXPECT_EQ(schemaComplaint(rules, value), "") << "seed " << seed;
    EXPECT_EQ(networkFrom(value), net) << "seed " << seed;
    std::set<int> listed;
    for (const json& q : value["propositions"]) listed.insert(q["number"].get<int>());
    EXPECT_EQ(listed, propositions(net));
  }
}

TEST(NetworkJson, HasNamesBesideNumbers) {
  const json value = json::parse(tpn::jsonText(networkJson(named().net)));
  EXPECT_EQ(schemaComplaint(schema("network"), value), "");
  EXPECT_EQ(value["processes"][1]["name"], "bob & co");
  EXPECT_FALSE(value["processes"][2].contains("name"));
  EXPECT_EQ(value["processes"][0]["locations"][5]["name"], "critical");
  EXPECT_EQ(value["transitions"][15]["name"], "{wish}");
  EXPECT_EQ(value["propositions"][1], json({{"number", 11}, {"name", "alice_in"}}));
}

TEST(NetworkJson, ExamplesFollowTheSchema) {
  int seen = 0;
  const json rules = schema("network");
  for (const auto& folder : {"fischer", "crossing", "ring", "handshake"}) {
    const std::string file =
        ZERVAN_SOURCE_DIR "/examples/" + std::string(folder) + "/" + folder + ".tpn";
    const Network net = networkIn(file);
    const json value = json::parse(tpn::jsonText(networkJson(net)));
    EXPECT_EQ(schemaComplaint(rules, value), "") << file;
    EXPECT_EQ(networkFrom(value), net) << file;
    ++seen;
  }
  EXPECT_EQ(seen, 4);
}

}  // namespace

}  // namespace tpn
