// How --help is laid out.

#include "workbench/command/helplayout.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "tests/workbench/command/tpn.hpp"

namespace {

using testing::AnyOf;
using testing::HasSubstr;
using testing::Not;
using tpn::helpRow;

TEST(HelpRow, PutsTheRightColumnBeside) {
  EXPECT_EQ(helpRow("--all", "all of it"), "  --all                  all of it\n");
}

TEST(HelpRow, PutsItBelowWhereTheLeftOneIsWide) {
  const std::string indent(25, ' ');
  const std::string fits(21, 'x');
  EXPECT_EQ(helpRow(fits, "what"), "  " + fits + "  what\n");
  EXPECT_EQ(helpRow(fits + "x", "what"), "  " + fits + "x\n" + indent + "what\n");
}

TEST(HelpRow, FoldsAtBlanks) {
  const std::string half(27, 'x');
  EXPECT_EQ(helpRow("a", half + " " + half),
            "  a" + std::string(22, ' ') + half + " " + half + "\n");
  EXPECT_EQ(helpRow("a", half + " " + half + "x"),
            "  a" + std::string(22, ' ') + half + "\n" + std::string(25, ' ') + half + "x\n");
}

using Help = Tpn;

TEST_F(Help, OfEveryCommandFitsIntoATerminal) {
  for (const char* const command :
       {"", "lint", "show", "check", "trace", "run", "certify", "export", "convert", "make"}) {
    const std::string help = tpn(*command == 0 ? std::vector<std::string>{"--help"}
                                               : std::vector<std::string>{command, "--help"})
                                 .out;
    std::istringstream lines(help);
    for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 80U) << line;
    EXPECT_THAT(help,
                Not(AnyOf(HasSubstr("REQUIRED"), HasSubstr("Excludes"), HasSubstr("\n\n\n"))));
    EXPECT_FALSE(help.ends_with("\n\n")) << command;
  }
}

TEST_F(Help, SaysWhatGoesTogether) {
  const std::string check = tpn({"check", "--help"}).out;
  EXPECT_THAT(check, HasSubstr("Usage: tpn check [OPTIONS] NET [PHI]\n"));
  EXPECT_THAT(check,
              HasSubstr("  --jobs N               bounds side by side (1; with --solver)\n"));
  EXPECT_THAT(
      check,
      HasSubstr(
          "both where nothing is said (not with\n                         --keep, --solver)\n"));
  EXPECT_THAT(tpn({"convert", "--help"}).out, HasSubstr("tpn convert [OPTIONS] FROM [PHI] TO\n"));
  EXPECT_THAT(tpn({"export", "--help"}).out, HasSubstr("(required)\n"));
}

}  // namespace
