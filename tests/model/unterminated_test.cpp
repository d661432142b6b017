// Files that stop short. Nobody looks for the end of the file, so the reader waits for ever, with
// two turns to it: a last line without a line end is a line, and the function that read it meets it
// again and again; every other function has a string of its own and never sees it.

#include <gtest/gtest.h>

#include <string>

#include "tests/ectl/standstill.hpp"
#include "tests/model/networks.hpp"
#include "tests/model/refused.hpp"

namespace {

const std::string head = "x\ntransitions\nendtran\n";

void expectNeverRead(const std::string& text) {
  SCOPED_TRACE(text);
  const Folder folder;
  folder.write("net.tpn", text);
  expectStandstill([&] {
    NetTimedModel model;
    model.readNetwork(folder / "net");
  });
}

TEST(UnterminatedNetwork, FinalEndNeedsNoLineEnd) {
  const std::string text = twoProcesses();
  EXPECT_EQ(readModel(text.substr(0, text.size() - 1))->nrOfProcs, 2);
}

TEST(UnterminatedNetworkDeathTest, EmptyFileIsNeverRead) {
  expectNeverRead("");
  expectNeverRead("\n\n\n");
}

TEST(UnterminatedNetworkDeathTest, FileWithoutItsFinalEndIsNeverRead) {
  expectNeverRead(head);
  expectNeverRead(head + "process\nvaluation\nendval\nend\n");
}

TEST(UnterminatedNetworkDeathTest, SectionThatStopsShortIsNeverRead) {
  expectNeverRead("x\ntransitions\n1 0 1\n");
  expectNeverRead(head + "process\n1 0 1\n");
  expectNeverRead(head + "process\nvaluation\n0 1\n");
  expectNeverRead(head + "process\nvaluation\nendval\n");
}

TEST(UnterminatedNetworkDeathTest, LastDataLineIsMetAgainAndAgain) {
  expectNeverRead("x\ntransitions\n1 0 1");
  expectNeverRead(head + "process\n1 0 1");
  expectNeverRead(head + "process\nvaluation\n0 1");
}

// Each of these would go on, or fail, if the next function met the line as well.
TEST(UnterminatedNetworkDeathTest, NextFunctionDoesNotMeetTheLastLine) {
  expectNeverRead("transitions");                             // the title
  expectNeverRead("x\ntransitions\nendtran");                 // the transitions section
  expectNeverRead(head + "process\nvaluation\nendval\nend");  // a process block
  expectNeverRead(head + "process\nvaluation\nendval");       // the same, met twice by it
}

TEST(UnterminatedNetwork, LineThatEndsTheReadingNeedsNoLineEnd) {
  EXPECT_EQ(readModel(head + "process\nvaluation\nendval\nother")->nrOfProcs, 1);
}

TEST(UnterminatedNetworkDeathTest, WrongLineNeedsNoLineEndToBeRefused) {
  expectRefused("x\ny", "\"transitions\" expected");
  expectRefused(head + "y", "\"process\" expected");
}

TEST(UnterminatedFormulaDeathTest, FileWithoutALineIsNeverRead) {
  for (const std::string text : {"", "\n", "\n\n\n"}) {
    const Folder folder;
    folder.write("phi.tpn", text);
    expectStandstill([&] {
      NetTimedModel model;
      model.readFormula(folder / "phi");
    });
  }
}

}  // namespace
