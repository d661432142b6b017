#include "boolform/nodeindex.hpp"

#include <bit>

namespace {

constexpr std::size_t smallestCapacity = 1024;

bool fits(std::size_t count, std::size_t capacity) { return count <= capacity / 4 * 3; }

}  // namespace

// Multiplicative hash, high bits: the low bits of a product know only the low bits of the key.
std::size_t NodeIndex::home(const Triple& key) const {
  const auto left = static_cast<std::uint64_t>(static_cast<std::uint32_t>(key.left));
  const auto right = static_cast<std::uint64_t>(static_cast<std::uint32_t>(key.right));
  const auto op = static_cast<std::uint64_t>(static_cast<std::uint32_t>(key.op));
  const std::uint64_t mixed = (left << 32 | right) * 0x9E3779B97F4A7C15ULL + op;
  return static_cast<std::size_t>((mixed ^ mixed >> 29) * 0xBF58476D1CE4E5B9ULL >> shift_);
}

int& NodeIndex::slot(const Triple& key, const std::vector<Triple>& nodes) {
  if (!fits(nodes.size() + 1, slots_.size())) reserve(nodes.size() + 1, nodes);
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = home(key);
  while (slots_[at] != 0 && nodes[static_cast<std::size_t>(slots_[at] - firstNr)] != key)
    at = (at + 1) & mask;
  return slots_[at];
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
  const std::size_t mask = capacity - 1;
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    std::size_t at = home(nodes[i]);
    while (slots_[at] != 0) at = (at + 1) & mask;  // keys are distinct: the first free slot is it
    slots_[at] = firstNr + static_cast<int>(i);
  }
}
