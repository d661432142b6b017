#include "workbench/views/textblocks.hpp"

#include <algorithm>

#include "workbench/base/textwidth.hpp"
#include "workbench/views/colours.hpp"
#include "workbench/views/viewparts.hpp"

namespace tpn {

namespace {

constexpr std::size_t blockGap = 2;
constexpr std::size_t leastFolded = 36;  // of a column of folded cells beside others
using Lines = std::vector<std::string>;

class Blocks {
 public:
  Blocks(const TextTable& table, std::size_t width, bool colour)
      : table_(table), width_(width), colour_(colour) {
    for (const TextColumn& column : table.columns) widths_.push_back(naturalWidth(column));
  }

  std::string text() {
    std::string result;
    std::vector<std::size_t> block{0};
    std::size_t used = widths_[0];
    // Of a column by itself, behind the head.
    const std::size_t alone = roomBehind(used);
    for (std::size_t c = 1; c < widths_.size(); ++c) {
      const bool mustFold = widths_[c] > alone;
      const bool canFoldHere = mustFold && roomBehind(used) >= leastFolded;
      if (block.size() > 1 && !fits(used, c) && !canFoldHere) {
        result += blockText(block) + "\n";
        block = {0};
        used = widths_[0];
      }
      if (mustFold) widths_[c] = roomBehind(used);
      block.push_back(c);
      used += blockGap + widths_[c];
    }
    return result + blockText(block);
  }

 private:
  static std::size_t naturalWidth(const TextColumn& column) {
    std::size_t widest = displayedWidth(column.heading);
    for (const auto& words : column.cells)
      widest = std::max(widest, displayedWidth(joined(words, " ")));
    return widest;
  }
  std::size_t markWidth() const {
    return table_.marked ? blockGap + displayedWidth(table_.mark) : 0;
  }

  std::size_t roomBehind(std::size_t used) const {
    const std::size_t taken = used + blockGap + markWidth();
    return taken < width_ ? width_ - taken : 1;
  }

  // The mark has to fit behind the row that has it, however wide others are.
  bool fits(std::size_t used, std::size_t column) const {
    if (used + blockGap + widths_[column] > width_) return false;
    if (!table_.marked) return true;
    const auto& words = table_.columns[column].cells[*table_.marked];
    const std::size_t cell = displayedWidth(joined(words, " "));
    const bool right = table_.columns[column].right;
    return used + blockGap + (right ? widths_[column] : cell) + markWidth() <= width_;
  }

  std::string blockText(const std::vector<std::size_t>& block) const {
    std::vector<Lines> headings;
    for (const std::size_t c : block) headings.push_back({table_.columns[c].heading});
    std::string result = coloured(rowText(block, headings, ""), Ink::heading, colour_) + "\n";
    for (std::size_t row = 0; row < table_.columns[0].cells.size(); ++row) {
      std::vector<Lines> cells;
      for (const std::size_t c : block)
        cells.push_back(folded(table_.columns[c].cells[row], widths_[c]));
      const bool marked = table_.marked == row;
      result += coloured(rowText(block, cells, marked ? table_.mark : ""),
                         marked ? Ink::goal : Ink::plain, colour_) +
                "\n";
    }
    return result;
  }

  std::string rowText(const std::vector<std::size_t>& block, const std::vector<Lines>& cells,
                      const std::string& mark) const {
    std::size_t height = 1;
    for (const Lines& cell : cells) height = std::max(height, cell.size());
    std::string result;
    for (std::size_t line = 0; line < height; ++line) {
      std::string text;
      for (std::size_t i = 0; i < block.size(); ++i) {
        const std::string cell = line < cells[i].size() ? cells[i][line] : "";
        const bool last = i + 1 == block.size();
        if (i > 0) text += std::string(blockGap, ' ');
        text += table_.columns[block[i]].right ? rightPadded(cell, widths_[block[i]])
                : last                         ? cell
                                               : padded(cell, widths_[block[i]]);
      }
      text.erase(text.find_last_not_of(' ') + 1);
      if (line == 0 && !mark.empty()) text += std::string(blockGap, ' ') + mark;
      result += (line > 0 ? "\n" : "") + text;
    }
    return result;
  }

  const TextTable& table_;
  std::size_t width_;
  bool colour_;
  std::vector<std::size_t> widths_;  // of the columns
};

}  // namespace

std::string textBlocks(const TextTable& table, std::size_t width, bool colour) {
  return Blocks(table, width, colour).text();
}

}  // namespace tpn
