// What a line of a walk asks for.

#include "workbench/walking/walkcommands.hpp"

#include <gtest/gtest.h>

#include <sstream>

#include "workbench/views/views.hpp"

namespace tpn {
namespace {

TEST(WalkCommands, CommentsAreNoWords) {
  EXPECT_EQ(commandWords(" undo  2 # back"), (Words{"undo", "2"}));
  EXPECT_EQ(commandWords("# nothing"), Words{});
}

TEST(WalkCommands, NamesOfFilesMayHaveBlanks) {
  EXPECT_EQ(fileIn("svg my picture #1.svg \r"), "my picture #1.svg");
  EXPECT_EQ(fileIn("svg"), "");
}

TEST(WalkCommands, HelpNamesEveryView) {
  for (const RunView& view : runViews())
    EXPECT_NE(helpText().find(view.name), std::string::npos) << view.name;
}

TEST(WalkCommands, FilesOfAScriptEndWhereItDoes) {
  std::istringstream script("1 2\ntext\nsvg a b\n# vcd no\nundo x\njson c\nquit\nvcd d\n");
  EXPECT_EQ(filesWritten(script), (std::vector<std::string>{"a b", "c"}));
}

}  // namespace
}  // namespace tpn
