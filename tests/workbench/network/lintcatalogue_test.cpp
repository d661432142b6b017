// The catalogue of mistakes, its files and its page agree.

#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "tests/workbench/network/lintfiles.hpp"

namespace {

using tpn::Severity;

std::string idOf(const tpn::RuleInfo& rule) { return std::string(rule.id); }

std::map<std::string, Severity> rulesById() {
  std::map<std::string, Severity> rules;
  for (const tpn::RuleInfo& rule : tpn::lintRules()) rules.emplace(rule.id, rule.severity);
  return rules;
}

// Rows of the tables in docs/lint.md: "| `id` | error | ...".
std::multimap<std::string, Severity> documented() {
  std::istringstream page(contents(std::filesystem::path(ZERVAN_SOURCE_DIR) / "docs" / "lint.md"));
  const std::regex row("\\| `([a-z-]+)` \\| (error|warning) \\|.*");
  std::multimap<std::string, Severity> rules;
  std::smatch match;
  for (std::string line; std::getline(page, line);)
    if (std::regex_match(line, match, row))
      rules.emplace(match[1], match[2] == "error" ? Severity::error : Severity::warning);
  return rules;
}

// The lines of tests/workbench/network/lint/expected, by the id at their end.
std::map<std::string, std::string> expectedLines() {
  std::istringstream file(contents(lintFolder / "expected"));
  std::map<std::string, std::string> lines;
  for (std::string line; std::getline(file, line);) {
    const std::size_t id = line.rfind('[') + 1;
    EXPECT_TRUE(lines.emplace(line.substr(id, line.size() - id - 1), line).second) << line;
  }
  return lines;
}

TEST(LintCatalogue, StandsInTheOrderOfItsEnumeration) {
  std::size_t next = 0;
  for (const tpn::RuleInfo& rule : tpn::lintRules())
    EXPECT_EQ(static_cast<std::size_t>(rule.rule), next++) << rule.id;
}

TEST(LintCatalogue, IdsAreDistinctLowerCaseWords) {
  const std::regex form("[a-z]+(-[a-z]+)*");
  std::set<std::string> ids;
  for (const tpn::RuleInfo& rule : tpn::lintRules()) {
    EXPECT_TRUE(std::regex_match(idOf(rule), form)) << rule.id;
    EXPECT_TRUE(ids.insert(idOf(rule)).second) << rule.id;
  }
}

TEST(LintCatalogue, EveryRuleStandsOnItsPageOnceWithItsSeverity) {
  const auto rows = documented();
  const auto rules = rulesById();
  EXPECT_EQ(rows.size(), rules.size());
  for (const auto& [id, severity] : rules) {
    ASSERT_EQ(rows.count(id), 1U) << id;
    EXPECT_EQ(rows.find(id)->second, severity) << id;
  }
}

TEST(LintCatalogue, EveryFileBelongsToARule) {
  const auto rules = rulesById();
  for (const auto& entry : std::filesystem::directory_iterator(lintFolder)) {
    const std::string name = entry.path().filename().string();
    if (name == "expected") continue;
    EXPECT_EQ(entry.path().extension(), ".tpn") << name;
    EXPECT_EQ(rules.count(name.substr(0, name.find('.'))), 1U) << name;
  }
}

TEST(LintCatalogue, EveryLineThatIsExpectedBelongsToARule) {
  for (const auto& [id, line] : expectedLines()) EXPECT_EQ(rulesById().count(id), 1U) << line;
}

class LintRule : public testing::TestWithParam<tpn::RuleInfo> {};

TEST_P(LintRule, HasAFileWithJustThisMistake) {
  const std::string id = idOf(GetParam());
  ASSERT_TRUE(existsInLintFolder(id + ".tpn") || existsInLintFolder(id + ".property.tpn"));
  const auto expected = expectedLines();
  ASSERT_EQ(expected.count(id), 1U);
  const tpn::Diagnostics found = diagnosticsOf(id);
  ASSERT_EQ(found.size(), 1U);
  const std::string said = text(found.front());
  EXPECT_EQ(said.substr(0, said.find('\n')), expected.at(id));
}

std::string testName(const testing::TestParamInfo<tpn::RuleInfo>& rule) {
  std::string name = idOf(rule.param);
  for (char& c : name)
    if (c == '-') c = '_';
  return name;
}

INSTANTIATE_TEST_SUITE_P(Each, LintRule, testing::ValuesIn(tpn::lintRules()), testName);

}  // namespace
