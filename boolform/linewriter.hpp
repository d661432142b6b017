// Text out in whole lines: a line is formatted into a block, and the sink is handed nothing but
// blocks that end with a line end. Whoever looks at a half-written file sees complete lines.
//
// A sink is an output file or a stream: anything with write(const char*, size).

#pragma once

#include <array>
#include <bit>
#include <cassert>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

template <class Sink>
class LineWriter {
 public:
  // Characters a line may hold, its end not counted.
  static constexpr std::size_t maxLine = 64;

  // A block is handed over as soon as it has this many characters.
  static constexpr std::size_t blockSize = std::size_t{1} << 20;

  // `out` is borrowed. The block is all the memory that writing takes.
  explicit LineWriter(Sink& out) : out_(out) {}
  ~LineWriter() { handOver(); }
  LineWriter(const LineWriter&) = delete;
  LineWriter& operator=(const LineWriter&) = delete;

  // A line in parts, each of at most maxLine characters.
  void text(std::string_view s) {
    assert(s.size() <= maxLine);
    next_ += s.copy(next_, s.size());
  }
  template <class Integer>
  void number(Integer n) {
    next_ = std::to_chars(next_, next_ + maxLine, n).ptr;
  }
  void endLine() { endLine(next_); }

  // Or at once: from line() up to `end`, with room for maxLine characters and 8 that stray stores
  // may touch.
  char* line() { return next_; }
  void endLine(char* end) {
    *end = '\n';
    next_ = end + 1;
    if (next_ - block_.get() >= static_cast<std::ptrdiff_t>(blockSize)) handOver();
  }

 private:
  void handOver() {
    if (next_ != block_.get()) out_.write(block_.get(), next_ - block_.get());
    next_ = block_.get();
  }

  Sink& out_;
  // Room for the line that fills the block.
  const std::unique_ptr<char[]> block_ =
      std::make_unique_for_overwrite<char[]>(blockSize + maxLine + 9);
  char* next_ = block_.get();
};

// "0000" to "9999", one after the other.
constexpr auto fourDigits = [] {
  std::array<char, 40000> text{};
  for (std::size_t i = 0; i < text.size(); ++i) {
    constexpr std::array<std::size_t, 4> powers{1000, 100, 10, 1};
    text[i] = static_cast<char>('0' + i / 4 / powers[i % 4] % 10);
  }
  return text;
}();

// Writes n in decimal and returns the end; at most 11 characters are touched. Numbers below 10^8
// are two pieces of four digits, the higher without its leading zeros.
[[gnu::always_inline]] inline char* putNumber(char* to, int n) {
  static_assert(std::endian::native == std::endian::little);
  const auto bits = static_cast<std::uint32_t>(n);
  const std::uint32_t size = n < 0 ? 0U - bits : bits;
  *to = '-';
  to += n < 0;
  if (size >= 100000000) return std::to_chars(to, to + 10, size).ptr;
  const auto putPiece = [&](std::uint32_t piece, int skipped) {
    std::uint32_t text;
    std::memcpy(&text, fourDigits.data() + std::size_t{4} * piece, 4);
    text >>= 8 * skipped;
    std::memcpy(to, &text, 4);
    to += 4 - skipped;
  };
  const auto leadingZeros = [](std::uint32_t piece) {
    return (piece < 1000) + (piece < 100) + (piece < 10);
  };
  const std::uint32_t high = size / 10000;
  const std::uint32_t low = size % 10000;
  if (high == 0) {
    putPiece(low, leadingZeros(low));
  } else {
    putPiece(high, leadingZeros(high));
    putPiece(low, 0);
  }
  return to;
}
