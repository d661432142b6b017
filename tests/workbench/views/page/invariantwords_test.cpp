// Certificates in sentences.

#include "workbench/views/page/invariantwords.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tpn {
namespace {

using testing::ElementsAre;

// a and b with the locations off, on and broken; process 3 has no names. Constants are multiples of
// 5.
Network three() {
  Network net;
  net.names.processes = {{0, "a"}, {1, "b"}};
  for (std::size_t p = 0; p < 3; ++p) {
    net.processes.push_back({{0, 1, 2}, {}});
    if (p < 2)
      for (const auto& [l, name] : std::map<int, std::string>{{0, "off"}, {1, "on"}, {2, "broken"}})
        net.names.locations[{p, l}] = name;
  }
  net.transitions.push_back({{5, 10}, {{0, 0, 1}}});
  return net;
}

Atom in(std::size_t process, int location) { return {Atom::location, true, process, location}; }
Atom reached(std::size_t process, std::int64_t units) {
  return {Atom::clock, true, process, units};
}

std::string said(const AtomClause& clause) { return sentence(three(), clause, 5); }
std::string said(const LinearInvariant& sum) { return sentence(three(), sum); }

TEST(ClauseInWords, OfPlacesThatExcludeEachOther) {
  EXPECT_EQ(said({~in(0, 1), ~in(1, 2)}), "Never at once: a is in on and b is in broken.");
  EXPECT_EQ(said({~in(2, 1)}), "Never: process 3 is in location 1.");
}

TEST(ClauseInWords, OfAPlaceThatNeedsOthers) {
  EXPECT_EQ(said({~in(0, 1), in(1, 2)}), "Whenever a is in on, b is in broken.");
  EXPECT_EQ(said({~in(0, 1), ~in(1, 0), in(2, 2), reached(1, 2)}),
            "Whenever a is in on and b is in off, process 3 is in location 2 or the clock of b is "
            "at least 10.");
}

TEST(ClauseInWords, NamesTheFewerLocations) {
  EXPECT_EQ(said({in(0, 0), in(0, 1)}), "Never: a is in broken.");
  EXPECT_EQ(said({in(0, 0)}), "Always: a is in off.");
  EXPECT_EQ(said({in(0, 0), in(0, 2), in(1, 1)}), "Whenever a is in on, b is in on.");
}

TEST(ClauseInWords, ClocksAreInTheNetworksTime) {
  EXPECT_EQ(said({~in(0, 1), ~reached(0, 3)}), "Whenever a is in on, the clock of a is below 15.");
  EXPECT_EQ(said({~reached(0, 1)}), "Always: the clock of a is below 5.");
  EXPECT_EQ(said({~reached(0, 1), in(1, 1)}), "Whenever the clock of a is at least 5, b is in on.");
}

TEST(SumInWords, OfOnePlaceEach) {
  EXPECT_EQ(said({{{{0, 1}, 1}, {{1, 1}, -1}, {{1, 2}, -1}}, 0}),
            "a is in on exactly when b is in on or broken.");
  EXPECT_EQ(said({{{{2, 1}, 1}, {{0, 1}, -1}}, 0}),
            "Process 3 is in location 1 exactly when a is in on.");
}

TEST(SumInWords, OfPlacesThatAreCounted) {
  EXPECT_EQ(said({{{{0, 1}, 1}, {{1, 1}, 1}, {{2, 1}, 1}}, 1}),
            "Of these always exactly 1 is so: a is in on; b is in on; process 3 is in location 1.");
  EXPECT_EQ(said({{{{0, 1}, 1}, {{1, 1}, 1}, {{2, 1}, -1}}, 0}),
            "As many of these are so (a is in on; b is in on) as of these (process 3 is in "
            "location 1).");
  EXPECT_EQ(said({{{{0, 1}, -1}, {{1, 1}, -1}, {{2, 1}, 1}}, -1}),
            "Of these (a is in on; b is in on) always 1 more are so than of these (process 3 is in "
            "location 1).");
  EXPECT_EQ(said({{{{0, 1}, -1}, {{1, 1}, -1}}, 0}), "None of these ever: a is in on; b is in on.");
}

TEST(SumInWords, OfPlacesThatWeighDifferently) {
  EXPECT_EQ(said({{{{0, 1}, 2}, {{1, 1}, 1}, {{2, 1}, -3}}, 1}),
            "Always [b is in on] + 2 [a is in on] = 3 [process 3 is in location 1] + 1, where "
            "[...] is 1 while that is so and 0 otherwise.");
}

TEST(GeneratorInWords, TellsWhoTakesWhosePlace) {
  EXPECT_EQ(sentence(three(), Generator{{{0, 1}, {1, 0}}, {}}), "a and b change places.");
  EXPECT_EQ(sentence(three(), Generator{{{0, 1}, {1, 2}, {2, 0}}, {}}),
            "a becomes b becomes process 3 becomes a.");
  EXPECT_EQ(sentence(three(), Generator{{}, {{{0, 1}, 2}, {{0, 2}, 1}}}),
            "on of a becomes broken, broken of a becomes on.");
}

TEST(CertificateInWords, LeavesOutWhatFollows) {
  const InvariantWords words = inWords(three(), {{},
                                                 {},
                                                 {{~reached(0, 2), in(1, 1), in(2, 1)},
                                                  {~reached(0, 3), in(1, 1)},
                                                  {~reached(0, 2), in(1, 1)},
                                                  {reached(0, 1), in(1, 1)},
                                                  {reached(0, 2), in(1, 1)}}});
  EXPECT_THAT(words.clauses,
              ElementsAre(said({~reached(0, 2), in(1, 1)}), said({reached(0, 2), in(1, 1)})));
}

TEST(CertificateInWords, SaysLeastFirstAndEachOnce) {
  const InvariantWords words =
      inWords(three(), {{}, {}, {{~in(0, 1), ~in(1, 2)}, {~in(2, 1)}, {~in(0, 1), ~in(1, 2)}}});
  EXPECT_THAT(words.clauses, ElementsAre("Never: process 3 is in location 1.",
                                         "Never at once: a is in on and b is in broken."));
}

}  // namespace
}  // namespace tpn
