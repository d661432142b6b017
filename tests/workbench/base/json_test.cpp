#include "workbench/base/json.hpp"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace tpn {
namespace {

TEST(JsonText, KeepsTheOrderAndEndsItsLine) {
  EXPECT_EQ(jsonText({{"b", 1}, {"a", {2, 3}}}), R"({
  "b": 1,
  "a": [
    2,
    3
  ]
}
)");
}

TEST(JsonText, BytesThatAreNoUtf8AreReplacedInNamesAndValues) {
  const std::string text = jsonText({{"\xfc", "a\xff"}});
  EXPECT_EQ(Json::parse(text), Json({{"\xef\xbf\xbd", "a\xef\xbf\xbd"}}));
}

}  // namespace
}  // namespace tpn
