#include "workbench/views/tablepanel.hpp"

#include <algorithm>
#include <cmath>

#include "workbench/views/settext.hpp"
#include "workbench/views/svgelements.hpp"
#include "workbench/views/viewparts.hpp"

namespace tpn {

namespace {

constexpr double font = 10;
constexpr double lineHeight = 17;
constexpr double innerLine = 13;  // of a caption of several
constexpr double rowGap = 5;
constexpr double cellGap = 12;
constexpr double columnGap = 28;
constexpr double highest = 900;  // of a column, unless a row is higher

std::string labelOf(const DrawnLocation& location) {
  return cut(location.name, 28) +
         (location.propositions.empty() ? "" : "  " + cut(location.propositions, 32));
}
std::vector<std::string> captionOf(const Entry& entry) { return setLines(entry.caption.words, 64); }

double heightOf(const Entry& entry) {
  return lineHeight + static_cast<double>(captionOf(entry).size() - 1) * innerLine;
}

double heightOf(const TableRow& row) {
  double height = 0;
  for (const Entry& entry : row.entries) height += heightOf(entry);
  return std::max(height, lineHeight) + rowGap;
}

std::string sourceOf(const Entry& entry) {
  return cut(entry.from, 32) + (entry.arrow.puts ? ", put" : entry.arrow.reads ? ", read" : "");
}

}  // namespace

TablePanel::TablePanel(const Automaton& automaton) : Panel(automaton) {
  for (const TableRow& row : automaton.table) {
    locationWidth_ = std::max(locationWidth_, setWidth(labelOf(row.location), font) + 16);
    for (const Entry& entry : row.entries) {
      sourceWidth_ = std::max(sourceWidth_, setWidth(sourceOf(entry), font));
      captionWidth_ = std::max(captionWidth_, setWidth(captionOf(entry), font) + 10);
    }
  }
  setColumns();
}

// As many as are needed, and then of about the same height.
void TablePanel::setColumns() {
  double all = 0;
  double highestRow = 0;
  for (const TableRow& row : automaton().table) {
    all += heightOf(row);
    highestRow = std::max(highestRow, heightOf(row));
  }
  const double wanted = all / std::ceil(all / highest) + highestRow;
  height_ = all <= highest ? all : std::min(wanted, std::max(highest, highestRow));
  double top = 0;
  for (const TableRow& row : automaton().table) {
    if (top > 0 && top + heightOf(row) > height_) {
      ++columns_;
      top = 0;
    }
    top += heightOf(row);
  }
}

double TablePanel::columnWidth() const {
  return locationWidth_ + cellGap + sourceWidth_ + cellGap + captionWidth_;
}

double TablePanel::bodyWidth() const {
  const auto count = static_cast<double>(columns_);
  return count * columnWidth() + (count - 1) * columnGap;
}

double TablePanel::bodyHeight() const { return height_; }

std::string TablePanel::body() const {
  std::string svg;
  double left = 0;
  double top = 0;
  for (const TableRow& row : automaton().table) {
    if (top > 0 && top + heightOf(row) > height_) {
      left += columnWidth() + columnGap;
      top = 0;
    }
    svg += drawRow(row, left, top);
    top += heightOf(row);
  }
  return svg;
}

std::string TablePanel::drawRow(const TableRow& row, double left, double top) const {
  const DrawnLocation& location = row.location;
  const bool initial = location.location == 0;
  std::string chip =
      rectangle(left, top + 1, locationWidth_, heightOf(row) - rowGap - 2,
                attribute("fill", location.colour.fill) + attribute("stroke", "#222") +
                    attribute("stroke-width", initial ? "2.4" : "1") + attribute("rx", 5));
  const double middle = top + (heightOf(row) - rowGap) / 2;
  chip += setText(left + 8, middle + 3.5, labelOf(location), font, location.colour.ink);
  std::string svg = locationGroup(location, chip);
  for (const Entry& entry : row.entries) {
    svg += drawEntry(entry, left + locationWidth_ + cellGap, top);
    top += heightOf(entry);
  }
  return svg;
}

std::string TablePanel::drawEntry(const Entry& entry, double left, double top) const {
  constexpr std::size_t mostHints = 60;
  const double baseline = top + 12;
  const std::vector<std::string> caption = captionOf(entry);
  const double captionLeft = left + sourceWidth_ + cellGap;
  const bool shared = entry.arrow.shared;
  std::string svg = "<g" +
                    attribute("class", (shared ? "shared " : "local ") + classesOf(entry.caption)) +
                    ">\n" +
                    hint(entry.from + ": " + entry.caption.words + ": " +
                         shortened(entry.caption.names, ", ", mostHints));
  svg += setText(left, baseline, sourceOf(entry), font, "#444");
  svg += rectangle(captionLeft, top + 1, setWidth(caption, font) + 10, heightOf(entry) - 2,
                   attribute("fill", shared ? "#222" : "#fff") +
                       attribute("stroke", shared ? "#222" : "#999") + attribute("rx", 4));
  for (std::size_t i = 0; i < caption.size(); ++i)
    svg += setText(captionLeft + 5, baseline + static_cast<double>(i) * innerLine, caption[i], font,
                   shared ? "#fff" : "#222");
  return svg + "</g>\n";
}

}  // namespace tpn
