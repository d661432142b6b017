// Many states of the same size, each kept once and numbered.

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace tpn {

class StateStore {
 public:
  explicit StateStore(std::size_t numbers) : width_(numbers), slots_(1024, 0) {}

  // The number of a state of `width` numbers; whether it is new.
  std::pair<std::size_t, bool> add(const std::uint32_t* state) {
    if (2 * size_ >= slots_.size()) grow();
    std::size_t& slot = place(state);
    if (slot != 0) return {slot - 1, false};
    all_.insert(all_.end(), state, state + width_);
    slot = ++size_;
    return {size_ - 1, true};
  }

  // Until the next add().
  const std::uint32_t* operator[](std::size_t state) const { return &all_[state * width_]; }
  std::size_t size() const { return size_; }
  std::size_t bytes() const {
    return all_.capacity() * sizeof(std::uint32_t) + slots_.size() * sizeof(std::size_t);
  }

 private:
  // The state's slot, or the free one where it would be.
  std::size_t& place(const std::uint32_t* state) {
    std::uint64_t hash = 0;
    for (std::size_t i = 0; i < width_; ++i) {
      hash = (hash ^ state[i]) * 0x9e3779b97f4a7c15ULL;
      hash ^= hash >> 29U;
    }
    for (std::size_t i = hash % slots_.size();; i = (i + 1) % slots_.size())
      if (slots_[i] == 0 || std::equal(state, state + width_, (*this)[slots_[i] - 1]))
        return slots_[i];
  }

  void grow() {
    slots_.assign(2 * slots_.size(), 0);
    for (std::size_t s = 0; s < size_; ++s) place((*this)[s]) = s + 1;
  }

  std::size_t width_;
  std::size_t size_ = 0;
  std::vector<std::uint32_t> all_;
  std::vector<std::size_t> slots_;  // number + 1; 0: free
};

}  // namespace tpn
