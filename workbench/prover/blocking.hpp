// Relative induction: can a step from a state of a frame outside a cube lead into it? If not, no
// state of the next frame is in the cube, and as much more as can be had is excluded with it.

#pragma once

#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "workbench/base/checkpoint.hpp"
#include "workbench/prover/frames.hpp"
#include "workbench/prover/steps.hpp"

namespace tpn {

// Has what is assumed a model? Throws Interrupted.
bool solved(Solver& solver);

class Blocking {
 public:
  // Borrows all.
  Blocking(const Machine& machine, const StateLayout& layout, const Vocabulary& words, Steps& steps,
           Frames& frames, Solver& solver, const Checkpoint& checkpoint)
      : machine_(machine),
        layout_(layout),
        words_(words),
        steps_(steps),
        frames_(frames),
        solver_(solver),
        checkpoint_(checkpoint) {
    meet();
  }

  struct Predecessor {
    Cube cube;  // every state of it steps into the cube asked about
    Way way;
  };

  // A step from frame level - 1 into the cube, from outside of it. Where none is returned, the cube
  // has been enlarged, to fewer literals, so that no step leads into it from outside; there may be
  // one from what has been added. It does not contain the initial state, before or after. Throws
  // Interrupted.
  std::optional<Predecessor> intoFrom(Cube& cube, std::size_t level);

  // A larger cube around it for which there is none either. What is said of processes that are far
  // (from what matters: `distance` of each, or empty) goes first.
  void generalise(Cube& cube, std::size_t level, const std::vector<std::size_t>& distance);

  // Of a cube that no step of the frame below `level` leads into: no state of that level is in it,
  // nor of as many more as can be had.
  // Where it bounds two clocks or more, so are the states some units earlier and later, as long as
  // they can be: differences of clocks stay as they are while time passes, and a bound on one is a
  // clause for each unit.
  void learn(const Cube& cube, std::size_t level);
  // Both: of a cube that intoFrom() has found none into.
  void exclude(Cube& cube, std::size_t level, const std::vector<std::size_t>& distance) {
    generalise(cube, level, distance);
    learn(cube, level);
  }

  // Can the cube be excluded at the level, too? It is enlarged only where no step leads into what
  // it has become, but one does into the cube itself: from what has been added.
  bool raise(Cube& cube, std::size_t level);

  // Has the frame a state in the cube?
  bool reaches(std::size_t level, const Cube& cube);

  long queries() const { return queries_; }

 private:
  // One round of questions about a part of a cube.
  struct Pass {
    const Cube& cube;
    const Cube& part;
    std::size_t level;
    std::vector<int> kept;   // of the part: what keeps steps out
    std::vector<int> added;  // of the rest: what would
    std::optional<Predecessor> found;
  };

  // blocking.cpp
  bool ask(const Query& query, Pass& pass);
  void assume(const Query& query, const Pass& pass);
  int seed(const Cube& cube) const;
  std::vector<std::pair<int, int>> nearestFirst(std::vector<std::pair<int, int>> rest,
                                                const Pass& pass) const;
  void meet();
  bool solve();
  // Looks for a part of the cube, of at most so many literals, that no step leads into.
  bool keepOut(Cube& cube, std::size_t level, std::size_t most, std::optional<Predecessor>& found);
  // Does a step from frame level - 1 lead into just this cube, from outside of it?
  bool entered(const Cube& cube, std::size_t level);
  std::size_t learnAlone(const Cube& cube, std::size_t level);
  std::optional<Cube> delayed(const Cube& cube, std::int64_t units) const;
  void reduce(Cube& cube, const std::vector<int>& kept) const;

  // generalise.cpp
  bool excluded(Cube cube, std::size_t level, std::size_t most, Cube& result);
  void dropProcesses(Cube& cube, std::size_t level, const std::vector<std::size_t>& distance);
  std::vector<std::size_t> processesOf(const Cube& cube,
                                       const std::vector<std::size_t>& distance) const;
  Cube inOrder(Cube cube, const std::vector<std::size_t>& distance) const;
  bool tryDropping(Cube& cube, int literal, std::size_t level);
  void weakenClock(Cube& cube, int literal, std::size_t level);
  int bound(std::size_t process, bool lower, std::int64_t value, std::int64_t further) const;
  void weakenLocation(Cube& cube, int literal, std::size_t level);

  const Machine& machine_;
  const StateLayout& layout_;
  const Vocabulary& words_;
  Steps& steps_;
  Frames& frames_;
  Solver& solver_;
  const Checkpoint& checkpoint_;
  long queries_ = 0;
  std::vector<std::vector<std::size_t>> neighbours_;  // [process]: those it moves together with
};

}  // namespace tpn
