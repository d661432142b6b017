// Pictures of runs: valid, complete, and with nothing on top of each other. How they look was
// judged by eye; what was found good is kept in golden/.

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <utility>

#include "tests/workbench/views/viewruns.hpp"
#include "tests/workbench/views/xmlquery.hpp"

namespace tpn {

namespace {

// With all lanes.
std::string pictureOf(const Shown& shown) {
  return runSvg(shown.net, shown.property, shown.run, {.all = true});
}

struct Box {
  double x, y, width, height;
};

bool overlap(const Box& a, const Box& b) {
  return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

// The rectangles that follow each element of a class.
std::vector<Box> boxesOf(const std::string& svg, const std::string& type) {
  const std::regex group("<g class=\"" + type +
                         "\"[^>]*>[^]*?<rect x=\"(-?[0-9.]+)\" y=\"(-?[0-9.]+)\" "
                         "width=\"([0-9.]+)\" height=\"([0-9.]+)\"");
  std::vector<Box> boxes;
  for (auto it = std::sregex_iterator(svg.begin(), svg.end(), group); it != std::sregex_iterator();
       ++it)
    boxes.push_back(
        {std::stod((*it)[1]), std::stod((*it)[2]), std::stod((*it)[3]), std::stod((*it)[4])});
  return boxes;
}

// Texts of a class, each taken as wide as digits of its font are.
std::vector<Box> textsOf(const std::string& svg, const std::string& type, double fontSize,
                         bool centred) {
  const std::regex element("<text x=\"(-?[0-9]+)\" y=\"([0-9]+)\" class=\"" + type +
                           "\"[^>]*>([^<]*)</text>");
  std::vector<Box> boxes;
  for (auto it = std::sregex_iterator(svg.begin(), svg.end(), element);
       it != std::sregex_iterator(); ++it) {
    const double width = 0.636 * fontSize * static_cast<double>((*it)[3].length());
    const double x = std::stod((*it)[1]) - (centred ? width / 2 : 0);
    boxes.push_back({x, std::stod((*it)[2]) - fontSize * 0.75, width, fontSize * 0.75});
  }
  return boxes;
}

void expectApart(const std::vector<Box>& boxes, const std::string& what) {
  for (std::size_t i = 0; i < boxes.size(); ++i)
    for (std::size_t j = i + 1; j < boxes.size(); ++j)
      EXPECT_FALSE(overlap(boxes[i], boxes[j])) << what << " " << i << " and " << j;
}

std::size_t sharedSteps(const Shown& shown) {
  std::size_t shared = 0;
  for (const Step& step : shown.run.steps)
    shared += shown.net.transitions[step.transition].moves.size() > 1 ? 1U : 0U;
  return shared;
}

void expectComplete(const Shown& shown) {
  const std::string svg = pictureOf(shown);
  const XmlFile xml(svg);
  ASSERT_TRUE(xml.isWellFormed());
  const auto count = [&](const std::string& filter) {
    return xml.value("count(//*[" + filter + "])");
  };
  EXPECT_EQ(count("@class=\"process\""), std::to_string(shown.net.processes.size()));
  EXPECT_EQ(count("@class=\"step\""), std::to_string(shown.run.steps.size()));
  EXPECT_EQ(count("@class=\"tie\""), std::to_string(sharedSteps(shown)));
  EXPECT_EQ(count("@id=\"goal\""), shown.property.text == anything().text ? "0" : "1");
  std::size_t moves = 0;
  for (const Step& step : shown.run.steps)
    moves += shown.net.transitions[step.transition].moves.size();
  EXPECT_EQ(count("name()=\"circle\""), std::to_string(moves));
  EXPECT_EQ(count("@class=\"bar\""), std::to_string(moves + shown.net.processes.size()));
}

TEST(RunSvg, FixedRunsAreComplete) {
  for (const Shown& shown : {violation(), named(), thirds(), standstill()}) expectComplete(shown);
}

TEST(RunSvg, RandomRunsAreComplete) {
  for (unsigned seed = 1; seed <= 8; ++seed) {
    SCOPED_TRACE(seed);
    expectComplete(randomShown(seed, 20));
  }
}

TEST(RunSvg, NothingOverlaps) {
  std::vector<Shown> runs{violation(), named(), thirds(), standstill()};
  for (unsigned seed = 1; seed <= 25; ++seed) runs.push_back(randomShown(seed, 40));
  for (const Shown& shown : runs) {
    SCOPED_TRACE(shown.net.title);
    const std::string svg = pictureOf(shown);
    const std::vector<Box> numbers = boxesOf(svg, "step");
    const std::vector<Box> bars = boxesOf(svg, "bar");
    ASSERT_EQ(numbers.size(), shown.run.steps.size());
    ASSERT_GE(bars.size(), shown.net.processes.size());
    expectApart(numbers, "numbers");
    expectApart(bars, "bars");
    for (const Box& number : numbers)
      for (const Box& bar : bars) EXPECT_FALSE(overlap(number, bar));
    expectApart(textsOf(svg, "place", 11, false), "locations");
    expectApart(textsOf(svg, "mark", 10, true), "times and transitions");
    expectApart(textsOf(svg, "mark quiet", 10, true), "steps");
  }
}

// Labels lie in their bars, whose ends carry dots of 4 pixels.
void expectLocationsInside(const Shown& shown) {
  const std::string svg = pictureOf(shown);
  const std::vector<Box> bars = boxesOf(svg, "bar");
  const std::vector<Box> texts = textsOf(svg, "place", 11, false);
  ASSERT_GE(texts.size(), bars.size());
  for (const Box& text : texts) {
    const auto holds = [&](const Box& bar) {
      return text.x >= bar.x + 5 && text.x + text.width <= bar.x + bar.width - 4 &&
             text.y >= bar.y && text.y + text.height <= bar.y + bar.height;
    };
    EXPECT_TRUE(std::any_of(bars.begin(), bars.end(), holds)) << text.x << " " << text.y;
  }
}

TEST(RunSvg, LocationsFitIntoTheirBars) {
  expectLocationsInside(violation());
  expectLocationsInside(named());
  expectLocationsInside(thirds());
}

TEST(RunSvg, LongLocationNumbersFitIntoColumns) {
  Shown shown = violation();
  for (Transition& t : shown.net.transitions)
    for (Move& move : t.moves)
      for (int* location : {&move.source, &move.target})
        if (*location != 0) *location += 12345;
  for (Process& process : shown.net.processes) {
    const Process old = std::exchange(process, {{0}, {}});
    for (const int location : old.locations)
      if (location != 0) process.locations.insert(location + 12345);
    for (const auto& [location, labels] : old.labels) process.labels[location + 12345] = labels;
  }
  expectLocationsInside(shown);
}

// One delay is a small part of all time, and the times below need little room.
TEST(RunSvg, ShortDelaysLeaveRoom) {
  Shown shown = thirds();
  shown.run = {{fires(1, 1), fires(2), fires(3, 8)}, 2};
  expectLocationsInside(shown);
}

TEST(RunSvg, TextIsEscaped) {
  const XmlFile xml(pictureOf(thirds()));
  ASSERT_TRUE(xml.isWellFormed());
  EXPECT_EQ(xml.value("string(//*[@class=\"heading\"])"),
            "two <processes> & a \"title\" \\ $end &lt; \xc5\xbc \xef\xbf\xbd");
}

// Nothing is fetched: no reference to anything but the namespace.
TEST(RunSvg, StandsAlone) {
  const std::string svg = pictureOf(violation());
  EXPECT_EQ(svg.find("href"), std::string::npos);
  EXPECT_EQ(svg.find("http"), svg.find("http://www.w3.org/2000/svg"));
  EXPECT_EQ(svg.find("http"), svg.rfind("http"));
}

// A page's policy forbids them.
TEST(RunSvg, HasNoStyleAttributes) {
  EXPECT_EQ(XmlFile(pictureOf(violation())).value("count(//@style)"), "0");
}

TEST(RunSvg, GoalLocationsAreOutlined) {
  const XmlFile xml(pictureOf(violation()));
  EXPECT_EQ(xml.value("count(//*[@class=\"witness\"])"), "2");
}

TEST(RunSvg, LanesAreOfProcessesThatMoveOrAreAskedFor) {
  Shown shown = violation();
  const auto lanes = [&](const Look& look) {
    const XmlFile xml(runSvg(shown.net, shown.property, shown.run, look));
    return xml.value("count(//*[@class=\"process\"])");
  };
  EXPECT_EQ(lanes({}), "3");  // not the third
  EXPECT_EQ(lanes({.all = true}), "4");
  shown.property = readInfix("atleast(2, *.5) || 3.0", shown.net);
  EXPECT_EQ(lanes({}), "4");
  shown = standstill();
  EXPECT_EQ(lanes({}), "2");  // nobody moves
}

TEST(RunSvg, ALongQuestionIsFoldedAndThePartThatHeldMarked) {
  Shown shown = violation();
  std::string text = "p77";
  for (int i = 0; i < 60; ++i) text += " || p" + std::to_string(100 + i);
  shown.property = readInfix(text + " || p11 && p21", shown.net);
  const XmlFile xml(pictureOf(shown));
  ASSERT_TRUE(xml.isWellFormed());
  EXPECT_GT(std::stoi(xml.value("count(//*[@class=\"quiet\" and contains(., \"||\")])")), 2);
  EXPECT_EQ(xml.value("count(//*[@class=\"held\"])"), "2");
  EXPECT_EQ(xml.value("string(//*[@class=\"held\"][2])"), "p21");
}

TEST(RunSvg, LongTitlesAreCut) {
  Shown shown = standstill();
  for (int i = 0; i < 300; ++i) shown.net.title += "\xc5\xbc";
  const XmlFile xml(pictureOf(shown));
  ASSERT_TRUE(xml.isWellFormed());
  EXPECT_LT(std::stoi(xml.value("string-length(//*[@class=\"heading\"])")), 80);
}

}  // namespace

}  // namespace tpn
