// A process, or those that are alike, as a part of a network's picture: a frame with a heading, and
// in it an automaton (graphpanel) or a table (tablepanel).
//
// Pages find what a state and a step are about by classes (automaton.hpp: classesOf) and by the
// attributes data-process, the numbers of all processes that an element stands for with blanks
// between them, and data-location. Looks are attributes of the elements, which any style sheet
// overrides; no element has an id or a style.

#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "workbench/views/automaton.hpp"
#include "workbench/views/dotlayout.hpp"

namespace tpn {

class Panel {
 public:
  explicit Panel(const Automaton& automaton);
  virtual ~Panel() = default;
  Panel(const Panel&) = delete;
  Panel& operator=(const Panel&) = delete;

  // What dot is to lay out; null where there is nothing. The layout has to be there before the rest
  // is asked for.
  virtual const Graph* graph() const { return nullptr; }
  virtual void place(Layout /*layout*/) {}  // NOLINT(performance-unnecessary-value-param)

  double width() const;
  double height() const;
  std::string draw(double x, double y) const;  // its top left corner in the picture

 protected:
  virtual double bodyWidth() const = 0;
  virtual double bodyHeight() const = 0;
  virtual std::string body() const = 0;  // from (0, 0)

  const Automaton& automaton() const { return automaton_; }
  // Around a location that is drawn: an element that says which it is, and all of it on hovering.
  std::string locationGroup(const DrawnLocation& location, const std::string& inside) const;

 private:
  const Automaton& automaton_;
  std::string processes_;           // numbers
  std::string name_;                // "P1 .. P20"
  std::vector<std::string> which_;  // lines below it
};

std::unique_ptr<Panel> panelOf(const Automaton& automaton);

}  // namespace tpn
