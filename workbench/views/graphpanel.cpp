#include "workbench/views/graphpanel.hpp"

#include <algorithm>
#include <cmath>
#include <map>

#include "workbench/views/settext.hpp"
#include "workbench/views/svgelements.hpp"
#include "workbench/views/viewparts.hpp"

namespace tpn {

namespace {

constexpr double locationFont = 12;
constexpr double propositionFont = 10;
constexpr double captionFont = 10;
constexpr double captionLine = 13;
constexpr double headLength = 7;  // of an arrow
constexpr std::size_t mostCaptionLines = 12;
constexpr std::size_t mostHints = 60;

// In black where processes share it, as in pictures of runs.
struct ArrowInk {
  const char* line;
  const char* box;
  const char* border;
  const char* text;
};
constexpr ArrowInk sharedInk{"#222", "#222", "#222", "#fff"};
constexpr ArrowInk localInk{"#666", "#fff", "#999", "#222"};
const ArrowInk& inkOf(const Arrow& arrow) { return arrow.shared ? sharedInk : localInk; }

std::vector<std::string> linesOf(const DrawnArrow& arrow) {
  std::vector<std::string> lines;
  for (const Caption& caption : arrow.captions)
    for (const std::string& line : setLines(caption.words, 52)) lines.push_back(line);
  if (lines.size() <= mostCaptionLines) return lines;
  const std::size_t left = lines.size() - mostCaptionLines + 1;
  lines.resize(mostCaptionLines - 1);
  lines.push_back("... " + std::to_string(left) + " more");
  return lines;
}

std::string nameIn(const DrawnLocation& location) { return cut(location.name, 28); }
std::string propositionsIn(const DrawnLocation& location) { return cut(location.propositions, 44); }

Graph::Node sizeOf(const DrawnLocation& location) {
  const double width = std::max(setWidth(nameIn(location), locationFont),
                                setWidth(propositionsIn(location), propositionFont));
  return {std::max(width + 20, 40.0), location.propositions.empty() ? 26.0 : 39.0};
}

Graph::Node sizeOf(const DrawnArrow& arrow) {
  const std::vector<std::string> lines = linesOf(arrow);
  return {setWidth(lines, captionFont) + 10, static_cast<double>(lines.size()) * captionLine + 6};
}

// Without the head's length, so that the line ends behind it.
Point pulledBack(const Point& tip, const Point& from) {
  const double length = std::hypot(tip.x - from.x, tip.y - from.y);
  if (length < 0.1) return tip;
  const double share = std::min(headLength - 1, length) / length;
  return {tip.x - (tip.x - from.x) * share, tip.y - (tip.y - from.y) * share};
}

std::string pair(const Point& p) { return decimal(p.x) + " " + decimal(p.y); }

std::string pathOf(std::vector<Point> curve, bool head, const std::string& more) {
  if (curve.size() < 4) return "";
  if (head) curve.back() = pulledBack(curve.back(), curve[curve.size() - 2]);
  std::string path = "M" + pair(curve[0]) + " C";
  for (std::size_t i = 1; i < curve.size(); ++i) path += " " + pair(curve[i]);
  return "<path" + attribute("d", path) + attribute("fill", "none") + more + "/>\n";
}

std::string headOf(const std::vector<Point>& curve, const char* colour) {
  if (curve.size() < 4) return "";
  const Point tip = curve.back();
  Point from = curve[curve.size() - 2];
  if (std::hypot(tip.x - from.x, tip.y - from.y) < 0.1) from = curve[curve.size() - 3];
  const double length = std::max(std::hypot(tip.x - from.x, tip.y - from.y), 0.1);
  const Point along{(tip.x - from.x) / length, (tip.y - from.y) / length};
  const Point base{tip.x - along.x * headLength, tip.y - along.y * headLength};
  constexpr double half = 3.2;
  const Point left{base.x - along.y * half, base.y + along.x * half};
  const Point right{base.x + along.y * half, base.y - along.x * half};
  return "<polygon" + attribute("points", pair(tip) + " " + pair(left) + " " + pair(right)) +
         attribute("fill", colour) + "/>\n";
}

}  // namespace

GraphPanel::GraphPanel(const Automaton& automaton) : Panel(automaton) {
  graph_.nodes.push_back({8, 8});
  std::map<int, std::size_t> nodes;
  for (const DrawnLocation& location : automaton.locations) {
    nodes[location.location] = graph_.nodes.size();
    graph_.nodes.push_back(sizeOf(location));
  }
  graph_.edges.emplace_back(0, 1);
  for (const DrawnArrow& arrow : automaton.arrows) {
    const std::size_t middle = graph_.nodes.size();
    graph_.nodes.push_back(sizeOf(arrow));
    graph_.edges.emplace_back(nodes.at(arrow.arrow.source), middle);
    graph_.edges.emplace_back(middle, nodes.at(arrow.arrow.target));
  }
}

std::string GraphPanel::body() const {
  std::string svg = "<circle" + attribute("cx", decimal(layout_.centres[0].x)) +
                    attribute("cy", decimal(layout_.centres[0].y)) + attribute("r", 4) +
                    attribute("fill", "#222") + "/>\n";
  svg += pathOf(layout_.curves[0], true, attribute("stroke", "#666")) +
         headOf(layout_.curves[0], "#666");
  for (std::size_t i = 0; i < automaton().arrows.size(); ++i) svg += drawArrow(i);
  for (std::size_t i = 0; i < automaton().locations.size(); ++i) svg += drawLocation(i);
  return svg;
}

std::string GraphPanel::drawArrow(std::size_t index) const {
  const Arrow& arrow = automaton().arrows[index].arrow;
  const ArrowInk& ink = inkOf(arrow);
  const std::string look = attribute("stroke", ink.line) +
                           attribute("stroke-width", arrow.shared ? "1.8" : "1.2") +
                           (arrow.puts    ? attribute("stroke-dasharray", "2 3")
                            : arrow.reads ? attribute("stroke-dasharray", "6 3")
                                          : "");
  const std::vector<Point>& to = layout_.curves[1 + 2 * index];
  const std::vector<Point>& from = layout_.curves[2 + 2 * index];
  std::string about;
  std::size_t left = mostHints;
  for (const Caption& caption : automaton().arrows[index].captions) {
    if (left == 0) break;
    const std::size_t most = std::min(left, caption.names.size());
    about += (about.empty() ? "" : "; ") + caption.words;
    if (most > 1) about += ": " + shortened(caption.names, ", ", most);
    left -= most;
  }
  std::string classes = arrow.shared ? "shared" : "local";
  for (const Caption& caption : automaton().arrows[index].captions)
    classes += " " + classesOf(caption);
  return "<g" + attribute("class", classes) + ">\n" + hint(about) + pathOf(to, false, look) +
         pathOf(from, true, look) + headOf(from, ink.line) + drawCaptions(index) + "</g>\n";
}

std::string GraphPanel::drawCaptions(std::size_t index) const {
  const ArrowInk& ink = inkOf(automaton().arrows[index].arrow);
  const Graph::Node& size = graph_.nodes[arrowNode(index)];
  const Point& centre = layout_.centres[arrowNode(index)];
  const double left = centre.x - size.width / 2;
  const double top = centre.y - size.height / 2;
  std::string svg =
      rectangle(left, top, size.width, size.height,
                attribute("fill", ink.box) + attribute("stroke", ink.border) + attribute("rx", 4));
  double y = top + 13;
  for (const std::string& line : linesOf(automaton().arrows[index])) {
    svg += setText(left + 5, y, line, captionFont, ink.text);
    y += captionLine;
  }
  return svg;
}

std::string GraphPanel::drawLocation(std::size_t rank) const {
  const DrawnLocation& location = automaton().locations[rank];
  const Graph::Node& size = graph_.nodes[1 + rank];
  const Point& centre = layout_.centres[1 + rank];
  const double top = centre.y - size.height / 2;
  const bool initial = location.location == 0;
  std::string svg =
      rectangle(centre.x - size.width / 2, top, size.width, size.height,
                attribute("fill", location.colour.fill) + attribute("stroke", "#222") +
                    attribute("stroke-width", initial ? "2.4" : "1") + attribute("rx", 10));
  const std::string name = nameIn(location);
  const std::string propositions = propositionsIn(location);
  svg += setText(centre.x - setWidth(name, locationFont) / 2, top + 17, name, locationFont,
                 location.colour.ink);
  if (!propositions.empty())
    svg += setText(centre.x - setWidth(propositions, propositionFont) / 2, top + 31, propositions,
                   propositionFont, location.colour.ink);
  return locationGroup(location, svg);
}

}  // namespace tpn
