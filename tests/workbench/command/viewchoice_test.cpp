// The options of a table of views.

#include "workbench/command/viewchoice.hpp"

#include <gtest/gtest.h>

#include "tests/driver/runprogram.hpp"
#include "workbench/command/subcommand.hpp"

namespace tpn {
namespace {

struct View {
  const char* name;
  const char* suffix;
  Destination destination;
  const char* help;
};

constexpr View table[] = {{"plain", "txt", Destination::usual, "as usual"},
                          {"odd", "odd", Destination::stream, "oddly"},
                          {"even", "even", Destination::stream, "evenly"},
                          {"drawn", "svg", Destination::file, "drawn"},
                          {"sung", "wav", Destination::file, "sung"}};

struct Chosen {
  explicit Chosen(const std::vector<std::string>& words) {
    choice.declare(app);
    app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
  }

  CLI::App app;
  ViewChoice<View> choice{table};
};

TEST(ViewChoice, UsualViewIsShownUnlessAnotherIsAskedFor) {
  EXPECT_TRUE(Chosen({}).choice.showsUsual());
  EXPECT_TRUE(Chosen({"--drawn", "x"}).choice.showsUsual());
  EXPECT_TRUE(Chosen({"--odd"}).choice.shows("odd"));
  EXPECT_FALSE(Chosen({"--odd"}).choice.showsUsual());
}

TEST(ViewChoice, OneViewIsShown) {
  EXPECT_THROW(Chosen({"--odd", "--even"}), CLI::ParseError);
  EXPECT_THROW(Chosen({"--plain"}), CLI::ParseError);
  EXPECT_THROW(Chosen({"--drawn"}), CLI::ParseError);
}

TEST(ViewChoice, FilesAreWrittenEachWithItsView) {
  const Workplace place;
  const auto in = [&](const std::string& name) { return (place.folder() / name).string(); };
  const Chosen chosen({"--sung", in("b"), "--drawn", in("a")});
  EXPECT_TRUE(chosen.choice.anyFile());
  chosen.choice.writeFiles([](const View& view) { return std::string(view.help); });
  EXPECT_EQ(place.read("a"), "drawn");
  EXPECT_EQ(place.read("b"), "sung");
  FilePlan plan;
  chosen.choice.addTo(plan);
  EXPECT_NE(plan.refusal(in("a")), "");
  EXPECT_FALSE(Chosen({"--odd"}).choice.anyFile());
}

TEST(Subcommands, DeclareWhatTheyTakeAndDoNothingYet) {
  for (const Subcommand* command :
       {&lintCommand, &showCommand, &checkCommand, &traceCommand, &runCommand}) {
    CLI::App app;
    EXPECT_TRUE(command->declare(app)) << command->name;
    EXPECT_NE(app.get_option_no_throw("NET"), nullptr) << command->name;
  }
}

TEST(Reading, PropertyOfAQuestionMustFitItsNetwork) {
  const Workplace place;
  const std::string net = std::string(ZERVAN_SOURCE_DIR) + "/examples/handshake/handshake";
  place.write("wrong.tpn", "p1EF\n");
  const std::string folder = place.folder().string();
  EXPECT_TRUE(inputsOf({net, std::string(ZERVAN_SOURCE_DIR) + "/examples/handshake/busy", {}}));
  EXPECT_FALSE(inputsOf({net, folder + "/wrong", {}}));
  EXPECT_TRUE(networkOf({net, "", {}}));
  EXPECT_THROW(networkOf({folder + "/none", "", {}}), std::runtime_error);
}

}  // namespace
}  // namespace tpn
