// The partial sums of linear invariants.

#include "workbench/proof/partialsums.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "workbench/proof/checker.hpp"

namespace tpn {
namespace {

using Sums = std::set<std::int64_t>;

// The processes first and first + count go from 0 to 1 together, for each `first` below count.
Network pairs(std::size_t count) {
  Network net;
  net.title = "pairs";
  net.processes.assign(2 * count, {{0, 1}, {}});
  for (std::size_t first = 0; first < count; ++first)
    net.transitions.push_back({{0, 1}, {{first, 0, 1}, {first + count, 0, 1}}});
  return net;
}

// Both of each pair are where they are together: the one weighs as much as the other.
LinearInvariant weighed(std::size_t count, const std::function<std::int64_t(std::size_t)>& weight) {
  LinearInvariant result;
  for (std::size_t first = 0; first < count; ++first) {
    result.coefficients[{first, 1}] = weight(first);
    result.coefficients[{first + count, 1}] = -weight(first);
  }
  return result;
}

std::int64_t powerOfTwo(std::size_t exponent) { return std::int64_t{1} << exponent; }

TEST(PartialSums, AreThoseFromWhichTheTotalCanBeReached) {
  const auto found = partialSums(pairs(2), weighed(2, powerOfTwo));
  ASSERT_TRUE(found);
  EXPECT_EQ(found->sums, (std::vector<Sums>{{0}, {0, 1}, {0, 1, 2, 3}, {0, 2}, {0}}));
}

TEST(PartialSums, LeaveOutWhatCannotCome) {
  LinearInvariant both = weighed(1, powerOfTwo);
  both.total = 1;  // the first has gone and the second has not
  const auto found = partialSums(pairs(1), both);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->sums, (std::vector<Sums>{{0}, {1}, {1}}));
}

TEST(PartialSums, AreNoneWhereTheyAreTooMany) {
  EXPECT_TRUE(partialSums(pairs(6), weighed(6, powerOfTwo)));
  EXPECT_FALSE(partialSums(pairs(6), weighed(6, powerOfTwo), 100));
  EXPECT_FALSE(partialSums(pairs(40), weighed(40, powerOfTwo)));
}

TEST(PartialSums, AreNoneBeyond64Bits) {
  const auto huge = [](std::size_t) { return std::int64_t{1} << 62; };
  EXPECT_TRUE(partialSums(pairs(1), weighed(1, huge)));
  EXPECT_FALSE(partialSums(pairs(2), weighed(2, huge)));
  LinearInvariant lowest;
  lowest.coefficients = {{{0, 1}, std::numeric_limits<std::int64_t>::min()}};
  EXPECT_FALSE(partialSums(pairs(1), lowest));
}

// Which may leave too little to prove anything, and never too much.
TEST(PartialSums, ThatAreNoneAreNoPartOfTheProof) {
  const std::size_t count = 40;
  Network net = pairs(count);
  net.processes[0].labels = {{1, {1}}};
  net.processes[count].labels = {{0, {2}}};
  const Property apart{"p1p2&",
                       {{PropertyItem::proposition, 1},
                        {PropertyItem::proposition, 2},
                        {PropertyItem::conjunction, 0}},
                       1};
  const auto alone = [](std::size_t first) { return first == 0 ? 1 : 0; };
  const auto check = [&](const LinearInvariant& invariant) {
    return recheck(net, apart, Certificate{{invariant}, {}, {}}, {}).complaint;
  };
  EXPECT_EQ(check(weighed(count, alone)), "");
  EXPECT_EQ(check(weighed(count, powerOfTwo)), "a goal state is inside");
}

}  // namespace
}  // namespace tpn
