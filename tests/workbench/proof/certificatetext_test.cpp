// Certificates as text: written, read back, and refused where the form is broken.

#include "workbench/proof/certificatetext.hpp"

#include <gtest/gtest.h>

#include "tests/workbench/network/smallnets.hpp"

namespace tpn {
namespace {

const std::string digits(64, 'a');

CertificateFile sample() {
  CertificateFile file{{digits, std::string(64, '0'), 5}, {}};
  file.proof.linear = {{{{{0, 1}, 1}, {{2, 0}, -2}}, 3}, {{}, 0}};
  Generator g;
  g.processes = {{0, 1}, {1, 0}};
  g.locations = {{{2, 4}, 7}};
  file.proof.generators = {g};
  file.proof.clauses = {{{Atom::location, false, 0, 2}, {Atom::clock, true, 1, 10}},
                        {{Atom::clock, false, 1, 1000000000000}, {Atom::location, true, 2, 0}},
                        {}};
  return file;
}

const std::string sampleText = "tpn certificate 1\nnetwork " + digits + "\ngoal " +
                               std::string(64, '0') +
                               "\nunit 5\n"
                               "linear 3 1*1@1 -2*3@0\n"
                               "linear 0\n"
                               "generator 1>2 2>1 3@4>7\n"
                               "clause -1@2 2>=10\n"
                               "clause -2>=1000000000000 3@0\n"
                               "clause\n"
                               "end\n";

std::string refusal(const std::string& text) {
  try {
    readCertificate(text);
  } catch (const std::runtime_error& e) {
    return e.what();
  }
  return "";
}

// With one line in place of the first clause.
std::string refusalOfLine(const std::string& line) {
  std::string text = sampleText;
  text.replace(text.find("clause -1@2 2>=10"), 17, line);
  return refusal(text);
}

TEST(CertificateText, SaysEverything) { EXPECT_EQ(certificateText(sample()), sampleText); }

TEST(CertificateText, HasNamesInRemarksThatAreNotRead) {
  Network net;
  net.names.processes = {{0, "lamp"}, {1, "a  # b"}};
  net.names.locations = {{{0, 1}, "on"}, {{2, 7}, "gone"}};
  const std::string named = certificateText(sample(), &net);
  EXPECT_NE(named.find("\nlinear 3 1*1@1 -2*3@0  # linear 3 1*lamp@on -2*3@0\n"),
            std::string::npos);
  EXPECT_NE(named.find("\ngenerator 1>2 2>1 3@4>7  # generator lamp>{a  # b} {a  # b}>lamp "
                       "3@4>gone\n"),
            std::string::npos);
  EXPECT_NE(named.find("\nclause -1@2 2>=10  # clause -lamp@2 {a  # b}>=10\n"), std::string::npos);
  EXPECT_EQ(readCertificate(named), sample());
}

TEST(CertificateText, HasNoRemarksWithoutNames) {
  const Network net;
  EXPECT_EQ(certificateText(sample(), &net), sampleText);
}

TEST(Statement, IsTheSameWithNames) {
  Network net = twoProcesses();
  const Statement without = statement(net, deadlockProperty());
  net.names.processes[0] = "first";
  net.names.locations[{0, 0}] = "idle";
  net.names.transitions[0] = "go";
  net.names.propositions[7] = "busy";
  EXPECT_EQ(statement(net, deadlockProperty()), without);
}

TEST(CertificateText, IsReadBack) { EXPECT_EQ(readCertificate(sampleText), sample()); }

TEST(CertificateText, IsRefusedWhereItEndsTooEarly) {
  for (std::size_t length = 0; length < sampleText.size(); ++length)
    EXPECT_NE(refusal(sampleText.substr(0, length)), "") << length;
}

TEST(CertificateText, IsRefusedWhereItGoesOn) {
  EXPECT_EQ(refusal(sampleText + "end\n"), "line 12: text after the end");
}

TEST(CertificateText, RefusalsNameTheLine) {
  EXPECT_EQ(refusalOfLine("clause 0@1"), "line 8: processes count from 1");
  EXPECT_EQ(refusalOfLine("clause 1@-1"), "line 8: no number of a location");
  EXPECT_EQ(refusalOfLine("clause 1>=0"), "line 8: a clock is compared with 1 or more");
  EXPECT_EQ(refusalOfLine("clause 1>=01"), "line 8: '01' is an odd number");
  EXPECT_EQ(refusalOfLine("clause 1=1"), "line 8: expected '>='");
  EXPECT_EQ(refusalOfLine("clause  1@1"), "line 8: expected a number");
  EXPECT_EQ(refusalOfLine("clause 1@1 "), "line 8: expected a number");
  EXPECT_EQ(refusalOfLine("clause 1@1\t"), "line 8: the line goes on too long");
  EXPECT_EQ(refusalOfLine("clauses 1@1"), "line 8: the line goes on too long");
  EXPECT_EQ(refusalOfLine("clause 99999999999999999999@1"), "line 8: expected a number");
  EXPECT_EQ(refusalOfLine("generator 1>2 1>3"), "line 8: an image is given twice");
  EXPECT_EQ(refusalOfLine("linear 1 1*1@1 1*1@1"), "line 8: a location occurs twice");
  EXPECT_EQ(refusalOfLine(""), "line 8: expected 'linear', 'generator', 'clause' or 'end'");
}

TEST(CertificateText, DigestsAreWhole) {
  EXPECT_EQ(refusal("tpn certificate 1\nnetwork abc\n"), "line 2: expected 64 hexadecimal digits");
}

TEST(Statement, IsTheSameUnderOtherNames) {
  const Network net = twoProcesses();
  Network renamed = net;
  renamed.title = "another";
  std::swap(renamed.transitions[0], renamed.transitions[2]);
  renamed.processes[0].labels[1] = {70};
  const Goal goal{"p7", {{PropertyItem::proposition, 7}}, 1};
  const Goal other{"p70", {{PropertyItem::proposition, 70}}, 3};
  EXPECT_EQ(statement(net, goal), statement(renamed, other));
}

TEST(Statement, TellsNetworksAndGoalsApart) {
  const Network net = twoProcesses();
  const Goal goal{"p7", {{PropertyItem::proposition, 7}}, 1};
  const Statement about = statement(net, goal);
  Network later = net;
  later.transitions[2].interval.earliest = 3;
  EXPECT_NE(statement(later, goal).network, about.network);
  Network larger = net;
  larger.processes[0].locations.insert(2);
  EXPECT_NE(statement(larger, goal).network, about.network);
  Network putting = net;
  putting.transitions[2].moves[1].counts = false;
  EXPECT_NE(statement(putting, goal).network, about.network);
  Network staying = net;
  staying.transitions[2].moves[1] = {1, 1, 1};
  Network reading = net;
  reading.transitions[2].moves[1] = {1, 1, 1, true, false};
  EXPECT_NE(statement(reading, goal).network, statement(staying, goal).network);
  EXPECT_NE(statement(net, orUnsafe(goal)).goal, about.goal);
  EXPECT_NE(statement(net, {"", {{PropertyItem::unsafe}}, 1}).goal,
            statement(net, {"", {{PropertyItem::falsity}}, 1}).goal);
  EXPECT_NE(statement(net, deadlockProperty()).goal, about.goal);
  EXPECT_NE(statement(net, {"", {{PropertyItem::negated, 7}}, 1}).goal, about.goal);
}

TEST(Statement, UnitIsTheGreatestCommonDivisor) {
  Network net = twoProcesses();
  EXPECT_EQ(unitOfTime(net), 1);
  for (Transition& t : net.transitions) t.interval = {6, 15};
  EXPECT_EQ(unitOfTime(net), 3);
  for (Transition& t : net.transitions) t.interval = {0, {}};
  EXPECT_EQ(unitOfTime(net), 1);
}

}  // namespace
}  // namespace tpn
