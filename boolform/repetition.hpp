// Nodes that repeat: a block of nodes, followed in the node table by copies of it, each moved up by
// the same distance from the one before. A path's steps make such blocks: the same formulas about
// the next three states, and the next, and so on.
//
// A copy needs no place in the store's index: its key, moved down far enough, is the key of a node
// of the block.

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <vector>

#include "boolform/node.hpp"

// How far a formula is moved up (or down, where negative): its variables and its nodes.
struct Distance {
  int variables = 0;
  int nodes = 0;

  int moved(int operand) const {
    const int by = isNodeNr(operand) ? nodes : variables;
    return operand < 0 ? operand - by : operand + by;
  }
  Triple moved(const Triple& key) const { return {key.op, moved(key.left), moved(key.right)}; }

  friend Distance operator*(int times, const Distance& d) {
    return {times * d.variables, times * d.nodes};
  }
};

class Repetition {
 public:
  Repetition() = default;  // of nothing

  // The last distance.nodes elements of `nodes` are the block; `times` copies will follow, and the
  // first `rest` nodes of one more.
  Repetition(const Distance& distance, int times, const std::vector<Triple>& nodes, int rest = 0);

  // The copies' places in the node table: begin() .. begin() + size() - 1; the first ones take up
  // size(copies).
  std::size_t begin() const { return begin_; }
  std::size_t size() const { return size(times_) + static_cast<std::size_t>(rest_); }
  std::size_t size(int copies) const;
  int times() const { return times_; }  // whole ones
  const Distance& distance() const { return distance_; }

  // The number of the copy with this key, or 0. nodeWith(key) tells the number of the node with a
  // key, or 0 where that is unknown; it must know the nodes of the block.
  template <class NodeWith>
  int find(const Triple& key, NodeWith nodeWith) const;

 private:
  int times_ = 0;
  int rest_ = 0;  // at most distance_.nodes
  Distance distance_;
  std::size_t begin_ = 0;

  // By kind, variables or nodes: the least operand of the block, and the greatest that is the
  // larger one of its key.
  struct Range {
    int least = std::numeric_limits<int>::max();
    int greatest = 0;
  };
  Range variables_;
  Range nodes_;

  bool inBlock(int nr) const {
    const int end = firstNodeNr + static_cast<int>(begin_);
    return end - distance_.nodes <= nr && nr < end;
  }

  // The number of the last node copied.
  int last() const { return firstNodeNr - 1 + static_cast<int>(begin_ + size()); }

  // The last copy that could have this operand.
  int lastCopyWith(int operand) const {
    const int size = std::abs(operand);
    if (isNodeNr(size)) return (size - nodes_.least) / distance_.nodes;
    return (size - variables_.least) / distance_.variables;
  }
};

inline std::size_t Repetition::size(int copies) const {
  return static_cast<std::size_t>(copies) * static_cast<std::size_t>(distance_.nodes);
}

// Only the two or three copies whose larger operands reach up to the key's come into question.
template <class NodeWith>
int Repetition::find(const Triple& key, NodeWith nodeWith) const {
  if (size() == 0) return 0;
  const int larger = std::max(std::abs(key.left), std::abs(key.right));
  const int step = isNodeNr(larger) ? distance_.nodes : distance_.variables;
  const int greatest = isNodeNr(larger) ? nodes_.greatest : variables_.greatest;
  int copy = std::min({times_ + 1, lastCopyWith(key.left), lastCopyWith(key.right)});
  for (; copy > 0 && greatest + copy * step >= larger; --copy) {
    const Distance up = copy * distance_;
    const int nr = nodeWith((-1 * up).moved(key));
    if (inBlock(nr) && nr + up.nodes <= last()) return nr + up.nodes;
  }
  return 0;
}
