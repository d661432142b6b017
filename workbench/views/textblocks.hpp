// A table as text that fits a width: columns that do not fit beside the others go into blocks of
// their own below, each with the first column as its head. Where a cell is wider than a line even
// so, those of its column are folded between their words, and a word that is wider is broken: no
// line is wider than asked for.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tpn {

struct TextColumn {
  std::string heading;
  bool right = false;                           // where its cells stand
  std::vector<std::vector<std::string>> cells;  // by row: the words of a cell
};

struct TextTable {
  std::vector<TextColumn> columns;
  std::optional<std::size_t> marked;  // a row, with the mark behind it in each block
  std::string mark;
};

// Lines; blocks have an empty line between them.
std::string textBlocks(const TextTable& table, std::size_t width, bool colour);

}  // namespace tpn
