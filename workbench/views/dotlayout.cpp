// dot's "plain" format: graph, node and edge lines of words, until a line "stop"; inches, y
// upwards.

#include "workbench/views/dotlayout.hpp"

#include <map>
#include <sstream>
#include <stdexcept>
#include <string>

#include "workbench/base/filter.hpp"
#include "workbench/base/programpath.hpp"

namespace tpn {

namespace {

constexpr double pixelsPerInch = 72;

std::string dotText(const Graph& graph) {
  std::ostringstream dot;
  dot.imbue(std::locale::classic());
  dot << "digraph {\n  graph [ranksep=0.22, nodesep=0.2];\n"
         "  node [shape=box, fixedsize=true, label=\"\"];\n  edge [dir=none];\n";
  for (std::size_t i = 0; i < graph.nodes.size(); ++i)
    dot << "  n" << i << " [width=" << graph.nodes[i].width / pixelsPerInch
        << ", height=" << graph.nodes[i].height / pixelsPerInch << "];\n";
  for (const auto& [from, to] : graph.edges) dot << "  n" << from << " -> n" << to << ";\n";
  dot << "}\n";
  return dot.str();
}

class PlainReader {
 public:
  explicit PlainReader(const std::string& text) : in_(text) { in_.imbue(std::locale::classic()); }

  Layout next(const Graph& graph) {
    Layout layout;
    layout.centres.resize(graph.nodes.size());
    layout.curves.resize(graph.edges.size());
    std::map<std::pair<std::size_t, std::size_t>, std::size_t> places;
    for (std::size_t i = 0; i < graph.edges.size(); ++i) places[graph.edges[i]] = i;
    for (std::string kind; word(kind), kind != "stop"; skipLine()) {
      if (kind == "graph") {
        number();  // the scale
        layout.width = pixels();
        height_ = layout.height = pixels();
      } else if (kind == "node") {
        const std::size_t at = node();
        layout.centres.at(at) = point();
      } else if (kind == "edge") {
        const std::size_t from = node();
        const std::size_t to = node();
        std::vector<Point>& curve = layout.curves.at(places.at({from, to}));
        curve.resize(static_cast<std::size_t>(number()));
        for (Point& p : curve) p = point();
      }
    }
    skipLine();
    return layout;
  }

 private:
  void word(std::string& into) {
    if (!(in_ >> into)) throw std::runtime_error("dot stopped short");
  }
  double number() {
    double value = 0;
    if (!(in_ >> value)) throw std::runtime_error("dot printed no number");
    return value;
  }
  double pixels() { return number() * pixelsPerInch; }
  Point point() {
    const double x = pixels();
    return {x, height_ - pixels()};
  }
  std::size_t node() {
    std::string name;
    word(name);
    return std::stoul(name.substr(1));
  }
  void skipLine() {
    std::string rest;
    std::getline(in_, rest);
  }

  std::istringstream in_;
  double height_ = 0;
};

std::string plainOf(const std::string& input) {
  try {
    return filtered({"dot", "-Tplain"}, input);
  } catch (const std::runtime_error& error) {
    throw std::runtime_error(std::string("no picture: ") + error.what());
  }
}

}  // namespace

std::vector<Layout> laidOut(const std::vector<Graph>& graphs) {
  if (graphs.empty()) return {};
  if (programPath("dot").empty())
    throw std::runtime_error("there is no dot to draw with: install the package graphviz");
  std::map<std::string, std::size_t> places;  // among those that dot gets
  std::vector<std::size_t> chosen;            // of these: the graph that it is
  std::vector<std::size_t> which;
  std::string input;
  for (std::size_t i = 0; i < graphs.size(); ++i) {
    const std::string text = dotText(graphs[i]);
    const auto [place, isNew] = places.try_emplace(text, chosen.size());
    which.push_back(place->second);
    if (!isNew) continue;
    chosen.push_back(i);
    input += text;
  }
  PlainReader reader(plainOf(input));
  std::vector<Layout> distinct;
  distinct.reserve(chosen.size());
  for (const std::size_t i : chosen) distinct.push_back(reader.next(graphs[i]));
  std::vector<Layout> result;
  result.reserve(which.size());
  for (const std::size_t i : which) result.push_back(distinct[i]);
  return result;
}

}  // namespace tpn
