// The index of the formula store: from a node's key to its number.
//
// Open addressing over the node table. A slot is one 32-bit node number; the key itself stays in
// the table and is compared there, so a node costs its 12-byte key and between 8 and 16 bytes of
// index. An ordered map would cost about 64 bytes a node and a cache miss for every tree level.
//
// A search looks at a few slots near the place of the key's larger operand first, then goes on from
// a hashed place. Formulas are built state by state, so the near slots are in the cache, where
// hashed ones are not once the table outgrows it. That counts where a path's rotations cannot be
// copied: a whole run then takes two thirds of the time (docs/performance.md). The hashed places
// are needed all the same: many nodes may share one larger operand.
//
// The near places alone fill the table up to the newest node evenly, to a half; hashed ones and
// those of variables come on top, so that parts of the table are full while others are empty. The
// hashed search therefore takes steps of a length of its own, which leave a full part at once. With
// steps of one slot it crossed them whole, and a property of ten thousand operators cost 28 times
// what its clauses cost to write.
//
// Invariants:
//  1. slots_ is empty or a power of two in size.
//  2. A slot is 0 (free) or the number of a node; every node of the table has exactly one slot,
//     but for the copies of a repetition, which are found through the block they repeat.
//  3. At most half of the slots are taken, and the steps of a hashed search lead to all of them: it
//     meets a free one.

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "boolform/repetition.hpp"

class NodeIndex {
 public:
  // The slot of `key`: holds its node number, or 0 where `nodes` has no such node; the caller then
  // appends the key to `nodes` and stores the new number in the slot before the next call.
  // `nodes` is the table the index has been used with so far; node number firstNr + i is nodes[i].
  int& slot(const Triple& key, const std::vector<Triple>& nodes);

  // How many slots a search for `key` looks at: for those who judge the index.
  std::size_t searchLength(const Triple& key, const std::vector<Triple>& nodes) const;

  // The caller appends these copies to `nodes` next. One repetition can be known; asserted.
  void know(const Repetition& copies);
  const Repetition& copies() const { return copies_; }

  // Makes room for `count` nodes in all, so that no call of slot() up to there rebuilds the table.
  void reserve(std::size_t count, const std::vector<Triple>& nodes);

  std::size_t capacity() const { return slots_.size(); }

  static constexpr int firstNr = firstNodeNr;  // the number of nodes[0]

 private:
  std::uint64_t hash(const Triple& key) const;
  std::size_t near(const Triple& key) const;
  template <class Holds>
  std::size_t probe(const Triple& key, Holds holds) const;
  void rebuild(std::size_t capacity, const std::vector<Triple>& nodes);

  std::vector<int> slots_;
  int shift_ = 64;  // 64 minus log2 of the number of slots
  Repetition copies_;
  int copyNr_ = 0;  // stands in for the slot that a copy does not have
};
