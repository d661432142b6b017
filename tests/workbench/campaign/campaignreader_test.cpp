// Campaign files in both notations, and what is said of those that are none.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/driver/runprogram.hpp"
#include "workbench/campaign/campaign.hpp"

namespace tpn {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class CampaignFile : public testing::Test {
 protected:
  Campaign read(const std::string& text, const std::string& name = "c.toml") {
    place_.write(name, text);
    return readCampaign(place_.folder() / name);
  }
  std::string complaint(const std::string& text, const std::string& name = "c.toml") {
    try {
      read(text, name);
      return "";
    } catch (const std::runtime_error& e) {
      return e.what();
    }
  }
  std::string in(const std::string& name) const { return place_.folder() / name; }

  Workplace place_;
};

const std::string network = "[[network]]\nfile = \"n.tpn\"\nquestions = [\"p1\"]\n";

TEST_F(CampaignFile, SaysNetworksQuestionsEnginesAndLimits) {
  const Campaign c = read(
      "title = \"T\"\nengines = [\"bmc\", \"ic3\"]\nseeds = \"0..2\"\ntimeout = 1.5\n"
      "max-transitions = 9\nmemory = 500\n"
      "[[network]]\nfile = \"n.tpn\"\nproperties = [\"a\"]\nquestions = [\"p1\"]\n"
      "sweep = [\"transition 2: latest 1..3\"]\n"
      "[[network]]\nfamily = \"ring\"\nsizes = [2, 4]\nnamed = [\"alarm\"]\n");
  EXPECT_EQ(c.title, "T");
  EXPECT_THAT(c.engines, ElementsAre("bmc", "ic3"));
  EXPECT_THAT(c.seeds, ElementsAre(0, 1, 2));
  EXPECT_EQ(c.limits.timeout, 1.5);
  EXPECT_EQ(c.limits.maxTransitions, 9);
  EXPECT_EQ(c.limits.memory, 500);
  ASSERT_EQ(c.networks.size(), 2U);
  EXPECT_EQ(c.networks[0].file, in("n.tpn"));
  EXPECT_THAT(c.networks[0].properties, ElementsAre(in("a")));
  EXPECT_THAT(c.networks[0].questions, ElementsAre("p1"));
  EXPECT_EQ(c.networks[0].sweeps.at(0).values.size(), 3U);
  EXPECT_EQ(c.networks[1].family, "ring");
  EXPECT_THAT(c.networks[1].sizes, ElementsAre(2, 4));
  EXPECT_THAT(c.networks[1].named, ElementsAre("alarm"));
}

TEST_F(CampaignFile, MayBeJson) {
  const Campaign c = read(R"({"network": [{"file": "n.tpn", "questions": ["p1"]}]})", "c.json");
  EXPECT_EQ(c.networks.at(0).file, in("n.tpn"));
  EXPECT_THAT(c.engines, ElementsAre("both"));
}

TEST_F(CampaignFile, ThatIsNoTomlIsToldWithItsPlace) {
  EXPECT_THAT(complaint("title = \n"), HasSubstr("c.toml:1:"));
  EXPECT_THAT(complaint("{", "c.json"), HasSubstr("c.json: is no JSON: byte "));
}

TEST_F(CampaignFile, SaysNothingElse) {
  const std::vector<std::pair<std::string, std::string>> wrong{
      {"titel = \"x\"\n" + network, "nothing is called titel"},
      {"", "has no [[network]]"},
      {"engines = [\"z3\"]\n" + network, "no engine is called z3"},
      {"timeout = -1\n" + network, "timeout is a time in seconds"},
      {"seeds = \"2..1\"\n" + network, "seeds is no range"},
      {"seeds = []\n" + network, "seeds is empty"},
      {"memory = 0\n" + network, "memory is a whole number from 1 on"},
      {"[[network]]\nfile = \"n\"\n", "network 1: asks nothing"},
      {"[[network]]\nquestions = [\"p1\"]\n", "network 1: has either a file or a family"},
      {"[[network]]\nfamily = \"ring\"\nnamed = [\"a\"]\n", "sizes go with a family"},
      {"[[network]]\nfile = \"n\"\nnamed = [\"a\"]\n", "only a family has named questions"},
      {network + "sweep = [\"x\"]\n", "is nothing like"},
      {network + "[[network]]\nfile = 3\n", "network 2: file is a text"}};
  for (const auto& [text, message] : wrong)
    EXPECT_THAT(complaint(text), HasSubstr(message)) << text;
}

}  // namespace
}  // namespace tpn
