// The numbers on the data lines: signed decimal, 32 bits. One that is missing, is none or does not
// fit counts as 0, and so does all that follows on its line.

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "tests/model/networks.hpp"

namespace {

using Pair = NetTimedModel::Pair;

struct Line {
  std::string text;
  std::vector<unsigned> numbers;  // as stored
};

void PrintTo(const Line& line, std::ostream* out) { *out << '"' << line.text << '"'; }

const std::vector<Line> oddLines{
    {"1 2 3", {1, 2, 3}},
    {"  1\t2   3  ", {1, 2, 3}},
    {"1\v2\f3\r", {1, 2, 3}},
    {"1 2 3 4 x", {1, 2, 3}},
    {"+1 +2 +3", {1, 2, 3}},
    {"001 0002 03", {1, 2, 3}},
    {"1+2+3", {1, 2, 3}},
    {"1-2-3", {1, ~1U, ~2U}},
    {"1 -2 -1", {1, ~1U, ~0U}},
    {"1 -2147483648 2147483647", {1, 2147483648U, 2147483647U}},
    {"1 2", {1, 2, 0}},
    {"1", {1, 0, 0}},
    {" ", {0, 0, 0}},
    {"x 2 3", {0, 0, 0}},
    {"1 x 3", {1, 0, 0}},
    {"1 2x 3", {1, 2, 0}},
    {"1 2.5 3", {1, 2, 0}},
    {"1,2,3", {1, 0, 0}},
    {"1 0x10 3", {1, 0, 0}},
    {"1 1e3 3", {1, 1, 0}},
    {"1 - 3", {1, 0, 0}},
    {"1 + 3", {1, 0, 0}},
    {"1 +-2 3", {1, 0, 0}},
    {"1 -+2 3", {1, 0, 0}},
    {"1 --2 3", {1, 0, 0}},
    {"1 2147483648 3", {1, 0, 0}},
    {"1 -2147483649 3", {1, 0, 0}},
    {"1 99999999999999999999999999 3", {1, 0, 0}},
    {"1 2 4294967295", {1, 2, 0}},
    {"99999999999 2 3", {0, 0, 0}},
};

class DataLine : public testing::TestWithParam<Line> {
 protected:
  const std::string& text() const { return GetParam().text; }
  unsigned number(std::size_t i) const { return GetParam().numbers[i]; }
};

TEST_P(DataLine, GivesATransitionItsInterval) {
  const Model model = readModel(network(text() + "\n9 0 0\n9 0 0\n", ""));
  const std::vector<Pair>& intervals = model->timeIntervals;
  EXPECT_EQ(intervals.at(number(0)), (Pair{number(1), number(2)}));
}

TEST_P(DataLine, RaisesTheLargestConstantAsASignedNumber) {
  const Model model = readModel(network(text() + "\n", ""));
  EXPECT_EQ(model->maxConst, std::max(0, static_cast<int>(number(2))));
}

TEST_P(DataLine, GivesAProcessItsMove) {
  const Model model = readModel(network("", process(text() + "\n")));
  EXPECT_EQ(model->localTrans, (std::map<Pair, Pair>{{{1, number(0)}, {number(1), number(2)}}}));
  EXPECT_EQ(model->vertices, (std::set<Pair>{{1, number(1)}, {1, number(2)}}));
  EXPECT_EQ(model->transProcs, (std::map<unsigned, NumSet>{{number(0), {1}}}));
}

INSTANTIATE_TEST_SUITE_P(Odd, DataLine, testing::ValuesIn(oddLines));

// --- A valuation line ends at the first that is no number. ---

std::set<unsigned> propositions(const std::string& line, unsigned location) {
  const Model model = readModel(network("", process("", line + "\n")));
  std::set<unsigned> found;
  for (const auto& [vertex, proposition] : model->valuation) {
    EXPECT_EQ(vertex, (Pair{1, location})) << line;
    found.insert(proposition);
  }
  return found;
}

TEST(ValuationLine, EndsAtTheFirstThatIsNoNumber) {
  EXPECT_EQ(propositions("3 1 2 x 4", 3), (std::set<unsigned>{1, 2}));
  EXPECT_EQ(propositions("3 1 2x 4", 3), (std::set<unsigned>{1, 2}));
}

TEST(ValuationLine, EndsAtANumberThatDoesNotFit) {
  EXPECT_EQ(propositions("3 1 2147483648 4", 3), std::set<unsigned>{1});
}

TEST(ValuationLine, WithoutALocationHasNoPropositions) {
  EXPECT_EQ(propositions("x 1 2", 0), std::set<unsigned>());
  EXPECT_EQ(propositions("2147483648 1 2", 0), std::set<unsigned>());
}

TEST(ValuationLine, KeepsNegativeNumbersModuloTwoToTheThirtyTwo) {
  EXPECT_EQ(propositions("-1 -2 0", ~0U), (std::set<unsigned>{0, ~1U}));
}

}  // namespace
