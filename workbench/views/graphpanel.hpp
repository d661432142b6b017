// An automaton as a graph. The words of an arrow are a node in its middle: so they stay clear of
// everything else, and two arrows in opposite directions stay two.

#pragma once

#include <string>
#include <vector>

#include "workbench/views/panel.hpp"

namespace tpn {

class GraphPanel : public Panel {
 public:
  explicit GraphPanel(const Automaton& automaton);

  const Graph* graph() const override { return &graph_; }
  void place(Layout layout) override { layout_ = std::move(layout); }

 protected:
  double bodyWidth() const override { return layout_.width; }
  double bodyHeight() const override { return layout_.height; }
  std::string body() const override;

 private:
  std::size_t arrowNode(std::size_t arrow) const {
    return 1 + automaton().locations.size() + arrow;
  }
  std::string drawArrow(std::size_t index) const;
  std::string drawCaptions(std::size_t index) const;
  std::string drawLocation(std::size_t rank) const;

  Graph graph_;  // nodes: where it starts, locations, arrows; edges: the first one, two an arrow
  Layout layout_;
};

}  // namespace tpn
