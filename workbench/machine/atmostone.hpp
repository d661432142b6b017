// At most one of some literals holds, without listing all pairs: in a square each has a row and a
// column, and at most one row and at most one column is used. About two clauses and little more
// than no variables a literal; a chain of sums took three times as long on fischer-swapped 30.

#pragma once

#include <cstddef>
#include <vector>

namespace tpn {

// Pairs of literals are the strongest way to say it, and the longest.
inline bool fewEnoughForPairs(std::size_t literals) { return literals <= 128; }

// `Sink` has fresh(), a new variable, and add(clause).
template <class Sink>
void addAtMostOne(Sink& sink, const std::vector<int>& literals) {
  if (literals.size() <= 5) {
    for (std::size_t i = 0; i < literals.size(); ++i)
      for (std::size_t j = 0; j < i; ++j) sink.add({-literals[j], -literals[i]});
    return;
  }
  std::size_t side = 1;
  while (side * side < literals.size()) ++side;
  std::vector<int> rows;
  std::vector<int> columns;
  for (std::size_t i = 0; i < literals.size(); i += side) rows.push_back(sink.fresh());
  for (std::size_t i = 0; i < side; ++i) columns.push_back(sink.fresh());
  for (std::size_t i = 0; i < literals.size(); ++i) {
    sink.add({-literals[i], rows[i / side]});
    sink.add({-literals[i], columns[i % side]});
  }
  addAtMostOne(sink, rows);
  addAtMostOne(sink, columns);
}

}  // namespace tpn
