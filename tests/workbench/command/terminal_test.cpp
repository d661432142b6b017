// What tpn says to a terminal: progress that is taken back, and no byte that the terminal obeys.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pty.h>

#include <algorithm>
#include <regex>
#include <sstream>

#include "tests/workbench/command/tpn.hpp"

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

// What a command prints on a terminal of so many columns.
std::string onScreen(const Workplace& place, const std::string& command, unsigned short columns) {
  int master = -1;
  winsize size{24, columns, 0, 0};
  const pid_t child = forkpty(&master, nullptr, nullptr, &size);
  if (child == 0) {
    if (chdir(place.folder().c_str()) == 0) execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
    _exit(127);
  }
  std::string seen;
  char block[4096];
  for (ssize_t n = 0; (n = read(master, block, sizeof block)) > 0;)
    seen.append(block, static_cast<std::size_t>(n));
  close(master);
  int status = 0;
  waitpid(child, &status, 0);
  return seen;
}

class Terminal : public Tpn {
 protected:
  // What arrives at a terminal that has standard error, while standard output goes to "out".
  std::string onTerminal(const std::string& command) const {
    return onScreen(place, command + " >out", 80);
  }
};

TEST_F(Terminal, ProgressIsShownAndTakenBack) {
  const std::string seen =
      onTerminal(TPN_BINARY " check fischer violation --engine bmc --max-transitions 4");
  EXPECT_THAT(seen, HasSubstr("\r4 transitions: "));
  EXPECT_TRUE(seen.ends_with("\r\033[K")) << seen;
  EXPECT_THAT(place.read("out"),
              StartsWith("undecided: no run of up to 4 transitions (k = 11) does it\n"));
}

TEST_F(Terminal, ProgressIsTakenBackBeforeAnError) {
  place.write("dies", "#!/bin/sh\nexit 3\n");
  std::filesystem::permissions(place.folder() / "dies", std::filesystem::perms::owner_all);
  const std::string seen = onTerminal(TPN_BINARY " check fischer violation --solver ./dies");
  const std::size_t error = seen.find("tpn: ");
  ASSERT_NE(error, std::string::npos) << seen;
  EXPECT_TRUE(seen.substr(0, error).ends_with("\r\033[K")) << seen;
}

TEST_F(Terminal, NamesOfFilesAreNotObeyed) {
  const std::string name = "a\x1b[31m\x9b";
  place.write(name + ".tpn", "title\ntransitions\n");
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"lint", name},
        {"lint", name + "none"},
        {"show", name},
        {"show", "fischer", name},
        {"check", "fischer", "critical", "--timeout", name},
        {"show", "fischer", "--svg", name + ".tpn/x"}}) {
    const Outcome outcome = tpn(arguments);
    EXPECT_NE(outcome.status, 0);
    EXPECT_THAT(outcome.out + outcome.err, HasSubstr("a\xef\xbf\xbd[31m\xef\xbf\xbd"));
    EXPECT_THAT(outcome.out + outcome.err, Not(HasSubstr("\x1b")));
    EXPECT_THAT(outcome.out + outcome.err, Not(HasSubstr("\x9b")));
  }
}

// The widest line, without sequences that colour it.
std::size_t widest(const std::string& seen) {
  static const std::regex sequences("\x1b\\[[0-9;]*[mK]|\r");
  std::istringstream lines(std::regex_replace(seen, sequences, ""));
  std::size_t most = 0;
  for (std::string line; std::getline(lines, line);) most = std::max(most, line.size());
  return most;
}

const std::string walks =
    "env -u COLUMNS -u NO_COLOR TERM=xterm " TPN_BINARY " run fischer --random 1 --steps 12";

TEST_F(Terminal, TextFitsItsWidth) {
  const std::size_t at50 = widest(onScreen(place, walks, 50));
  const std::size_t at120 = widest(onScreen(place, walks, 120));
  EXPECT_LE(at50, 50U);
  EXPECT_LE(at120, 120U);
  EXPECT_LT(at50, at120);
  EXPECT_LE(widest(shell(walks).out), 80U);
  EXPECT_LE(widest(shell("COLUMNS=40 " TPN_BINARY " run fischer --random 1 --steps 12").out), 40U);
}

TEST_F(Terminal, TakesColourUnlessToldOtherwise) {
  const std::string bold = "\x1b[1m";
  EXPECT_THAT(onScreen(place, walks, 80), HasSubstr(bold));
  const std::string command = walks.substr(walks.find(TPN_BINARY));
  EXPECT_THAT(onScreen(place, "NO_COLOR=1 " + command, 80), Not(HasSubstr(bold)));
  EXPECT_THAT(onScreen(place, "TERM=dumb " + command, 80), Not(HasSubstr(bold)));
  EXPECT_THAT(onScreen(place, command + " | cat", 80), Not(HasSubstr(bold)));
}

TEST_F(Terminal, TitlesAreNotObeyed) {
  std::string net = place.read("handshake.tpn");
  place.write("handshake.tpn", "\x1b[2J\x9b" + net);
  for (const std::string option : {"", "--dot"}) {
    const Outcome outcome = shell(TPN_BINARY " show handshake " + option);
    EXPECT_THAT(outcome.out, HasSubstr("\xef\xbf\xbd[2J\xef\xbf\xbd"));
    EXPECT_THAT(outcome.out, Not(HasSubstr("\x1b")));
  }
}

TEST_F(Terminal, ScriptsAreNotObeyed) {
  place.write("walk", "fly\x1b[31m\n");
  const Outcome outcome = tpn({"run", "fischer", "--script", "walk"});
  EXPECT_THAT(outcome.err, HasSubstr("unknown command 'fly\xef\xbf\xbd[31m'"));
}

}  // namespace
