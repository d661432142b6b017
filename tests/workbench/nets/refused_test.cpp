// Nets that are refused, a file a rule, each with the line that it gives: refused/expected.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "workbench/nets/anyreader.hpp"
#include "workbench/nets/netrules.hpp"

namespace tpn {
inline void PrintTo(const NetRuleInfo& rule, std::ostream* out) { *out << rule.id; }
}  // namespace tpn

namespace {

namespace fs = std::filesystem;

const fs::path source = ZERVAN_SOURCE_DIR;
const fs::path folder = source / "tests" / "workbench" / "nets" / "refused";

std::string contents(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.good()) << path;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// By the id at the end of the line.
std::map<std::string, std::string> expectedLines() {
  std::istringstream file(contents(folder / "expected"));
  std::map<std::string, std::string> lines;
  for (std::string line; std::getline(file, line);) {
    const std::size_t id = line.rfind('[') + 1;
    EXPECT_TRUE(lines.emplace(line.substr(id, line.size() - id - 1), line).second) << line;
  }
  return lines;
}

std::set<std::string> ids() {
  std::set<std::string> all;
  for (const tpn::NetRuleInfo& rule : tpn::netRules()) all.emplace(rule.id);
  return all;
}

TEST(NetRules, StandInTheOrderOfTheirEnumeration) {
  std::size_t next = 0;
  for (const tpn::NetRuleInfo& rule : tpn::netRules())
    EXPECT_EQ(static_cast<std::size_t>(rule.rule), next++) << rule.id;
  EXPECT_EQ(ids().size(), next);
}

TEST(NetRules, StandOnTheirPage) {
  std::istringstream page(contents(source / "docs" / "nets.md"));
  const std::regex row("\\| `([a-z-]+)` \\| .*");
  std::set<std::string> documented;
  std::smatch match;
  for (std::string line; std::getline(page, line);)
    if (std::regex_match(line, match, row)) {
      EXPECT_TRUE(documented.insert(match[1]).second) << line;
    }
  EXPECT_EQ(documented, ids());
}

TEST(NetRules, HaveTheFilesOfTheirFolderAndNoOthers) {
  for (const auto& entry : fs::directory_iterator(folder))
    if (entry.path().filename() != "expected") {
      EXPECT_TRUE(ids().contains(entry.path().stem())) << entry.path();
    }
  for (const auto& [id, line] : expectedLines()) EXPECT_TRUE(ids().contains(id)) << line;
}

class NetRule : public testing::TestWithParam<tpn::NetRuleInfo> {};

TEST_P(NetRule, HasAFileThatIsRefusedForJustThat) {
  const std::string id(GetParam().id);
  const std::string name = id + (fs::exists(folder / (id + ".net")) ? ".net" : ".pnml");
  tpn::Diagnostics found;
  EXPECT_FALSE(tpn::readAnyNetwork(name, contents(folder / name), found));
  ASSERT_EQ(found.size(), 1U);
  const auto expected = expectedLines();
  ASSERT_TRUE(expected.contains(id)) << text(found.front());
  EXPECT_EQ(text(found.front()), expected.at(id));
}

std::string testName(const testing::TestParamInfo<tpn::NetRuleInfo>& rule) {
  std::string name(rule.param.id);
  for (char& c : name)
    if (c == '-') c = '_';
  return name;
}

INSTANTIATE_TEST_SUITE_P(Each, NetRule, testing::ValuesIn(tpn::netRules()), testName);

}  // namespace
