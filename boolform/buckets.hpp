// Values in buckets, all in one piece of memory: first every value's bucket is counted, then each
// value is put into its bucket, from the bucket's end on.

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

template <class Value>
class Buckets {
 public:
  void clear(std::size_t buckets) {
    begin_.assign(buckets + 1, 0);
    largest_ = 0;
  }
  // Fewer than 2^32 in all.
  void count(std::size_t bucket) { ++begin_[bucket]; }
  // Makes room for what has been counted. Not initialised: touching memory once more is what costs.
  void countingDone() {
    std::uint32_t end = 0;
    for (std::uint32_t& count : begin_) {
      largest_ = std::max<std::size_t>(largest_, count);
      count = end += count;
    }
    values_ = std::make_unique_for_overwrite<Value[]>(end);
  }
  void put(std::size_t bucket, Value value) { values_[--begin_[bucket]] = value; }

  std::size_t size() const { return begin_.empty() ? 0 : begin_.size() - 1; }  // in buckets
  std::size_t largest() const { return largest_; }                             // values in a bucket
  std::span<Value> operator[](std::size_t bucket) const {
    return {values_.get() + begin_[bucket], values_.get() + begin_[bucket + 1]};
  }

 private:
  // Where each bucket begins, and the last one ends; while values are put, where the last value put
  // into it is.
  std::vector<std::uint32_t> begin_;
  std::unique_ptr<Value[]> values_;
  std::size_t largest_ = 0;
};
