// The program's output, byte for byte: every folder of tests/golden is a case and a test of its
// own. How a case looks is told in the README there.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/driver/runprogram.hpp"
#include "tests/driver/transcript.hpp"

namespace {

namespace fs = std::filesystem;

using Names = std::set<std::string>;

const fs::path cases = fs::path(ZERVAN_SOURCE_DIR) / "tests" / "golden";

std::vector<std::string> caseNames() {
  std::vector<std::string> names;
  if (!fs::is_directory(cases)) return names;
  for (const auto& entry : fs::directory_iterator(cases))
    if (entry.is_directory()) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

class Golden : public testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    for (const auto& entry : fs::directory_iterator(folder()))
      if (entry.path().extension() == ".tpn") {
        place.write(entry.path().filename().string(), asGiven(contents(entry.path())));
        written.insert(entry.path().filename().string());
      }
    outcome = place.zervan(linesOf(contents(folder() / "args")));
  }

  virtual std::string asGiven(const std::string& file) const { return file; }

  void expectEverything() {
    EXPECT_EQ(std::to_string(outcome.status) + "\n", contents(expected("status")));
    EXPECT_EQ(masked(outcome.out), contents(expected("stdout")));
    EXPECT_EQ(masked(outcome.err), contents(expected("stderr")));
    expectFiles();
    expectSums();
    if (outcome.status == 0) written.insert("bmctime.out");
    EXPECT_EQ(place.files(), written);
  }

  fs::path folder() const { return cases / GetParam(); }
  fs::path expected(const std::string& file) const { return folder() / "expect" / file; }

  // Files beside the transcripts and the status, whole or by their sums.
  void expectFiles() {
    for (const auto& entry : fs::directory_iterator(folder() / "expect")) {
      const std::string name = entry.path().filename().string();
      if (Names{"stdout", "stderr", "status", "sha256"}.contains(name)) continue;
      written.insert(name);
      EXPECT_TRUE(place.read(name) == contents(entry.path())) << name << " differs";
    }
  }
  void expectSums() {
    if (!fs::exists(expected("sha256"))) return;
    for (const std::string& line : linesOf(contents(expected("sha256")))) {
      const std::size_t sum = 64;
      ASSERT_GT(line.size(), sum + 2) << line;
      written.insert(line.substr(sum + 2));
    }
    const Outcome check = place.run("sha256sum", {"--strict", "-c", expected("sha256").string()});
    EXPECT_EQ(check.status, 0) << check.out << check.err;
  }

  Workplace place;
  Outcome outcome;
  Names written;  // all that the folder may hold afterwards
};

TEST_P(Golden, GivesTheseFilesTranscriptsAndStatus) { expectEverything(); }

bool isWholeNetwork(const std::string& file) {
  return file.find("\nend\nend\n") != std::string::npos;
}

// Every network that is closed gets names, which tpn reads behind its last "end".
class GoldenWithNames : public Golden {
 protected:
  std::string asGiven(const std::string& file) const override {
    if (!isWholeNetwork(file)) return file;
    return file +
           "names\nprocess 1 first\nlocation 1 0 {at home}\n\ntransition 1 end\n"
           "proposition 1 transitions\n";
  }
};

TEST_P(GoldenWithNames, GivesTheSame) { expectEverything(); }

std::string testName(const testing::TestParamInfo<std::string>& info) {
  std::string name = info.param;
  for (char& c : name)
    if (std::isalnum(static_cast<unsigned char>(c)) == 0) c = '_';
  return name;
}

INSTANTIATE_TEST_SUITE_P(Case, Golden, testing::ValuesIn(caseNames()), testName);

INSTANTIATE_TEST_SUITE_P(Case, GoldenWithNames, testing::ValuesIn(caseNames()), testName);

TEST(GoldenCases, MostOfThemGetNames) {
  const std::vector<std::string> names = caseNames();
  const auto isNamed = [](const std::string& name) {
    const auto files = fs::directory_iterator(cases / name);
    return std::any_of(begin(files), end(files), [](const fs::directory_entry& entry) {
      return entry.path().extension() == ".tpn" && isWholeNetwork(contents(entry.path()));
    });
  };
  EXPECT_GT(2 * std::count_if(names.begin(), names.end(), isNamed), std::ssize(names));
}

// Without a single case the suite above would be empty, and would pass.
TEST(GoldenCases, AreFound) { EXPECT_FALSE(caseNames().empty()) << cases; }

// A case without these would compare nothing.
TEST(GoldenCases, AreComplete) {
  for (const std::string& name : caseNames()) {
    for (const std::string file : {"args", "expect/stdout", "expect/stderr", "expect/status"})
      EXPECT_TRUE(fs::exists(cases / name / file)) << name << " has no " << file;
    if (contents(cases / name / "expect/status") != "0\n") continue;
    const bool summed = fs::exists(cases / name / "expect/sha256");
    Names kinds;
    for (const auto& entry : fs::directory_iterator(cases / name / "expect"))
      kinds.insert(entry.path().extension().string());
    EXPECT_TRUE(kinds.contains(".cnf") || summed) << name << " compares no clauses";
    EXPECT_TRUE(kinds.contains(".lck") || summed) << name << " compares no map";
  }
}

}  // namespace
