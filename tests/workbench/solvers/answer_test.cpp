#include "workbench/solvers/answer.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using tpn::readAnswer;
using tpn::SolverAnswer;

void refuses(const std::string& text, const std::string& message) {
  EXPECT_THAT([&] { readAnswer(text); },
              testing::ThrowsMessage<std::runtime_error>(HasSubstr(message)))
      << text;
}

TEST(Answer, OfTheCompetitionsHasValuesInManyLines) {
  const SolverAnswer a = readAnswer("c hello\ns SATISFIABLE\nv 1 -2\nv 4 0\nc bye\n");
  EXPECT_EQ(a.status, SolverAnswer::satisfiable);
  EXPECT_THAT(a.values, ElementsAre(0, 1, -1, 0, 1));
  EXPECT_EQ(a.value(4), 1);
  EXPECT_EQ(a.value(3), 0);
  EXPECT_EQ(a.value(99), 0);
}

TEST(Answer, OfMinisatIsAFile) {
  EXPECT_THAT(readAnswer("SAT\n1 -2 0\n").values, ElementsAre(0, 1, -1));
  EXPECT_EQ(readAnswer("UNSAT\n").status, SolverAnswer::unsatisfiable);
  EXPECT_EQ(readAnswer("INDET\n").status, SolverAnswer::unknown);
}

TEST(Answer, MayBeNoOrUnknown) {
  EXPECT_EQ(readAnswer("s UNSATISFIABLE\n").status, SolverAnswer::unsatisfiable);
  EXPECT_EQ(readAnswer("s UNKNOWN").status, SolverAnswer::unknown);
  EXPECT_EQ(readAnswer("c UNKNOWN\n").status, SolverAnswer::unknown);
}

TEST(Answer, MayHaveOtherLineEndsAndNoLastOne) {
  EXPECT_THAT(readAnswer("s SATISFIABLE\r\nv 1\r\nv 0").values, ElementsAre(0, 1));
}

TEST(Answer, ThatIsCutOffIsRefused) {
  refuses("", "no answer");
  refuses("c something else\n", "no answer");
  refuses("v 1 2 0\n", "no answer");
  refuses("s SATISFIABLE\n", "cut off");
  refuses("s SATISFIABLE\nv 1 2", "cut off");
  refuses("SAT\n1 2 3", "cut off");
}

TEST(Answer, ThatContradictsItselfIsRefused) {
  refuses("s SATISFIABLE\ns UNSATISFIABLE\nv 0\n", "contradicts itself");
  refuses("s SATISFIABLE\nv 1 -1 0\n", "variable 1 is true and false");
}

TEST(Answer, OfOtherWordsIsRefused) {
  refuses("s PERHAPS\n", "no verdict");
  refuses("s SATISFIABLE\nv 1 two 0\n", "line 2");
  refuses("s SATISFIABLE\nv 1x 0\n", "line 2");
  refuses("s SATISFIABLE\nv 99999999999 0\n", "line 2");
  refuses("s SATISFIABLE\nv -2147483648 0\n", "line 2");
  refuses("s SATISFIABLE\nv 1 0 2\n", "after the final 0");
  refuses("SATISFIABLE\n", "result file");
}

// It would be believed to have so many values.
TEST(Answer, WithAVariableBeyondAllClauseFilesIsRefused) {
  refuses("s SATISFIABLE\nv 268435457 0\n", "no literal");
  refuses("s SATISFIABLE\nv -2000000000 0\n", "no literal");
}

TEST(Answer, IsReadAsItIsWritten) {
  const SolverAnswer a = readAnswer(tpn::answerText({{true, false}, {false}, {true}}));
  EXPECT_EQ(a.status, SolverAnswer::satisfiable);
  EXPECT_THAT(a.values, ElementsAre(0, 1, -1, -1, 1));
}

}  // namespace
