// Graphs laid out by Graphviz's dot, and drawn by us: so what is written in a box is as wide as we
// say, whatever fonts dot knows. All graphs go to one dot, and equal ones once. Lengths in pixels,
// from the top left corner of each graph.

#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace tpn {

struct Point {
  double x = 0;
  double y = 0;
};

struct Graph {
  struct Node {
    double width = 0;
    double height = 0;
  };
  std::vector<Node> nodes;
  std::vector<std::pair<std::size_t, std::size_t>> edges;  // each pair once
};

struct Layout {
  double width = 0;
  double height = 0;
  std::vector<Point> centres;              // of the nodes
  std::vector<std::vector<Point>> curves;  // of the edges: cubic, 1 + 3 n points
};

// Throws std::runtime_error with the reason, one line.
std::vector<Layout> laidOut(const std::vector<Graph>& graphs);

}  // namespace tpn
