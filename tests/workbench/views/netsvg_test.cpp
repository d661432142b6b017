// Pictures of networks: valid, complete, with every text inside its box and nothing on top of
// anything else. How they look was judged by eye, at 3 and at 20 processes.

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>

#include "tests/workbench/views/viewruns.hpp"
#include "tests/workbench/views/xmlquery.hpp"
#include "workbench/families/families.hpp"

namespace tpn {
namespace {

struct Rect {
  double left, top, right, bottom;
};

double attributeOf(const std::string& element, const std::string& name) {
  const std::size_t at = element.find(" " + name + "=\"");
  EXPECT_NE(at, std::string::npos) << element << " " << name;
  return at == std::string::npos ? 0 : std::stod(element.substr(at + name.size() + 3));
}

// What is drawn of text and rectangles, where it is once all groups are shifted.
struct Elements {
  std::vector<Rect> boxes;
  std::vector<Rect> texts;
  std::vector<Rect> panels;  // their frames
};

Elements elementsOf(const std::string& svg) {
  Elements found;
  std::vector<std::pair<double, double>> shifts{{0, 0}};
  const std::regex tag("<(/?)([a-z]+)([^>]*)>");
  for (std::sregex_iterator it(svg.begin(), svg.end(), tag); it != std::sregex_iterator(); ++it) {
    const bool ends = (*it)[1].length() > 0;
    const std::string name = (*it)[2];
    const std::string element = (*it)[0];
    auto [x, y] = shifts.back();
    if (name == "g" && ends) shifts.pop_back();
    if (ends) continue;
    if (name == "g") {
      std::smatch shift;
      static const std::regex translate("translate\\((-?[0-9.]+) (-?[0-9.]+)\\)");
      if (std::regex_search(element, shift, translate)) {
        x += std::stod(shift[1]);
        y += std::stod(shift[2]);
      }
      shifts.emplace_back(x, y);
    }
    if (name != "rect" && name != "text") continue;
    const double left = x + attributeOf(element, "x");
    const double top = y + attributeOf(element, "y");
    if (name == "text") {
      const double size = attributeOf(element, "font-size");
      found.texts.push_back(
          {left, top - size * 0.76, left + attributeOf(element, "textLength"), top + size * 0.24});
    } else {
      const Rect rect{left, top, left + attributeOf(element, "width"),
                      top + attributeOf(element, "height")};
      const bool frame = element.find("class=\"frame\"") != std::string::npos;
      (frame ? found.panels : found.boxes).push_back(rect);
    }
  }
  return found;
}

bool holds(const Rect& box, const Rect& inner) {
  constexpr double rounding = 0.2;
  return box.left <= inner.left + rounding && inner.right <= box.right + rounding &&
         box.top <= inner.top + rounding && inner.bottom <= box.bottom + rounding;
}
bool overlap(const Rect& a, const Rect& b) {
  constexpr double rounding = 0.2;
  return a.left + rounding < b.right && b.left + rounding < a.right &&
         a.top + rounding < b.bottom && b.top + rounding < a.bottom;
}

std::vector<Network> networks() {
  std::vector<Network> nets{named().net, thirds().net, violation().net};
  for (const char* family :
       {"fischer", "crossing", "ring", "handshake", "csma", "dining", "pipeline", "lossy"})
    for (const int size : {3, 20}) nets.push_back(familyNamed(family)->network(size));
  return nets;
}

TEST(NetworkSvg, EveryTextIsInsideItsBox) {
  for (const Network& net : networks()) {
    SCOPED_TRACE(net.title);
    const Elements drawn = elementsOf(networkSvg(net));
    // The first rectangle is the paper, and holds all.
    ASSERT_FALSE(drawn.boxes.empty());
    for (const Rect& text : drawn.texts) {
      EXPECT_TRUE(holds(drawn.boxes[0], text));
      for (std::size_t i = 1; i < drawn.boxes.size(); ++i)
        EXPECT_TRUE(!overlap(drawn.boxes[i], text) || holds(drawn.boxes[i], text))
            << text.left << " " << text.top;
    }
  }
}

TEST(NetworkSvg, NothingOverlaps) {
  for (const Network& net : networks()) {
    SCOPED_TRACE(net.title);
    const Elements drawn = elementsOf(networkSvg(net));
    for (std::size_t i = 1; i < drawn.boxes.size(); ++i) {
      EXPECT_TRUE(std::any_of(drawn.panels.begin(), drawn.panels.end(),
                              [&](const Rect& panel) { return holds(panel, drawn.boxes[i]); }));
      for (std::size_t j = i + 1; j < drawn.boxes.size(); ++j)
        EXPECT_FALSE(overlap(drawn.boxes[i], drawn.boxes[j])) << i << " " << j;
    }
    for (std::size_t i = 0; i < drawn.panels.size(); ++i)
      for (std::size_t j = i + 1; j < drawn.panels.size(); ++j)
        EXPECT_FALSE(overlap(drawn.panels[i], drawn.panels[j]));
  }
}

// Whether they are drawn once or one by one.
TEST(NetworkSvg, EveryLocationAndTransitionCanBeFound) {
  for (const Network& net : networks())
    for (const bool all : {false, true}) {
      const std::string svg = networkSvg(net, {.all = all});
      for (std::size_t p = 0; p < net.processes.size(); ++p)
        for (const int location : net.processes[p].locations) {
          const std::string found = std::to_string(number(p)) + "-" + std::to_string(location);
          EXPECT_TRUE(svg.find(" at-" + found + " ") != std::string::npos ||
                      svg.find(" at-" + found + "\"") != std::string::npos)
              << net.title << " " << found;
        }
      for (std::size_t t = 0; t < net.transitions.size(); ++t) {
        const std::string found = " fires-" + std::to_string(number(t));
        EXPECT_TRUE(svg.find(found + " ") != std::string::npos ||
                    svg.find(found + "\"") != std::string::npos)
            << net.title << found;
      }
    }
}

TEST(NetworkSvg, LocationsSayWhatTheyAre) {
  const XmlFile once(networkSvg(familyNamed("fischer")->network(20)));
  ASSERT_TRUE(once.isWellFormed());
  EXPECT_EQ(
      once.value("count(//*[@data-location=\"5\" and starts-with(@data-process, \"1 2 3 \")])"),
      "1");
  EXPECT_EQ(once.value("count(//*[@class=\"panel\"])"), "2");
  const XmlFile each(networkSvg(familyNamed("fischer")->network(20), {.all = true}));
  EXPECT_EQ(each.value("count(//*[@class=\"panel\"])"), "21");
  EXPECT_EQ(each.value("count(//*[@data-location=\"5\" and @data-process=\"17\"])"), "1");
}

TEST(NetworkSvg, TwentyProcessesTakeNoMoreThanTheirKind) {
  EXPECT_LT(networkSvg(familyNamed("fischer")->network(20)).size(), 200'000U);
}

TEST(NetworkSvg, TextIsEscaped) {
  const XmlFile xml(networkSvg(thirds().net));
  ASSERT_TRUE(xml.isWellFormed());
  EXPECT_EQ(xml.value("string(//*[@class=\"heading\"])"),
            "two <processes> & a \"title\" \\ $end &lt; \xc5\xbc \xef\xbf\xbd");
}

// Pages with strict policies show it: no style, no script, nothing fetched.
TEST(NetworkSvg, StandsAlone) {
  const std::string svg = networkSvg(named().net);
  for (const char* const word : {"href", "style", "script", " id=", " onload=", " onclick="})
    EXPECT_EQ(svg.find(word), std::string::npos) << word;
  EXPECT_EQ(svg.find("http"), svg.rfind("http"));
}

}  // namespace
}  // namespace tpn
