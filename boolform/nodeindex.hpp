// The index of the formula store: from a node's key to its number.
//
// Most nodes are the only ones, or the first, with a given larger operand: formulas grow upwards,
// and what is new is used next. Every operand therefore has a place for the first node of which it
// is the larger operand. Formulas are built state by state, so that place is in the cache, and that
// a node just made has no use yet is seen without any search. All further uses of an operand are
// hashed: open addressing, searched slot by slot.
//
// A place or slot is one 32-bit node number; the key itself stays in the node table and is compared
// there. A node costs its 12-byte key, 4 bytes for its first use, and 8 to 16 where it is hashed.
// An ordered map would cost about 64 bytes a node and a cache miss for every tree level.
//
// Invariants:
//  1. slots_ is a power of two in size, and at most half of it is taken: a search meets a free one.
//  2. A place or slot is 0 (free) or the number of a node; every node of the table has exactly one,
//     but for the copies of a repetition, which are found through the block they repeat, and for
//     what has been left out.
//  3. A node whose larger operand has a place, and no other node there, is there.

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "boolform/repetition.hpp"

class NodeIndex {
 public:
  // The place of `key`: holds its node number, or 0 where `nodes` has no such node; the caller then
  // appends the key to `nodes` and stores the new number in the place before the next call.
  // `nodes` is the table the index has been used with so far; node number firstNr + i is nodes[i].
  // Asserted: the larger operand is a variable or one of them.
  int& slot(const Triple& key, const std::vector<Triple>& nodes);

  // The caller has appended the nodes from nodes[begin] on without asking for a place, but for
  // those whose operands are both older. They get places only once one of them is a larger operand
  // of a key that is asked for, other than as the newest node of all, which has no use yet.
  void leaveOut(std::size_t begin, const std::vector<Triple>& nodes);

  // How many slots a search for `key` looks at: for those who judge the index.
  std::size_t searchLength(const Triple& key, const std::vector<Triple>& nodes);

  // The caller appends these copies to `nodes` next. One repetition can be known; asserted.
  void know(const Repetition& copies);
  const Repetition& copies() const { return copies_; }

  std::size_t capacity() const { return slots_.size(); }

  static constexpr int firstNr = firstNodeNr;  // the number of nodes[0]

 private:
  // Where a number stands, or would stand: a place, or a slot.
  struct Place {
    int* number;
    bool isSlot;
  };
  Place find(const Triple& key, const std::vector<Triple>& nodes);
  int* firstUse(std::size_t operand, const std::vector<Triple>& nodes);
  std::size_t firstSlot(const Triple& key) const;
  std::size_t slotOf(const Triple& key, const std::vector<Triple>& nodes) const;
  void add(std::size_t i, const std::vector<Triple>& nodes);
  void putIntoSlot(int nr, const std::vector<Triple>& nodes);
  void takeUp(std::size_t operand, const std::vector<Triple>& nodes);
  void grow(const std::vector<Triple>& nodes);

  std::vector<int> variableUses_;  // the places, by larger operand: variables
  std::vector<int> nodeUses_;      // and nodes, copies left out
  std::vector<int> slots_;
  std::size_t taken_ = 0;  // slots

  // Stretches of the node table, ascending.
  struct LeftOut {
    std::size_t begin;
    std::size_t end;
    bool has(std::size_t i, const std::vector<Triple>& nodes) const;
  };
  std::vector<LeftOut> leftOut_;

  Repetition copies_;
  int copyNr_ = 0;  // stands in for the place that a copy does not have
};
