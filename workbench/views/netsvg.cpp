// A network as a picture: a panel a process, side by side in rows.

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "workbench/base/printable.hpp"
#include "workbench/views/automaton.hpp"
#include "workbench/views/panel.hpp"
#include "workbench/views/settext.hpp"
#include "workbench/views/svgelements.hpp"
#include "workbench/views/viewparts.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

namespace {

constexpr double spacing = 14;
constexpr double titleFont = 16;
constexpr double header = 46;
constexpr double footer = 30;
constexpr double leastRow = 1100;

using Panels = std::vector<std::unique_ptr<Panel>>;

Panels panelsOf(const std::vector<Automaton>& automata) {
  Panels panels;
  std::vector<Graph> graphs;
  for (const Automaton& automaton : automata) {
    panels.push_back(panelOf(automaton));
    if (const Graph* graph = panels.back()->graph()) graphs.push_back(*graph);
  }
  std::vector<Layout> layouts = laidOut(graphs);
  std::size_t next = 0;
  for (const auto& panel : panels)
    if (panel->graph() != nullptr) panel->place(std::move(layouts[next++]));
  return panels;
}

// The width that rows are filled up to: about 8 to 5, and the widest panel fits.
double rowWidth(const Panels& panels) {
  double area = 0;
  double widest = 0;
  for (const auto& panel : panels) {
    area += (panel->width() + spacing) * (panel->height() + spacing);
    widest = std::max(widest, panel->width());
  }
  return std::max({widest, leastRow, std::sqrt(area * 8 / 5) * 1.1});
}

struct Placed {
  std::vector<Point> corners;  // by panel
  double width = 0;
  double height = 0;
};

Placed inRows(const Panels& panels) {
  const double most = rowWidth(panels);
  Placed placed;
  Point at{spacing, header};
  double rowHeight = 0;
  for (const auto& panel : panels) {
    if (at.x > spacing && at.x + panel->width() > spacing + most) {
      at = {spacing, at.y + rowHeight + spacing};
      rowHeight = 0;
    }
    placed.corners.push_back(at);
    at.x += panel->width() + spacing;
    rowHeight = std::max(rowHeight, panel->height());
    placed.width = std::max(placed.width, at.x);
  }
  placed.height = at.y + rowHeight + spacing + footer;
  return placed;
}

// What the signs say that are there.
std::string legend(const std::vector<Automaton>& automata) {
  bool star = false;
  bool alike = false;
  bool puts = false;
  bool reads = false;
  const auto look = [&](const Arrow& arrow, const Caption& caption) {
    star = star || caption.words.find('*') != std::string::npos;
    puts = puts || arrow.puts;
    reads = reads || arrow.reads;
  };
  for (const Automaton& automaton : automata) {
    alike = alike || automaton.processes.size() > 1;
    for (const DrawnArrow& arrow : automaton.arrows)
      for (const Caption& caption : arrow.captions) look(arrow.arrow, caption);
    for (const TableRow& row : automaton.table)
      for (const Entry& entry : row.entries) look(entry.arrow, entry.caption);
  }
  std::string words = "box: transitions, when, and with whom; black where processes share them";
  if (star) words += "  \u00b7  *: any number";
  if (alike) words += "  \u00b7  \u00d7: processes that are alike, drawn once";
  if (reads) words += "  \u00b7  dashed: a token is only read";
  if (puts) words += "  \u00b7  dotted: a token is put down";
  return words;
}

}  // namespace

std::string networkSvg(const Network& net, const Look& look) {
  const std::vector<Automaton> automata = automataOf(net, look.all);
  const Panels panels = panelsOf(automata);
  Placed placed = inRows(panels);
  const std::string title = cut(printable(net.title), 120);
  const std::string words = legend(automata);
  placed.width = std::max(
      {placed.width, setWidth(title, titleFont) + 2 * spacing, setWidth(words, 10) + 2 * spacing});
  const std::string width = decimal(placed.width);
  const std::string height = decimal(placed.height);
  std::string svg = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg" +
                    attribute("xmlns", "http://www.w3.org/2000/svg") +
                    attribute("class", "network") + attribute("width", width) +
                    attribute("height", height) +
                    attribute("viewBox", "0 0 " + width + " " + height) +
                    attribute("font-family", setFonts) + ">\n" + hint(net.title);
  svg += rectangle(0, 0, placed.width, placed.height,
                   attribute("class", "paper") + attribute("fill", "#f6f6f6"));
  svg += setText(spacing, 28, title, titleFont, "#222",
                 attribute("class", "heading") + attribute("font-weight", "bold"));
  for (std::size_t i = 0; i < panels.size(); ++i)
    svg += panels[i]->draw(placed.corners[i].x, placed.corners[i].y);
  svg += setText(spacing, placed.height - 16, words, 10, "#666", attribute("class", "legend"));
  return svg + "</svg>\n";
}

}  // namespace tpn
