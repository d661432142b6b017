// The frames: what is known of the states that 0, 1, 2, ... steps can lead to. Frame 0 is the
// initial state; of every other frame each learnt clause is known up to some level, so that frames
// grow weaker:
//
// (1) frame i holds the clauses of level i or more, with their whole orbits;
// (2) a step from a state of frame i leads to one of frame i + 1.
//
// All stand in one solver. A learnt clause has an activator of its own, and a level one that
// activates its clauses and the levels above it, so that raising a clause adds two literals,
// however large its orbit.

#pragma once

#include <cstddef>
#include <vector>

#include "workbench/machine/sink.hpp"
#include "workbench/prover/cube.hpp"
#include "workbench/prover/orbits.hpp"

namespace tpn {

// The orbit of a learnt clause is larger than may be: without symmetry, all over again.
struct OrbitTooLarge {};

class Frames {
 public:
  struct Learnt {
    Cube cube;  // no state of its level is in it, nor in any image of it
    std::size_t level = 0;
    int activator = 0;
  };

  // Borrows words and sink.
  Frames(const Vocabulary& words, Orbits orbits, std::size_t mostImages, ClauseSink& sink);

  // Adds frames up to this one; `top` is the last.
  void openTo(std::size_t level);
  std::size_t top() const { return levels_.size() - 1; }

  // The literal to assume for frame `level`.
  int frame(std::size_t level) const { return levels_[level]; }

  // No state of the frames 1 .. level is in the cube. Throws OrbitTooLarge.
  void learn(const Cube& cube, std::size_t level);
  void raise(std::size_t learnt, std::size_t level);

  const std::vector<Learnt>& learnt() const { return learnt_; }
  bool empty(std::size_t level) const { return counts_[level] == 0; }  // no clause ends here
  long clauses() const { return clauses_; }                            // all images counted

 private:
  void activate(std::size_t level, int activator);

  const Vocabulary& words_;
  Orbits orbits_;
  std::size_t mostImages_;
  ClauseSink& sink_;
  std::vector<int> levels_;
  std::vector<Learnt> learnt_;
  std::vector<std::size_t> counts_;  // [level]: clauses of just this level
  long clauses_ = 0;
};

}  // namespace tpn
