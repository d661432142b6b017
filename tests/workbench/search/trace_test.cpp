// Answers to the core's own files, by hand: good ones give runs, broken ones an error that says so.

#include "workbench/search/trace.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/driver/runprogram.hpp"
#include "tests/workbench/search/explored.hpp"

namespace {

using testing::HasSubstr;

// Opens a door (within [1, 2]) and goes through (3 or more); 1 holds behind it, 2 in between.
const std::string door =
    "door\ntransitions\n1 1 2\n2 1 3\nendtran\n"
    "process\n1 0 1\n2 1 2\nvaluation\n1 2\n2 1\nendval\nend\n"
    "process\n2 0 1\nvaluation\nendval\nend\nend\n";

class Trace : public testing::Test {
 protected:
  void SetUp() override {
    net_ = tpn::readNetwork("net", door, diagnostics_).value();
    ask("p1", 5);
    answer_ = place_.run("cadical", {"-q", "netk5.cnf"}).out;
  }

  void ask(const std::string& property, int k) {
    place_.write("net.tpn", door);
    place_.write("phi.tpn", property + "\n");
    const std::string length = std::to_string(k);
    ASSERT_EQ(place_.zervan({"net", "phi", length}).status, 0);
    map_ = place_.read("netk" + length + ".lck");
    property_ = propertyOf(property);
  }

  std::optional<tpn::Run> traced() const { return traced(map_, answer_); }
  std::optional<tpn::Run> traced(const std::string& map, const std::string& answer) const {
    return tpn::traced(net_, property_, map, answer).run;
  }

  void refuses(const std::string& map, const std::string& answer,
               const testing::Matcher<const std::string&>& message) const {
    EXPECT_THAT([&] { traced(map, answer); }, testing::ThrowsMessage<std::runtime_error>(message))
        << map << answer.substr(0, 100);
  }

  // Every literal of the answer, in order.
  std::vector<int> literals() const {
    std::istringstream in(answer_);
    std::vector<int> found;
    for (std::string word; in >> word;)
      if (const int literal = std::atoi(word.c_str()); literal != 0) found.push_back(literal);
    return found;
  }
  static std::string answerOf(const std::vector<int>& literals) {
    std::string text = "s SATISFIABLE\nv";
    for (const int literal : literals) text += " " + std::to_string(literal);
    return text + " 0\n";
  }
  int highest() const {
    std::istringstream in(map_);
    std::string line;
    for (int i = 0; i < 5; ++i) std::getline(in, line);
    return std::stoi(line);
  }

  Workplace place_;
  tpn::Diagnostics diagnostics_;
  tpn::Network net_;
  tpn::Property property_;
  std::string map_;
  std::string answer_;
};

void expectTheRun(const std::optional<tpn::Run>& run) {
  ASSERT_TRUE(run);
  ASSERT_EQ(run->steps.size(), 2U);
  EXPECT_EQ(run->steps[0].transition, 0U);
  EXPECT_EQ(run->steps[1].transition, 1U);
  EXPECT_EQ(run->goal, 2U);
}

TEST_F(Trace, GivesTheRun) { expectTheRun(traced()); }

TEST_F(Trace, ReadsMinisatsFile) {
  place_.run("minisat", {"-verb=0", "netk5.cnf", "result"});
  expectTheRun(traced(map_, place_.read("result")));
}

TEST_F(Trace, ReadsPicosatsAnswer) {
  expectTheRun(traced(map_, place_.run("picosat", {"netk5.cnf"}).out));
}

TEST_F(Trace, ReadsCryptominisatsAnswer) {
  expectTheRun(traced(map_, place_.run("cryptominisat5", {"--verb", "0", "netk5.cnf"}).out));
}

TEST_F(Trace, GivesNoneForANo) {
  EXPECT_FALSE(traced(map_, "s UNSATISFIABLE\n"));
  EXPECT_FALSE(traced(map_, "UNSAT\n"));
}

TEST_F(Trace, NeedsNoFormulaNodes) {
  expectTheRun(traced(map_, [&] {
    std::vector<int> kept;
    for (const int literal : literals())
      if (std::abs(literal) <= highest()) kept.push_back(literal);
    return answerOf(kept);
  }()));
}

TEST_F(Trace, RefusesAnUnknown) { refuses(map_, "s UNKNOWN\n", HasSubstr("gave up")); }

TEST_F(Trace, RefusesAnAnswerThatIsCutOff) {
  refuses(map_, answer_.substr(0, answer_.size() / 2), HasSubstr("cut off"));
  refuses(map_, "", HasSubstr("no answer"));
}

// Whatever variable of a state is turned round: the clauses determine none of these here but by
// what the formulas say, so either it is still a run or the step is named.
TEST_F(Trace, RefusesAWrongSignOrItIsARun) {
  const std::vector<int> good = literals();
  int refused = 0;
  for (std::size_t i = 0; i < good.size() && i < static_cast<std::size_t>(highest()); ++i) {
    std::vector<int> bad = good;
    bad[i] = -bad[i];
    try {
      expectTheRun(traced(map_, answerOf(bad)));
    } catch (const std::runtime_error& e) {
      ++refused;
      EXPECT_THAT(e.what(), HasSubstr("no run of this network to this property: "));
    }
  }
  EXPECT_GT(refused, highest() / 2);
}

TEST_F(Trace, NamesAVariableThatIsMissing) {
  const std::vector<int> good = literals();
  int missed = 0;
  for (std::size_t i = 0; i < static_cast<std::size_t>(highest()); ++i) {
    std::vector<int> bad = good;
    bad.erase(bad.begin() + static_cast<std::ptrdiff_t>(i));
    try {
      expectTheRun(traced(map_, answerOf(bad)));
    } catch (const std::runtime_error& e) {
      ++missed;
      EXPECT_THAT(e.what(), HasSubstr("variable " + std::to_string(i + 1) + " is left out"));
    }
  }
  EXPECT_GT(missed, 10);
}

TEST_F(Trace, RefusesAnAnswerToAnotherQuestion) {
  ask("p-1", 5);
  const std::string other =
      place_.run("cadical", {"-q", "--forcephase", "--phase=0", "netk5.cnf"}).out;
  ask("p1", 5);
  const std::string answer = place_.run("cadical", {"-q", "netk5.cnf"}).out;
  EXPECT_NO_THROW(traced(map_, answer));
  ask("p1", 8);
  refuses(map_, answer, HasSubstr("no run of this network"));
  ask("p1p2&", 5);
  refuses(map_, other, HasSubstr("no state has the property"));
}

TEST_F(Trace, RefusesAMapOfAnotherNetwork) {
  refuses("1\n1 \n1 3 1\n5\n40\n2 4\n", answer_, HasSubstr("of another network"));
  refuses("2\n2 1 \n2 4 3\n5\n132\n2 8\n", answer_, HasSubstr("of another network"));
}

TEST_F(Trace, RefusesABrokenMap) {
  refuses("", answer_, HasSubstr("cut off"));
  refuses(map_.substr(0, map_.size() / 2), answer_,
          testing::AnyOf(HasSubstr("cut off"), HasSubstr("broken")));
  refuses("2\nx\n", answer_, HasSubstr("broken in line 2"));
  refuses("2\n2 1\n2 4 2\n-5\n132\n2 8\n", answer_, HasSubstr("broken in line 4"));
  refuses("2\n2 1\n2 4 2\n0\n132\n2 8\n", answer_, HasSubstr("broken in line 4"));
  refuses("2\n2 1 1\n2 4 2\n5\n132\n2 8\n", answer_, HasSubstr("broken in line 2"));
  refuses("2\n2 1\n2 4\n5\n132\n2 8\n", answer_, HasSubstr("broken in line 3"));
  refuses(map_ + "7\n", answer_, HasSubstr("broken in line 7"));
  refuses("99999999999\n", answer_, HasSubstr("broken in line 1"));
}

TEST_F(Trace, RefusesAYesToWhatIsPlainlyFalse) {
  ask("p7", 2);
  EXPECT_FALSE(traced(map_, "s UNSATISFIABLE\n"));
  refuses(map_, "s SATISFIABLE\nv 0\n", HasSubstr("plainly unsatisfiable"));
}

TEST_F(Trace, HugeMapsAreRefusedAndNotBelieved) {
  std::string huge = map_;
  huge.replace(huge.find("\n5\n"), 3, "\n2000000000\n");
  refuses(huge, answer_, HasSubstr("of another network"));
}

TEST_F(Trace, ComparesTheNumberOfClocks) {
  std::string other = map_;
  other.replace(other.find("\n2 4 2\n"), 7, "\n3 4 2\n");
  refuses(other, answer_, HasSubstr("of another network"));
}

TEST_F(Trace, ComparesTheNumberOfInvariantTerms) {
  for (const int k : {1, 2, 3, 4, 5, 8}) {
    ask("p-1", k);
    EXPECT_FALSE(traced(map_, "UNSAT\n")) << k;  // it fits
    std::string other = map_;
    other.insert(other.size() - 1, "0");
    refuses(other, "UNSAT\n", HasSubstr("of another network"));
  }
}

// The core counts in 32 bits, signed: 200000 terms in each of 11334 steps are 2266800000.
TEST_F(Trace, TakesANumberOfInvariantTermsThatHasWrapped) {
  tpn::Network net;
  net.processes = {{{0, 1}, {{1, {1}}}}};
  net.transitions.assign(200000, {{0, 1}, {{0, 0, 1}}});
  const auto answerTo = [&](const std::string& terms) {
    const std::string map = "1\n1 \n1 3 1\n17000\n0\n200000 " + terms + "\n";
    return tpn::traced(net, propertyOf("p9"), map, "UNSAT\n").answer;
  };
  EXPECT_EQ(answerTo("-2028167296"), tpn::Verdict::unreached);
  EXPECT_THROW(answerTo("-2028167295"), std::runtime_error);
  EXPECT_THROW(answerTo("2266800000"), std::runtime_error);
}

TEST_F(Trace, SaysOfANoWhichLengthItIsAbout) {
  const tpn::Verdict v = tpn::traced(net_, property_, map_, "UNSAT\n");
  EXPECT_EQ(v.answer, tpn::Verdict::unreached);
  EXPECT_EQ(v.bound, 0);
  EXPECT_EQ(v.reason, "the answer is about runs of 5 steps, not about shorter ones");
}

TEST_F(Trace, GivesTheBoundOfTheMap) {
  const tpn::Verdict v = tpn::traced(net_, property_, map_, answer_);
  EXPECT_EQ(v.answer, tpn::Verdict::reachable);
  EXPECT_EQ(v.bound, 5);
  EXPECT_FALSE(v.shortest);
}

// The core counts the locations and takes their numbers modulo that, the workbench ranks them: the
// widths are the same, the bits are not.
TEST_F(Trace, TakesWhatACheckKeptOfANetworkWithGapsInItsNumbers) {
  tpn::Network net;
  net.processes = {{{0, 5, 7, 90}, {{90, {1}}}}};
  net.transitions = {{{0, 1}, {{0, 0, 5}}}, {{0, 1}, {{0, 5, 7}}}, {{0, 1}, {{0, 7, 90}}}};
  const Explored question{net, propertyOf("p1")};
  for (const std::string solver : {"", "cadical"}) {
    ASSERT_EQ(checked(question, {20, {}, solver, 1, place_.folder() / "kept"}).bound, 8);
    const tpn::Verdict v =
        tpn::traced(net, question.property, place_.read("kept/k8.lck"), place_.read("kept/k8.out"));
    ASSERT_EQ(v.answer, tpn::Verdict::reachable);
    EXPECT_EQ(v.run->steps.size(), 3U);
  }
}

// One step is no action, so nothing asks for an earliest time that the clocks cannot hold.
TEST_F(Trace, TakesAMapOfOneStepWhateverTheEarliestTimes) {
  const std::string late =
      "late\ntransitions\n1 100 -1\nendtran\n"
      "process\n1 0 1\nvaluation\n0 1\nendval\nend\nend\n";
  place_.write("net.tpn", late);
  place_.write("phi.tpn", "p1\n");
  ASSERT_EQ(place_.zervan({"net", "phi", "1"}).status, 0);
  place_.write("answer", place_.run("cadical", {"-q", "netk1.cnf"}).out);
  const tpn::Network net = tpn::readNetwork("net", late, diagnostics_).value();
  const tpn::Verdict v =
      tpn::traced(net, propertyOf("p1"), place_.read("netk1.lck"), place_.read("answer"));
  ASSERT_EQ(v.answer, tpn::Verdict::reachable);
  EXPECT_EQ(v.run->steps.size(), 0U);
}

}  // namespace
