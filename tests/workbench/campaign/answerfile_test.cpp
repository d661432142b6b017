// Answers as files: what comes back is what was written, or nothing.

#include "workbench/campaign/answerfile.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tpn {
namespace {

JobAnswer aRun() {
  JobAnswer answer;
  answer.kind = JobAnswer::reachable;
  answer.run = Run{{{Rational(3, 2), 4}, {Rational(0), 0}}, 2};
  answer.shortest = true;
  answer.noRunUpTo = 1;
  answer.seconds = 0.25;
  answer.cpu = 0.5;
  answer.memory = 12345;
  answer.host = "node7";
  return answer;
}

TEST(AnswerFile, GivesTheSameAnswerAgain) {
  const JobAnswer answer = aRun();
  const JobAnswer again = readAnswer("line", answerText("line", answer));
  EXPECT_EQ(again.kind, JobAnswer::reachable);
  ASSERT_TRUE(again.run);
  EXPECT_EQ(again.run->goal, 2U);
  EXPECT_EQ(again.run->steps[0].delay, Rational(3, 2));
  EXPECT_EQ(again.run->steps[0].transition, 4U);
  EXPECT_TRUE(again.shortest);
  EXPECT_EQ(again.noRunUpTo, 1);
  EXPECT_EQ(again.seconds, 0.25);
  EXPECT_EQ(again.memory, 12345);
  EXPECT_EQ(again.host, "node7");
}

TEST(AnswerFile, KeepsCertificatesAndReasonsAsTheyAre) {
  JobAnswer answer;
  answer.kind = JobAnswer::unreachable;
  answer.certificate = "one\n\"two\"\n";
  answer.reason = "r";
  const JobAnswer again = readAnswer("line", answerText("line", answer));
  EXPECT_EQ(again.certificate, answer.certificate);
  EXPECT_EQ(again.reason, "r");
}

TEST(AnswerFile, OfAnotherJobIsNone) {
  EXPECT_THROW(readAnswer("another", answerText("line", aRun())), BrokenAnswer);
}

TEST(AnswerFile, CutAnywhereIsNone) {
  const std::string text = answerText("line", aRun());
  for (std::size_t length = 0; length < text.size(); ++length)
    EXPECT_THROW(readAnswer("line", text.substr(0, length)), BrokenAnswer) << length;
}

TEST(AnswerFile, WithAnyByteChangedIsNone) {
  const std::string text = answerText("line", aRun());
  for (std::size_t at = 0; at < text.size(); ++at) {
    std::string changed = text;
    changed[at] = static_cast<char>(changed[at] ^ 1);
    EXPECT_THROW(readAnswer("line", changed), BrokenAnswer) << at;
  }
}

}  // namespace
}  // namespace tpn
