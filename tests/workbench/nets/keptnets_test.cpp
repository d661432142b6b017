// The nets kept in examples/ are the networks beside them.

#include <gtest/gtest.h>

#include "workbench/base/files.hpp"
#include "workbench/nets/bridge.hpp"
#include "workbench/nets/tinawriter.hpp"
#include "workbench/network/strictread.hpp"

namespace tpn {
namespace {

class KeptNets : public testing::TestWithParam<const char*> {};

TEST_P(KeptNets, AreTheNetworksBesideThem) {
  const std::string file = std::string(ZERVAN_SOURCE_DIR "/examples/twophase/") + GetParam();
  Diagnostics found;
  const auto net = readNetwork(file, readFile(file + ".tpn"), found);
  ASSERT_TRUE(net);
  EXPECT_EQ(readFile(file + ".net"), tinaFile(petriNetOf(*net)));
}

INSTANTIATE_TEST_SUITE_P(TwoPhase, KeptNets, testing::Values("twophase", "twophase-hasty"));

}  // namespace
}  // namespace tpn
