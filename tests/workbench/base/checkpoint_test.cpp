#include "workbench/base/checkpoint.hpp"

#include <gtest/gtest.h>

namespace tpn {

namespace {

TEST(Checkpoint, LetsEverythingPassByDefault) {
  const Checkpoint open;
  EXPECT_NO_THROW(open());
  EXPECT_NO_THROW(open.at(4096));
}

TEST(Checkpoint, InterruptsOnceItIsOver) {
  bool over = false;
  const Checkpoint checkpoint([&] { return over; });
  EXPECT_NO_THROW(checkpoint());
  over = true;
  EXPECT_THROW(checkpoint(), Interrupted);
}

TEST(Checkpoint, AsksInOneRoundOutOfMany) {
  int asked = 0;
  const Checkpoint checkpoint([&] {
    ++asked;
    return false;
  });
  for (std::size_t round = 0; round < 10000; ++round) checkpoint.at(round);
  EXPECT_EQ(asked, 3);  // in rounds 0, 4096 and 8192
}

}  // namespace

}  // namespace tpn
