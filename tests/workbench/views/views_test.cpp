// The tables of views, from which command line and walks take theirs.

#include "workbench/views/views.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>

#include "tests/workbench/views/viewruns.hpp"

namespace tpn {
namespace {

template <class View>
void expectNamesOnceAndOneUsual(std::span<const View> table) {
  std::set<std::string> names;
  for (const View& view : table) EXPECT_TRUE(names.insert(view.name).second) << view.name;
  EXPECT_EQ(std::count_if(table.begin(), table.end(),
                          [](const View& view) { return view.destination == Destination::usual; }),
            1);
}

TEST(Views, HaveNamesOfTheirOwnAndOneIsUsual) {
  expectNamesOnceAndOneUsual(runViews());
  expectNamesOnceAndOneUsual(networkViews());
}

TEST(Views, AreFoundByName) {
  for (const RunView& view : runViews()) EXPECT_EQ(runViewCalled(view.name), &view);
  EXPECT_EQ(runViewCalled("none"), nullptr);
}

TEST(Views, RowsPrintWhatTheFunctionsDo) {
  const Shown shown = thirds();
  const auto printed = [&](const char* name) {
    return runViewCalled(name)->print(shown.net, shown.property, shown.run, {});
  };
  EXPECT_EQ(printed("text"), runText(shown.net, shown.property, shown.run));
  EXPECT_EQ(printed("json"), jsonText(runJson(shown.net, shown.property, shown.run)));
  EXPECT_EQ(printed("vcd"), runVcd(shown.net, shown.property, shown.run));
  EXPECT_EQ(printed("svg"), runSvg(shown.net, shown.property, shown.run));
}

}  // namespace
}  // namespace tpn
