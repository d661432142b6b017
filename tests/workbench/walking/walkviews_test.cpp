// Views of a walk, on the terminal and in files.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "tests/workbench/network/smallnets.hpp"
#include "tests/workbench/walking/sessions.hpp"
#include "workbench/views/views.hpp"

namespace tpn {
namespace {

namespace fs = std::filesystem;

std::string contents(const fs::path& file) {
  std::ifstream in(file);
  return {std::istreambuf_iterator<char>(in), {}};
}

TEST(WalkViews, ArePrintedOfTheRunSoFar) {
  const Network net = twoProcesses();
  const auto run = session("1 3/2\n").walked.run;
  const std::string commands = "1 3/2\n2\nundo\n";
  const auto expected = [&](const char* view) { return session(commands + view).out; };
  const std::string before = session(commands + "quit\n").out;
  EXPECT_EQ(expected("text\nquit\n"), before + runText(net, anything(), run) + "> ");
  EXPECT_EQ(expected("json\nquit\n"), before + tpn::jsonText(runJson(net, anything(), run)) + "> ");
  EXPECT_EQ(expected("vcd\nquit\n"), before + runVcd(net, anything(), run) + "> ");
  EXPECT_EQ(expected("svg\nquit\n"), before + runSvg(net, anything(), run) + "> ");
}

TEST(WalkViews, GoIntoFiles) {
  const fs::path file = fs::path(testing::TempDir()) / "a walk #1.svg";
  fs::remove(file);
  const Session s = session("1 3/2\nsvg " + file.string() + " \nquit\n");
  EXPECT_EQ(s.out, start + "> " + afterOne + "> > ");
  EXPECT_EQ(contents(file), runSvg(twoProcesses(), anything(), s.walked.run));
  fs::remove(file);
}

TEST(WalkViews, SayWhatKeepsThemFromBeingWritten) {
  EXPECT_EQ(answers("text /no/such/folder/x\nquit\n"),
            "> error: cannot write '/no/such/folder/x': No such file or directory\n> ");
  EXPECT_EQ(answers("text /dev/full\nquit\n"),
            "> error: cannot write '/dev/full': No space left on device\n> ");
}

}  // namespace
}  // namespace tpn
