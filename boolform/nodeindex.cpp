#include "boolform/nodeindex.hpp"

#include <algorithm>
#include <bit>
#include <cassert>

namespace {

constexpr std::size_t smallestCapacity = 1024;
// Measured on Fischer's protocol with 3, 8 and 16 processes: half or four times as many slots a
// variable cost up to a third of the speed.
constexpr std::size_t slotsPerVariable = 8;
// Four to sixteen are equally fast, on paths and on properties.
constexpr int nearProbes = 8;
constexpr std::size_t slotsPerNode = 2;

bool fits(std::size_t count, std::size_t capacity) { return slotsPerNode * count <= capacity; }

}  // namespace

// Multiplicative hash; its high bits are the good ones, for the low bits of a product know only the
// low bits of its factors.
std::uint64_t NodeIndex::hash(const Triple& key) const {
  const auto left = static_cast<std::uint64_t>(static_cast<std::uint32_t>(key.left));
  const auto right = static_cast<std::uint64_t>(static_cast<std::uint32_t>(key.right));
  const auto op = static_cast<std::uint64_t>(static_cast<std::uint32_t>(key.op));
  const std::uint64_t mixed = (left << 32 | right) * 0x9E3779B97F4A7C15ULL + op;
  return (mixed ^ mixed >> 29) * 0xBF58476D1CE4E5B9ULL;
}

// Where the larger operand is the i-th node: the place of i when all nodes are spread evenly. Where
// it is a variable: a place that grows with its number.
std::size_t NodeIndex::near(const Triple& key) const {
  const auto size = [](int nr) {
    const auto bits = static_cast<std::uint32_t>(nr);
    return nr < 0 ? 0U - bits : bits;
  };
  const std::size_t larger = std::max(size(key.left), size(key.right));
  return slotsPerNode * (larger >= firstNr ? larger - firstNr : larger * slotsPerVariable);
}

template <class Holds>
std::size_t NodeIndex::probe(const Triple& key, Holds holds) const {
  const std::size_t mask = slots_.size() - 1;
  const std::uint64_t h = hash(key);
  std::size_t at = near(key) + (h & 3U);
  for (int i = 0; i < nearProbes; ++i, ++at)
    if (holds(slots_[at & mask])) return at & mask;
  // The low bits of the hash, made odd, as the step: it takes the search to every slot.
  for (at = static_cast<std::size_t>(h >> shift_); !holds(slots_[at]);) at = (at + (h | 1U)) & mask;
  return at;
}

int& NodeIndex::slot(const Triple& key, const std::vector<Triple>& nodes) {
  const std::size_t taken = nodes.size() - copies_.size();
  if (!fits(taken + 1, slots_.size())) reserve(taken + 1, nodes);
  const auto slotOf = [&](const Triple& wanted) -> int& {
    return slots_[probe(wanted, [&](int nr) {
      return nr == 0 || nodes[static_cast<std::size_t>(nr - firstNr)] == wanted;
    })];
  };
  int& slot = slotOf(key);
  if (slot == 0) copyNr_ = copies_.find(key, slotOf);
  return slot == 0 && copyNr_ != 0 ? copyNr_ : slot;
}

std::size_t NodeIndex::searchLength(const Triple& key, const std::vector<Triple>& nodes) const {
  std::size_t length = 0;
  if (!slots_.empty())
    probe(key, [&](int nr) {
      ++length;
      return nr == 0 || nodes[static_cast<std::size_t>(nr - firstNr)] == key;
    });
  return length;
}

void NodeIndex::know(const Repetition& copies) {
  assert(copies_.size() == 0);
  copies_ = copies;
}

void NodeIndex::reserve(std::size_t count, const std::vector<Triple>& nodes) {
  std::size_t capacity = std::max(smallestCapacity, slots_.size());
  while (!fits(count, capacity)) capacity *= 2;
  if (capacity != slots_.size()) rebuild(capacity, nodes);
}

void NodeIndex::rebuild(std::size_t capacity, const std::vector<Triple>& nodes) {
  slots_.clear();
  slots_.shrink_to_fit();  // old and new table never stand in memory together
  slots_.resize(capacity, 0);
  shift_ = 64 - std::countr_zero(capacity);
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (i == copies_.begin()) i += copies_.size();
    if (i == nodes.size()) break;
    // Keys are distinct: the first free slot is the place.
    slots_[probe(nodes[i], [](int taken) { return taken == 0; })] = firstNr + static_cast<int>(i);
  }
}
