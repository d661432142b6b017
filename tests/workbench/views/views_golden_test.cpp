// The views of fixed runs and networks, byte for byte: programs read some of them, and whoever
// changes the others should look at them. A case that differs leaves what it got in the folder that
// it names, to be looked at and, if it is right, copied into tests/workbench/views/golden.

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>

#include "tests/workbench/views/viewruns.hpp"

namespace tpn {

namespace {

std::map<std::string, std::string> viewsOf(const Shown& shown) {
  return {{"txt", runText(shown.net, shown.property, shown.run)},
          {"json", tpn::jsonText(runJson(shown.net, shown.property, shown.run))},
          {"vcd", runVcd(shown.net, shown.property, shown.run)},
          {"svg", runSvg(shown.net, shown.property, shown.run)}};
}

std::map<std::string, std::string> viewsOf(const Network& net) {
  return {{"net.txt", networkText(net)},
          {"net.json", tpn::jsonText(networkJson(net))},
          {"net.dot", networkDot(net)}};
}

void expectGolden(const std::string& name, const std::map<std::string, std::string>& views) {
  const std::filesystem::path got = std::filesystem::temp_directory_path() / "tpn-views";
  for (const auto& [ending, text] : views) {
    std::string file = name;
    file.append(".").append(ending);
    const bool same =
        std::filesystem::exists(viewsFolder() + file) && fileText(viewsFolder() + file) == text;
    EXPECT_TRUE(same) << file << " differs from " << (got / file);
    if (same) continue;
    std::filesystem::create_directories(got);
    std::ofstream(got / file, std::ios::binary) << text;
  }
}

TEST(GoldenView, ViolationOfMutualExclusion) { expectGolden("violation", viewsOf(violation())); }
TEST(GoldenView, Names) { expectGolden("named", viewsOf(named())); }
TEST(GoldenView, NetworkWithNames) { expectGolden("named", viewsOf(named().net)); }
TEST(GoldenView, Thirds) { expectGolden("thirds", viewsOf(thirds())); }
TEST(GoldenView, NoStepAtAll) { expectGolden("standstill", viewsOf(standstill())); }
TEST(GoldenView, NetworkOfFischer) { expectGolden("swapped", viewsOf(violation().net)); }
TEST(GoldenView, NetworkWithOddTitle) { expectGolden("odd", viewsOf(thirds().net)); }

}  // namespace

}  // namespace tpn
