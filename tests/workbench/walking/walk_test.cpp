// Walks by hand.

#include "workbench/walking/walk.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "tests/workbench/network/smallnets.hpp"
#include "tests/workbench/walking/sessions.hpp"
#include "tests/workbench/walking/walked.hpp"

namespace tpn {
namespace {

TEST(Walk, ShowsEveryStateUntilTheEnd) {
  const Session s = session("1 1.5\n2 1/2\n3\nquit\n");
  EXPECT_EQ(s.out, start + "> " + afterOne + R"(> time 2, after 2 steps
  process 1: location 1, clock 1/2
  process 2: location 1, clock 0
  propositions: 7 8 9
   3  delay 2 or more   process 1: 1 -> 0, process 2: 1 -> 0
> time 4, after 3 steps
  process 1: location 0, clock 0
  process 2: location 0, clock 0
  propositions: none
   1  delay 1 to 2      process 1: 0 -> 1
   2  delay 0 to 2      process 2: 0 -> 1
> )");
  EXPECT_EQ(steps(s.walked), "1 after 3/2, 2 after 1/2, 3 after 2");
  EXPECT_EQ(s.walked.error + s.walked.stuck, "");
}

TEST(Walk, TakesDelaysHoweverTheyAreWritten) {
  EXPECT_EQ(steps(session("1 2\n").walked), "1 after 2");
  EXPECT_EQ(steps(session("1 1.25\n").walked), "1 after 5/4");
  EXPECT_EQ(steps(session("1 6/4\n").walked), "1 after 3/2");
  EXPECT_EQ(steps(session("  01\t1.50  # a comment\r\n").walked), "1 after 3/2");
}

TEST(Walk, FiresAsSoonAsItCanWithoutADelay) {
  EXPECT_EQ(steps(session("2\n1\n3\n").walked), "2 after 0, 1 after 1, 3 after 2");
}

// Process 1 and some of the rest have names.
Network namedProcesses() {
  Network net = twoProcesses();
  net.names.processes[0] = "lamp";
  net.names.locations = {{{0, 0}, "off"}, {{1, 1}, "at work"}};
  net.names.transitions = {{0, "show"}, {1, "start"}, {2, "finish it"}};
  net.names.propositions[7] = "lit";
  return net;
}

TEST(Walk, ShowsNamesWhereThereAreAny) {
  EXPECT_EQ(session("1\n", namedProcesses()).out, R"(time 0, after 0 steps
  lamp: location off, clock 0
  process 2: location 0, clock 0
  propositions: none
   1 show   delay 1 to 2      lamp: off -> 1
   2 start  delay 0 to 2      process 2: 0 -> {at work}
> time 1, after 1 step
  lamp: location 1, clock 0
  process 2: location 0, clock 1
  propositions: lit
   2 start  delay 0 to 2      process 2: 0 -> {at work}
> 
)");
}

TEST(Walk, TakesTransitionsByName) {
  const Network net = namedProcesses();
  EXPECT_EQ(steps(session("{show} 3/2\nstart 1/2 # soon\n  {finish it}\n", net).walked),
            "1 after 3/2, 2 after 1/2, 3 after 2");
  EXPECT_EQ(steps(session("show\n", net).walked), "");  // the command
}

TEST(Walk, SaysWhichTransitionIsNearest) {
  EXPECT_NE(session("strat\n", namedProcesses()).out.find("there is the transition start"),
            std::string::npos);
  EXPECT_NE(session("finish\n", namedProcesses()).out.find("unknown command 'finish'"),
            std::string::npos);
}

TEST(Walk, EndsWithItsInput) {
  const Session s = session("1 3/2");
  EXPECT_EQ(s.out, start + "> " + afterOne + "> \n");
  EXPECT_EQ(steps(s.walked), "1 after 3/2");
  EXPECT_EQ(session("").out, start + "> \n");
}

TEST(Walk, ReadsNothingAfterQuit) { EXPECT_EQ(steps(session("1\nquit\n2\n").walked), "1 after 1"); }

TEST(Walk, UndoesSteps) {
  const Session s = session("1 3/2\n2\nundo\nundo\nquit\n");
  EXPECT_NE(s.out.find("> " + afterOne + "> " + start + "> "), std::string::npos) << s.out;
  EXPECT_EQ(steps(s.walked), "");
  EXPECT_EQ(steps(session("1 3/2\n2\n3\nundo 2\n2 1\n").walked), "1 after 3/2, 2 after 1");
  EXPECT_EQ(steps(session("1 3/2\nundo 0\n").walked), "1 after 3/2");
}

TEST(Walk, DoesNotUndoMoreThanThereIs) {
  EXPECT_EQ(answers("undo\n"), "> error: there are only 0 steps to undo\n> \n");
  EXPECT_EQ(steps(session("1\nundo 2\n").walked), "1 after 1");
  EXPECT_NE(session("1\nundo 2\n").out.find("error: there is only 1 step to undo\n"),
            std::string::npos);
}

TEST(Walk, ShowsAgainAndHelps) {
  EXPECT_EQ(answers("show\nquit\n"), "> " + start + "> ");
  const std::string help = answers("help\nquit\n");
  for (const char* command : {"TRANSITION", "undo", "show", "text", "json", "vcd", "svg", "quit"})
    EXPECT_NE(help.find(command), std::string::npos) << command;
}

TEST(Walk, SkipsEmptyLines) { EXPECT_EQ(answers("\n  \n# nothing\nquit\n"), "> > > > "); }

TEST(Walk, SaysWhatIsWrongAndGoesOn) {
  const std::pair<std::string, std::string> wrong[] = {
      {"fly", "unknown command 'fly'; try help"},
      {"-1", "unknown command '-1'; try help"},
      {"1.5", "unknown command '1.5'; try help"},
      {"0", "there is no transition 0"},
      {"4", "there is no transition 4"},
      {"99999999999999999999999", "there is no transition 99999999999999999999999"},
      {"1 1 1", "a transition takes one delay at most"},
      {"1 soon", "'soon' is no delay; write 2, 0.5 or 7/3"},
      {"1 -1", "'-1' is no delay; write 2, 0.5 or 7/3"},
      {"1 1/0", "'1/0' is no delay; write 2, 0.5 or 7/3"},
      {"3", "transition 3 is not enabled: process 1 is in location 0, not 1"},
      {"1 1/2",
       "transition 1 fires too early: one of its clocks is at 1/2 and has to reach 1; it "
       "fires with delay 1 to 2"},
      {"1 3",
       "transition 1 fires too late: its clocks are at 3 or more, past 2; it fires with "
       "delay 1 to 2"},
      {"2 3", "a delay of 3 is too long: transition 1 allows 2; it fires with delay 0 to 2"},
      {"undo x", "undo takes a count at most"},
      {"undo 1 1", "undo takes a count at most"},
      {"show all", "show takes nothing"},
      {"quit now", "quit takes nothing"},
  };
  const std::string then = "\n> " + afterOne + "> ";
  for (const auto& [line, complaint] : wrong)
    EXPECT_EQ(answers(line + "\n1 3/2\nquit\n"),
              std::string("> error: ").append(complaint).append(then));
}

// 1/n fits, and so does what is left of 2 - 1/n, as long as 2n - 1 does.
TEST(Walk, RefusesDelaysTooFineToGoOn) {
  EXPECT_EQ(answers("2 1/9223372036854775807\nquit\n"),
            "> error: a time needs more than 64 bits\n> ");
  EXPECT_EQ(steps(session("2 1/4611686018427387904\n").walked), "2 after 1/4611686018427387904");
}

TEST(Walk, SaysWhenNothingCanFireAnyMore) {
  Network net = twoProcesses();
  net.transitions.resize(1);
  EXPECT_NE(session("1\n", net).out.find("  stuck: no transition is enabled\n> \n"),
            std::string::npos);
}

TEST(Walk, ShowsNamesBehindNumbersInColumns) {
  Network net = impatient();
  net.names.transitions = {{0, "go"}, {1, "wait\xc3\xa9"}};
  net.names.processes[1] = "B";
  const std::string out = session("", net).out;
  EXPECT_NE(out.find("   1 go       cannot fire       process 1: 0 -> 1; not before 3 has"),
            std::string::npos)
      << out;
  EXPECT_NE(
      out.find("   2 {wait\xc3\xa9}  cannot fire       B: 0 -> 1; not before 5 has passed, and\n"
               "                                transition go has to fire within 2\n"),
      std::string::npos)
      << out;
}

TEST(Walk, FoldsWhatIsWiderThanTheTerminal) {
  Network net = twoProcesses();
  net.transitions[0].moves = {{0, 0, 1}, {1, 0, 1}};
  std::istringstream in("quit\n");
  std::ostringstream out;
  walk(net, in, out, {.width = 48});
  EXPECT_THAT(out.str(), testing::HasSubstr("   1  delay 1 to 2      process 1: 0 -> 1,\n"
                                            "                        process 2: 0 -> 1\n"));
}

TEST(Walk, ShowsTransitionsThatCannotFireInTime) {
  EXPECT_EQ(session("", impatient()).out, R"(time 0, after 0 steps
  process 1: location 0, clock 0
  process 2: location 0, clock 0
  propositions: none
  stuck: time stops after 2, and no transition can fire until then
   1  cannot fire       process 1: 0 -> 1; not before 3 has passed, and
                        transition 1 has to fire within 2
   2  cannot fire       process 2: 0 -> 1; not before 5 has passed, and
                        transition 1 has to fire within 2
> 
)");
}

}  // namespace
}  // namespace tpn
