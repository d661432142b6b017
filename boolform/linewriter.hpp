// Text out in whole lines: numbers are formatted into a block, and the stream is handed nothing but
// blocks that end with a line end. Whoever looks at a half-written file sees complete lines, at a
// twentieth of the price of flushing the stream after every line (bench/README.md).

#pragma once

#include <array>
#include <cassert>
#include <charconv>
#include <cstddef>
#include <ostream>
#include <string_view>

class LineWriter {
 public:
  // A line holds at most this many characters, its end not counted; longer ones are asserted out.
  static constexpr std::size_t maxLine = 64;

  // `out` is borrowed; a stream in a failed state swallows everything silently.
  explicit LineWriter(std::ostream& out) : out_(out) {}
  ~LineWriter() { handOver(); }
  LineWriter(const LineWriter&) = delete;
  LineWriter& operator=(const LineWriter&) = delete;

  void text(std::string_view s) {
    assert(s.size() <= maxLine);
    used_ += s.copy(next(), s.size());
  }
  void character(char c) { block_[used_++] = c; }
  template <class Integer>
  void number(Integer n) {
    used_ += static_cast<std::size_t>(std::to_chars(next(), next() + maxLine, n).ptr - next());
  }
  void endLine() {
    character('\n');
    if (used_ >= blockSize) handOver();
  }

 private:
  static constexpr std::size_t blockSize = 65536;

  char* next() { return block_.data() + used_; }
  void handOver() {
    out_.write(block_.data(), static_cast<std::streamsize>(used_));
    used_ = 0;
  }

  std::ostream& out_;
  std::size_t used_ = 0;
  std::array<char, blockSize + 2 * maxLine> block_;  // room for the line that fills the block
};
