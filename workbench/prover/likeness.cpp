#include "workbench/prover/likeness.hpp"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>
#include <unordered_set>

namespace tpn {

namespace {

using Sparse = std::vector<std::pair<int, int>>;

Sparse sparse(const Orbits::Permutation& permutation) {
  Sparse result;
  for (int v = 1; v < static_cast<int>(permutation.size()); ++v)
    if (permutation[static_cast<std::size_t>(v)] != v)
      result.emplace_back(v, permutation[static_cast<std::size_t>(v)]);
  return result;
}

}  // namespace

Likeness::Likeness(const std::vector<Orbits::Permutation>& generators,
                   std::vector<Shape> transitions)
    : shapes_(std::move(transitions)), representatives_(shapes_.size(), {0, 0}) {
  for (std::size_t t = 0; t < shapes_.size(); ++t) byShape_.emplace(shapes_[t], t);
  std::vector<Swap> swaps;
  for (const Orbits::Permutation& generator : generators) swaps.push_back(sparse(generator));
  addSwaps(std::move(swaps));
  index(generators.empty() ? 0 : generators.front().size());
}

int Likeness::image(const Swap& swap, int variable) {
  const auto found = std::lower_bound(swap.begin(), swap.end(), std::pair{variable, 0});
  return found != swap.end() && found->first == variable ? found->second : variable;
}

Likeness::Shape Likeness::flat(const Swap& swap) {
  Shape shape;
  for (const auto& [from, to] : swap) shape.insert(shape.end(), {from, to});
  return shape;
}

// Conjugates g h g^-1 of what there is with the generators, as long as there are new ones.
void Likeness::addSwaps(std::vector<Swap> open) {
  const std::vector<Swap> generators = open;
  std::unordered_set<Shape, Hash> known;
  for (const Swap& swap : open) known.insert(flat(swap));
  swaps_ = std::move(open);
  std::map<int, std::vector<std::size_t>> movers;  // variable -> generators
  for (std::size_t g = 0; g < generators.size(); ++g)
    for (const auto& [from, to] : generators[g]) movers[from].push_back(g);
  for (std::size_t i = 0; i < swaps_.size() && swaps_.size() < mostSwaps; ++i) {
    std::set<std::size_t> meeting;
    for (const auto& [from, to] : swaps_[i])
      if (const auto g = movers.find(from); g != movers.end())
        meeting.insert(g->second.begin(), g->second.end());
    for (const std::size_t g : meeting) {
      Swap conjugate;
      for (const auto& [from, to] : swaps_[i])
        conjugate.emplace_back(image(generators[g], from), image(generators[g], to));
      std::sort(conjugate.begin(), conjugate.end());
      if (known.insert(flat(conjugate)).second) swaps_.push_back(std::move(conjugate));
    }
  }
}

void Likeness::index(std::size_t variables) {
  movers_.resize(variables);
  attended_.resize(variables, false);
  barred_.resize(swaps_.size(), 0);
  for (std::size_t s = 0; s < swaps_.size(); ++s)
    for (const auto& [from, to] : swaps_[s]) movers_[static_cast<std::size_t>(from)].push_back(s);
}

// What is known for a cube holds for all that mention no other variable, which is what most next
// cubes are: one of its parts.
void Likeness::attend(const Cube& cube) {
  if (swaps_.empty()) return;
  const auto variable = [](int literal) { return static_cast<std::size_t>(std::abs(literal)); };
  if (std::all_of(cube.begin(), cube.end(), [&](int l) { return attended_[variable(l)]; }) &&
      cube.size() + 2 >= attending_.size())
    return;
  for (const int literal : attending_) attended_[variable(literal)] = false;
  attending_ = cube;
  ++round_;
  for (const int literal : cube) {
    attended_[variable(literal)] = true;
    for (const std::size_t s : movers_[variable(literal)]) barred_[s] = round_;
  }
}

std::size_t Likeness::representative(std::size_t transition) {
  if (swaps_.empty()) return transition;
  if (representatives_[transition].first != round_) spread(transition);
  return representatives_[transition].second;
}

Likeness::Shape Likeness::image(const Swap& swap, const Shape& shape) const {
  std::vector<std::pair<int, int>> moves;
  for (std::size_t i = 1; i < shape.size(); i += 2)
    moves.emplace_back(image(swap, shape[i]), image(swap, shape[i + 1]));
  std::sort(moves.begin(), moves.end());
  Shape result{shape.front()};
  for (const auto& [source, target] : moves) result.insert(result.end(), {source, target});
  return result;
}

void Likeness::spread(std::size_t transition) {
  representatives_[transition] = {round_, transition};
  const Shape& shape = shapes_[transition];
  tried_.assign(swaps_.size(), shapes_.size());
  for (std::size_t i = 1; i < shape.size(); ++i)
    for (const std::size_t s : movers_[static_cast<std::size_t>(shape[i])]) {
      if (barred_[s] == round_ || std::exchange(tried_[s], transition) == transition) continue;
      const auto other = byShape_.find(image(swaps_[s], shape));
      if (other != byShape_.end() && representatives_[other->second].first != round_)
        representatives_[other->second] = {round_, transition};
    }
}

}  // namespace tpn
