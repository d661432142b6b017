#include "workbench/campaign/plots.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>
#include <vector>

#include "workbench/views/svgelements.hpp"

namespace tpn {

namespace {

struct Point {
  double x = 0;
  double seconds = 0;
};
using Curves = std::map<std::string, std::vector<Point>>;  // by what they are called

constexpr int left = 70;
constexpr int top = 40;
constexpr int width = 480;
constexpr int height = 300;
constexpr int lineHeight = 16;
constexpr double least = 0.001;  // seconds: what is faster is drawn there
// Told apart also by those who do not see red and green apart.
constexpr std::array<const char*, 7> colours{"#0072b2", "#d55e00", "#009e73", "#cc79a7",
                                             "#56b4e9", "#e69f00", "#222222"};

std::string secondsText(int decade) {
  return decade < 0 ? "0." + std::string(static_cast<std::size_t>(-decade - 1), '0') + "1"
                    : "1" + std::string(static_cast<std::size_t>(decade), '0');
}

// Where points lie on the paper.
class Axes {
 public:
  explicit Axes(const Curves& curves) {
    for (const auto& [name, points] : curves)
      for (const Point& p : points) {
        mostX_ = std::max(mostX_, p.x);
        lastDecade_ = std::max(lastDecade_,
                               static_cast<int>(std::ceil(std::log10(std::max(p.seconds, least)))));
      }
  }

  int x(double value) const { return left + static_cast<int>(std::lround(value / mostX_ * width)); }
  int y(double seconds) const {
    const double decades = lastDecade_ - firstDecade;
    const double part = (std::log10(std::max(seconds, least)) - firstDecade) / decades;
    return top + height - static_cast<int>(std::lround(part * height));
  }

  std::string drawn(const std::string& heading, const std::string& alongX) const {
    std::string text = label(left, 20, "heading", heading);
    for (int decade = firstDecade; decade <= lastDecade_; ++decade) {
      const int at = y(std::pow(10, decade));
      text += stroke(left, at, left + width, at, attribute("stroke", "#ddd"));
      text += label(left - 6, at + 4, "lane", secondsText(decade));
    }
    const long step = std::lround(std::ceil(mostX_ / 4));
    for (long value = 0; static_cast<double>(value) <= mostX_; value += step)
      text +=
          label(x(static_cast<double>(value)), top + height + 16, "mark", std::to_string(value));
    text += box(left, top, width, height, attribute("class", "axis"));
    text += label(left + width / 2, top + height + 34, "mark", alongX);
    return text + label(8, top - 8, "quiet", "seconds");
  }

 private:
  static constexpr int firstDecade = -3;
  double mostX_ = 1;
  int lastDecade_ = 0;
};

std::string polyline(const std::vector<Point>& points, const Axes& axes, const char* colour) {
  std::string corners;
  std::string dots;
  for (const Point& p : points) {
    const std::string x = std::to_string(axes.x(p.x));
    const std::string y = std::to_string(axes.y(p.seconds));
    corners.append(corners.empty() ? "" : " ").append(x).append(",").append(y);
    dots += "<circle" + attribute("cx", x) + attribute("cy", y) + attribute("r", 2) +
            attribute("fill", colour) + "/>\n";
  }
  return "<polyline" + attribute("points", corners) + attribute("fill", "none") +
         attribute("stroke", colour) + attribute("stroke-width", "1.5") + "/>\n" + dots;
}

std::string picture(const Curves& curves, const std::string& heading, const std::string& alongX) {
  const Axes axes(curves);
  const int legend = top + height + 50;
  const int bottom = legend + lineHeight * (static_cast<int>(curves.size()) + 1);
  std::string text = "<svg xmlns=\"http://www.w3.org/2000/svg\"" +
                     attribute("width", left + width + 30) + attribute("height", bottom) + ">\n" +
                     svgStyle + axes.drawn(heading, alongX);
  std::size_t index = 0;
  int y = legend;
  for (const auto& [name, points] : curves) {
    const char* const colour = colours.at(index++ % colours.size());
    text += polyline(points, axes, colour);
    text +=
        stroke(left, y, left + 20, y, attribute("stroke", colour) + attribute("stroke-width", 3));
    text += label(left + 26, y + 4, "place", name);
    y += lineHeight;
  }
  return text + "</svg>\n";
}

}  // namespace

std::string timeOverSize(const Collection& c) {
  std::map<std::string, std::map<std::int64_t, double>> slowest;
  for (const Row& row : c.rows) {
    if (!isSure(row)) continue;
    double& seconds =
        slowest[row.job.name + ", " + row.job.asked + ", " + row.job.engine][row.job.size];
    seconds = std::max(seconds, row.seconds);
  }
  Curves curves;
  for (const auto& [name, bySize] : slowest)
    for (const auto& [size, seconds] : bySize)
      curves[name].push_back({static_cast<double>(size), seconds});
  return picture(curves, "time over size", "size");
}

std::string cactus(const Collection& c) {
  std::map<std::string, std::vector<double>> times;
  for (const Row& row : c.rows)
    if (isSure(row)) times[row.job.engine].push_back(row.seconds);
  Curves curves;
  for (auto& [engine, seconds] : times) {
    std::sort(seconds.begin(), seconds.end());
    for (std::size_t i = 0; i < seconds.size(); ++i)
      curves[engine].push_back({static_cast<double>(i + 1), seconds[i]});
  }
  return picture(curves, "answers within a time each", "answers");
}

}  // namespace tpn
