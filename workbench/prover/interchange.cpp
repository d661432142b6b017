#include "workbench/prover/interchange.hpp"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <utility>

namespace tpn {

namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);

template <class T>
void sortUnique(std::vector<T>& values) {
  std::sort(values.begin(), values.end());
  values.erase(std::unique(values.begin(), values.end()), values.end());
}

}  // namespace

// The blocks that generators swap, and the trees that these swaps make of them.
class Interchange::Finder {
 public:
  Finder(const Machine& machine, const StateLayout& layout, const Vocabulary& words)
      : machine_(machine),
        layout_(layout),
        words_(words),
        blockOf_(machine.processes.size(), none) {}

  void add(const Orbits::Permutation& generator) {
    Block low;
    Block high;
    for (std::size_t p = 0; p < machine_.processes.size(); ++p) {
      const int variable = layout_.location(p, 0);
      const std::size_t q = words_.meaning(generator[static_cast<std::size_t>(variable)]).process;
      if (p < q) {
        low.push_back(p);
        high.push_back(q);
      }
    }
    std::sort(high.begin(), high.end());
    Swap swap;
    for (std::size_t v = 1; v < generator.size(); ++v) {
      const auto to = static_cast<std::size_t>(generator[v]);
      if (static_cast<std::size_t>(generator[to]) != v) return;  // not a swap
      if (to != v) swap.emplace(static_cast<int>(v), static_cast<int>(to));
    }
    if (low.empty()) return;
    const std::optional<std::size_t> a = block(low);
    const std::optional<std::size_t> b = block(high);
    if (!a || !b) return;
    edges_[*a].emplace_back(*b, swap);
    edges_[*b].emplace_back(*a, swap);
  }

  std::vector<Family> families() const {
    std::vector<Family> found;
    std::vector<bool> seen(edges_.size(), false);
    for (std::size_t root = 0; root < edges_.size(); ++root)
      if (!seen[root] && !edges_[root].empty()) found.push_back(familyOf(root, seen));
    return found;
  }

  const std::vector<std::size_t>& blockOf() const { return blockOf_; }
  std::size_t blocks() const { return edges_.size(); }

 private:
  // Its number; none where it overlaps another one.
  std::optional<std::size_t> block(const Block& processes) {
    const auto found = numbers_.find(processes);
    if (found != numbers_.end()) return found->second;
    for (const std::size_t p : processes)
      if (blockOf_[p] != none) return std::nullopt;
    const std::size_t number = edges_.size();
    for (const std::size_t p : processes) blockOf_[p] = number;
    numbers_.emplace(processes, number);
    edges_.emplace_back();
    return number;
  }

  // The swap of the root and a block is that of the block and its parent in the tree, after the
  // parent has been put in the root's place.
  Family familyOf(std::size_t root, std::vector<bool>& seen) const {
    Family family{{root}, {}};
    seen[root] = true;
    for (std::size_t i = 0; i < family.blocks.size(); ++i)
      for (const auto& [child, swap] : edges_[family.blocks[i]]) {
        if (seen[child]) continue;
        seen[child] = true;
        Swap moved;
        for (const auto& [from, to] : swap)
          moved.emplace(i == 0 ? from : image(family.swaps[i - 1], from),
                        i == 0 ? to : image(family.swaps[i - 1], to));
        family.blocks.push_back(child);
        family.swaps.push_back(std::move(moved));
      }
    return family;
  }

  const Machine& machine_;
  const StateLayout& layout_;
  const Vocabulary& words_;
  std::vector<std::size_t> blockOf_;  // [process]
  std::map<Block, std::size_t> numbers_;
  std::vector<std::vector<std::pair<std::size_t, Swap>>> edges_;  // [block]
};

Interchange::Interchange(const Machine& machine, const StateLayout& layout, const Vocabulary& words,
                         const std::vector<Orbits::Permutation>& generators,
                         const Checkpoint& checkpoint)
    : touched_(machine.transitions.size()) {
  Finder finder(machine, layout, words);
  for (const Orbits::Permutation& generator : generators) {
    finder.add(generator);
    checkpoint();
  }
  families_ = finder.families();
  position_.assign(finder.blocks(), -1);
  pinned_.assign(finder.blocks(), false);
  findOwners(words, finder.blockOf());
  if (!consistent(checkpoint)) {
    families_.clear();
    return;
  }
  for (std::size_t t = 0; t < machine.transitions.size(); ++t) {
    for (const Machine::Move& move : machine.transitions[t].moves)
      for (const std::size_t rank : {move.source, move.target})
        for (const std::size_t block :
             owners_[static_cast<std::size_t>(layout.location(move.process, rank))])
          touched_[t].push_back(block);
    sortUnique(touched_[t]);
  }
}

void Interchange::findOwners(const Vocabulary& words, const std::vector<std::size_t>& blockOf) {
  owners_.resize(static_cast<std::size_t>(words.variables()) + 1);
  for (int v = 1; v <= words.variables(); ++v) {
    const std::size_t block = blockOf[words.meaning(v).process];
    if (block != none) owners_[static_cast<std::size_t>(v)].push_back(block);
  }
  for (const Family& family : families_) own(family);
  for (std::vector<std::size_t>& blocks : owners_) sortUnique(blocks);
}

// Variables of no block of the family: the root's are those that all swaps move, other blocks'
// those that only theirs does. With one swap either may be; the smaller one is the root's.
void Interchange::own(const Family& family) {
  std::map<int, std::vector<std::size_t>> movers;
  for (std::size_t i = 0; i < family.swaps.size(); ++i)
    for (const auto& [from, to] : family.swaps[i]) movers[from].push_back(i);
  for (const auto& [variable, swaps] : movers) {
    std::vector<std::size_t>& blocks = owners_[static_cast<std::size_t>(variable)];
    const auto inside = [&](std::size_t block) {
      return std::find(blocks.begin(), blocks.end(), block) != blocks.end();
    };
    if (std::any_of(family.blocks.begin(), family.blocks.end(), inside)) continue;
    const bool one = family.swaps.size() == 1;
    if (one ? variable < family.swaps[0].at(variable) : swaps.size() == family.swaps.size())
      blocks.push_back(family.blocks[0]);
    else
      blocks.push_back(family.blocks[swaps[0] + 1]);
  }
}

// Does each swap move just what its two blocks own, and move owners with what they own? What no
// block of the swap owns and what stays in its place needs no look.
bool Interchange::consistent(const Checkpoint& checkpoint) const {
  std::vector<std::vector<int>> owned(position_.size());  // [block]: variables
  for (std::size_t v = 1; v < owners_.size(); ++v)
    for (const std::size_t block : owners_[v]) owned[block].push_back(static_cast<int>(v));
  for (const Family& family : families_)
    for (std::size_t i = 0; i < family.swaps.size(); ++i) {
      checkpoint();
      const std::size_t a = family.blocks[0];
      const std::size_t b = family.blocks[i + 1];
      for (const auto& [from, to] : family.swaps[i])
        if (!movesOwners(from, to, a, b)) return false;
      for (const std::size_t block : {a, b})
        for (const int v : owned[block])
          if (!movesOwners(v, image(family.swaps[i], v), a, b)) return false;
    }
  return true;
}

// Of a variable that the swap of blocks a and b moves, or that one of them owns.
bool Interchange::movesOwners(int from, int to, std::size_t a, std::size_t b) const {
  std::vector<std::size_t> moved;
  bool owns = false;
  for (const std::size_t block : owners_[static_cast<std::size_t>(from)]) {
    owns = owns || block == a || block == b;
    moved.push_back(block == a ? b : block == b ? a : block);
  }
  std::sort(moved.begin(), moved.end());
  return owners_[static_cast<std::size_t>(to)] == moved && (owns || to == from);
}

void Interchange::pin(const Cube& cube) {
  if (families_.empty()) return;
  for (const int literal : cube)
    for (const std::size_t block : owners_[static_cast<std::size_t>(std::abs(literal))])
      pinned_[block] = true;
  for (const Family& family : families_) {
    std::ptrdiff_t next = 0;
    for (const std::size_t block : family.blocks) position_[block] = pinned_[block] ? -1 : next++;
  }
  for (const int literal : cube)
    for (const std::size_t block : owners_[static_cast<std::size_t>(std::abs(literal))])
      pinned_[block] = false;
}

}  // namespace tpn
