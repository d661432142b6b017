#include "boolform/nodeindex.hpp"

#include <algorithm>
#include <bit>
#include <cassert>

namespace {

constexpr std::size_t smallestCapacity = 1024;

std::size_t sizeOf(int nr) {
  const auto bits = static_cast<std::uint32_t>(nr);
  return nr < 0 ? 0U - bits : bits;
}

std::size_t larger(const Triple& key) { return std::max(sizeOf(key.left), sizeOf(key.right)); }

// Multiplicative hash; its high bits are the good ones, for the low bits of a product know only the
// low bits of its factors.
std::uint64_t hash(const Triple& key) {
  const auto left = static_cast<std::uint64_t>(static_cast<std::uint32_t>(key.left));
  const auto right = static_cast<std::uint64_t>(static_cast<std::uint32_t>(key.right));
  const auto op = static_cast<std::uint64_t>(static_cast<std::uint32_t>(key.op));
  const std::uint64_t mixed = (left << 32 | right) * 0x9E3779B97F4A7C15ULL + op;
  return (mixed ^ mixed >> 29) * 0xBF58476D1CE4E5B9ULL;
}

bool fits(std::size_t count, std::size_t capacity) { return 2 * count <= capacity; }

const Triple& nodeOf(int nr, const std::vector<Triple>& nodes) {
  return nodes[static_cast<std::size_t>(nr - firstNodeNr)];
}

int& placeIn(std::vector<int>& uses, std::size_t i) {
  if (i >= uses.size()) uses.resize(i + i / 2 + smallestCapacity);
  return uses[i];
}

}  // namespace

bool NodeIndex::LeftOut::has(std::size_t i, const std::vector<Triple>& nodes) const {
  return begin <= i && i < end && larger(nodes[i]) >= firstNr + begin;
}

// Null for a copy, which has no place.
int* NodeIndex::firstUse(std::size_t operand, const std::vector<Triple>& nodes) {
  if (operand < firstNr) return &placeIn(variableUses_, operand);
  std::size_t i = operand - firstNr;
  assert(i < nodes.size());
  if (i >= copies_.begin() + copies_.size())
    i -= copies_.size();
  else if (i >= copies_.begin() && copies_.size() > 0)
    return nullptr;
  return &placeIn(nodeUses_, i);
}

std::size_t NodeIndex::firstSlot(const Triple& key) const {
  return hash(key) >> (64 - std::countr_zero(slots_.size()));
}

// The slot that holds the key, or the free one where it belongs.
std::size_t NodeIndex::slotOf(const Triple& key, const std::vector<Triple>& nodes) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = firstSlot(key);
  while (slots_[at] != 0 && nodeOf(slots_[at], nodes) != key) at = (at + 1) & mask;
  return at;
}

NodeIndex::Place NodeIndex::find(const Triple& key, const std::vector<Triple>& nodes) {
  if (!leftOut_.empty()) takeUp(larger(key), nodes);
  int* first = firstUse(larger(key), nodes);
  if (first != nullptr && (*first == 0 || nodeOf(*first, nodes) == key)) return {first, false};
  return {&slots_[slotOf(key, nodes)], true};
}

int& NodeIndex::slot(const Triple& key, const std::vector<Triple>& nodes) {
  if (!fits(taken_ + 1, slots_.size())) grow(nodes);
  Place place = find(key, nodes);
  if (*place.number != 0) return *place.number;
  if (copies_.size() > 0) {
    copyNr_ = copies_.find(key, [&](const Triple& moved) { return *find(moved, nodes).number; });
    if (copyNr_ != 0) return copyNr_;
    place = find(key, nodes);  // places may have been moved
  }
  if (place.isSlot) ++taken_;
  return *place.number;
}

void NodeIndex::leaveOut(std::size_t begin, const std::vector<Triple>& nodes) {
  if (begin < nodes.size()) leftOut_.push_back({begin, nodes.size()});
}

// Places for the nodes that were left out together with this operand.
void NodeIndex::takeUp(std::size_t operand, const std::vector<Triple>& nodes) {
  const bool isNewest = operand + 1 == firstNr + nodes.size();
  if (isNewest || operand < firstNr + leftOut_.front().begin) return;
  const std::size_t i = operand - firstNr;
  const auto found = std::partition_point(leftOut_.begin(), leftOut_.end(),
                                          [=](const LeftOut& range) { return range.end <= i; });
  if (found == leftOut_.end() || i < found->begin) return;
  while (!fits(taken_ + found->end - found->begin, slots_.size())) grow(nodes);
  const LeftOut range = *found;
  leftOut_.erase(found);
  for (std::size_t j = range.begin; j < range.end; ++j)
    if (range.has(j, nodes)) add(j, nodes);
}

// Gives nodes[i], which nothing holds yet, its place, or a slot.
void NodeIndex::add(std::size_t i, const std::vector<Triple>& nodes) {
  const int nr = firstNr + static_cast<int>(i);
  int* first = firstUse(larger(nodes[i]), nodes);
  if (first != nullptr && *first == 0) {
    *first = nr;
    return;
  }
  putIntoSlot(nr, nodes);
  ++taken_;
}

void NodeIndex::putIntoSlot(int nr, const std::vector<Triple>& nodes) {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = firstSlot(nodeOf(nr, nodes));
  while (slots_[at] != 0) at = (at + 1) & mask;
  slots_[at] = nr;
}

std::size_t NodeIndex::searchLength(const Triple& key, const std::vector<Triple>& nodes) {
  if (slots_.empty() || !find(key, nodes).isSlot) return 0;
  return ((slotOf(key, nodes) - firstSlot(key)) & (slots_.size() - 1)) + 1;
}

void NodeIndex::know(const Repetition& copies) {
  assert(copies_.size() == 0);
  copies_ = copies;
}

void NodeIndex::grow(const std::vector<Triple>& nodes) {
  std::vector<int> old(std::max(smallestCapacity, 2 * slots_.size()), 0);
  old.swap(slots_);
  for (const int nr : old)
    if (nr != 0) putIntoSlot(nr, nodes);
}
