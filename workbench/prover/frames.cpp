#include "workbench/prover/frames.hpp"

#include <utility>

namespace tpn {

Frames::Frames(const Vocabulary& words, Orbits orbits, std::size_t mostImages, ClauseSink& sink)
    : words_(words), orbits_(std::move(orbits)), mostImages_(mostImages), sink_(sink) {
  openTo(0);
  for (int v = 1; v <= words_.variables(); ++v)
    sink_.add({-frame(0), words_.initially(v) ? v : -v});
}

void Frames::openTo(std::size_t level) {
  while (levels_.size() <= level) {
    levels_.push_back(sink_.fresh());
    counts_.push_back(0);
    // The initial state is not made to obey: it is in every frame, and no clause excludes it.
    if (levels_.size() > 2) activate(levels_.size() - 2, levels_.back());
  }
}

void Frames::activate(std::size_t level, int activator) { sink_.add({-levels_[level], activator}); }

void Frames::learn(const Cube& cube, std::size_t level) {
  const auto images = orbits_.of(cube, mostImages_);
  if (!images) throw OrbitTooLarge();
  const int activator = sink_.fresh();
  Clause clause;
  for (const Cube& image : *images) {
    clause.assign({-activator});
    for (const int literal : image) clause.push_back(-literal);
    sink_.add(clause);
  }
  clauses_ += static_cast<long>(images->size());
  learnt_.push_back({cube, level, activator});
  ++counts_[level];
  activate(level, activator);
}

void Frames::raise(std::size_t learnt, std::size_t level) {
  Learnt& clause = learnt_[learnt];
  --counts_[clause.level];
  clause.level = level;
  ++counts_[level];
  activate(level, clause.activator);
}

}  // namespace tpn
