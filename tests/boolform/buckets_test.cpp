// Buckets against a list for each.

#include "boolform/buckets.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

using Lists = std::vector<std::vector<int>>;

Lists randomLists(std::mt19937& random) {
  Lists lists(1 + random() % 20);
  for (int i = 0; i < 100; ++i) lists[random() % lists.size()].push_back(i);
  return lists;
}

void fill(Buckets<int>& buckets, const Lists& lists) {
  buckets.clear(lists.size());
  for (std::size_t i = 0; i < lists.size(); ++i)
    for (std::size_t n = lists[i].size(); n > 0; --n) buckets.count(i);
  buckets.countingDone();
  for (std::size_t i = 0; i < lists.size(); ++i)
    for (const int value : lists[i]) buckets.put(i, value);
}

void expectReversed(Buckets<int>& buckets, const Lists& lists) {
  ASSERT_EQ(buckets.size(), lists.size());
  EXPECT_EQ(buckets.largest(), std::max_element(lists.begin(), lists.end(), [](auto& a, auto& b) {
                                 return a.size() < b.size();
                               })->size());
  for (std::size_t i = 0; i < lists.size(); ++i)
    EXPECT_EQ(std::vector<int>(buckets[i].begin(), buckets[i].end()),
              std::vector<int>(lists[i].rbegin(), lists[i].rend()));
}

TEST(Buckets, HoldWhatWasPutTheLatestFirst) {
  std::mt19937 random(1);
  for (int round = 0; round < 50; ++round) {
    const Lists lists = randomLists(random);
    Buckets<int> buckets;
    fill(buckets, lists);
    expectReversed(buckets, lists);
  }
}

TEST(Buckets, AreFilledAnew) {
  std::mt19937 random(2);
  Buckets<int> buckets;
  for (int round = 0; round < 50; ++round) {
    const Lists lists = randomLists(random);
    fill(buckets, lists);
    expectReversed(buckets, lists);
  }
}

TEST(Buckets, NoneToBeginWith) {
  EXPECT_EQ(Buckets<int>().size(), 0U);
  EXPECT_EQ(Buckets<int>().largest(), 0U);
}

}  // namespace
