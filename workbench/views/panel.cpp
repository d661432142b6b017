#include "workbench/views/panel.hpp"

#include <algorithm>

#include "workbench/views/graphpanel.hpp"
#include "workbench/views/settext.hpp"
#include "workbench/views/svgelements.hpp"
#include "workbench/views/tablepanel.hpp"
#include "workbench/views/viewparts.hpp"

namespace tpn {

namespace {

constexpr double margin = 12;
constexpr double nameFont = 13;
constexpr double whichFont = 10;
constexpr double whichLine = 13;
constexpr std::size_t mostInLine = 44;  // characters

}  // namespace

Panel::Panel(const Automaton& automaton) : automaton_(automaton) {
  for (const std::size_t p : automaton.processes)
    processes_ += (processes_.empty() ? "" : " ") + std::to_string(p + 1);
  const std::vector<std::string> names = setLines(automaton.name, mostInLine);
  const std::size_t count = automaton.processes.size();
  name_ = names[0] + (count > 1 ? "  \u00d7 " + std::to_string(count) : "");
  which_.assign(names.begin() + 1, names.end());
  if (automaton.which.empty()) return;
  for (const std::string& line : setLines(automaton.which, mostInLine)) which_.push_back(line);
}

double Panel::width() const {
  return std::max({bodyWidth(), setWidth(name_, nameFont), setWidth(which_, whichFont)}) +
         2 * margin;
}

double Panel::height() const {
  return margin + nameFont + static_cast<double>(which_.size()) * whichLine + 10 + bodyHeight() +
         margin;
}

std::string Panel::draw(double x, double y) const {
  std::string svg = "<g" + attribute("class", "panel") + attribute("data-process", processes_) +
                    shifted(x, y) + ">\n";
  svg += rectangle(0, 0, width(), height(),
                   attribute("class", "frame") + attribute("fill", "#fff") +
                       attribute("stroke", "#bbb") + attribute("rx", 8));
  double line = margin + nameFont - 2;
  svg += setText(margin, line, name_, nameFont, "#222", attribute("font-weight", "bold"));
  for (const std::string& words : which_)
    svg += setText(margin, line += whichLine + 1, words, whichFont, "#666");
  svg += "<g" + shifted((width() - bodyWidth()) / 2, height() - margin - bodyHeight()) + ">\n";
  return svg + body() + "</g>\n</g>\n";
}

std::string Panel::locationGroup(const DrawnLocation& location, const std::string& inside) const {
  const std::string about = location.name + (location.location == 0 ? ", initial" : "") +
                            (location.propositions.empty() ? "" : ": " + location.propositions);
  return "<g" + attribute("class", classesOf(automaton_, location.location)) +
         attribute("data-process", processes_) + attribute("data-location", location.location) +
         ">\n" + hint(about) + inside + "</g>\n";
}

std::unique_ptr<Panel> panelOf(const Automaton& automaton) {
  if (automaton.table.empty()) return std::make_unique<GraphPanel>(automaton);
  return std::make_unique<TablePanel>(automaton);
}

}  // namespace tpn
