// Diagnostics as text and as JSON.

#include "workbench/network/diagnostic.hpp"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "tests/workbench/base/jsonschema.hpp"
#include "tests/workbench/network/lintfiles.hpp"

namespace {

using nlohmann::json;
using tpn::Diagnostic;
using tpn::diagnosticsJson;
using tpn::hasErrors;
using tpn::Severity;

const Diagnostic wrong{"a.tpn", 3, 7, Severity::error, "some-id", "something is wrong"};
const Diagnostic odd{"b.tpn", 0, 0, Severity::warning, "other-id", "something is odd"};

json schema() {
  return json::parse(
      contents(std::filesystem::path(ZERVAN_SOURCE_DIR) / "docs" / "lint.schema.json"));
}

TEST(Diagnostic, TextNamesThePlaceTheMessageAndTheId) {
  EXPECT_EQ(text(wrong), "a.tpn:3:7: error: something is wrong [some-id]");
}

TEST(Diagnostic, TextLeavesOutWhatIsNotKnownOfThePlace) {
  EXPECT_EQ(text(odd), "b.tpn: warning: something is odd [other-id]");
  EXPECT_EQ(tpn::text({"a.tpn", 4, 0, Severity::error, "i", "m"}), "a.tpn:4: error: m [i]");
}

TEST(Diagnostic, WarningsAreNoErrors) {
  EXPECT_FALSE(hasErrors({}));
  EXPECT_FALSE(hasErrors({odd, odd}));
  EXPECT_TRUE(hasErrors({odd, wrong}));
}

TEST(DiagnosticsJson, HoldsAllOfThemAndTheirCounts) {
  const json all = json::parse(diagnosticsJson({wrong, odd, wrong}));
  EXPECT_EQ(all["errors"], 2);
  EXPECT_EQ(all["warnings"], 1);
  ASSERT_EQ(all["diagnostics"].size(), 3U);
  EXPECT_EQ(all["diagnostics"][0],
            json::parse(R"({"file": "a.tpn", "line": 3, "column": 7, "severity": "error",
                            "id": "some-id", "message": "something is wrong"})"));
  EXPECT_EQ(all["diagnostics"][1],
            json::parse(R"({"file": "b.tpn", "severity": "warning", "id": "other-id",
                            "message": "something is odd"})"));
}

TEST(DiagnosticsJson, EndsItsLastLine) { EXPECT_EQ(diagnosticsJson({}).back(), '\n'); }

TEST(DiagnosticsJson, TakesFileNamesThatAreNoText) {
  Diagnostic d = wrong;
  d.file = "\xff\"\n";
  EXPECT_EQ(json::parse(diagnosticsJson({d}))["diagnostics"][0]["file"], "\xef\xbf\xbd\"\n");
}

TEST(DiagnosticsJson, FollowsItsSchema) {
  EXPECT_EQ(schemaComplaint(schema(), json::parse(diagnosticsJson({}))), "");
  EXPECT_EQ(schemaComplaint(schema(), json::parse(diagnosticsJson({wrong, odd}))), "");
  for (const tpn::RuleInfo& rule : tpn::lintRules()) {
    const json found = json::parse(diagnosticsJson(diagnosticsOf(std::string(rule.id))));
    EXPECT_EQ(schemaComplaint(schema(), found), "") << rule.id;
  }
}

// The check above says nothing unless the schema can be broken.
TEST(DiagnosticsJson, SchemaRejectsWhatIsNone) {
  const json good = json::parse(diagnosticsJson({wrong}));
  const auto broken = [&good](const std::string& pointer, const json& value) {
    json changed = good;
    changed[json::json_pointer(pointer)] = value;
    return schemaComplaint(schema(), changed);
  };
  EXPECT_NE(schemaComplaint(schema(), json::array()), "");
  EXPECT_NE(schemaComplaint(schema(), json::object()), "");
  EXPECT_NE(broken("/errors", -1), "");
  EXPECT_NE(broken("/more", 1), "");
  EXPECT_NE(broken("/diagnostics/0/severity", "fatal"), "");
  EXPECT_NE(broken("/diagnostics/0/line", 0), "");
  EXPECT_NE(broken("/diagnostics/0/line", "3"), "");
  EXPECT_NE(broken("/diagnostics/0/id", "Some Id"), "");
  EXPECT_NE(broken("/diagnostics/0/more", 1), "");
}

}  // namespace
