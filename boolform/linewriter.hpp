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

// "0000" to "9999", each as a number whose bytes in memory are the digits.
constexpr auto fourDigits = [] {
  std::array<std::uint32_t, 10000> text{};
  for (std::uint32_t i = 0; i < text.size(); ++i)
    text[i] = (i % 10 << 24 | i / 10 % 10 << 16 | i / 100 % 10 << 8 | i / 1000) + 0x30303030U;
  return text;
}();

// A number below 10^8 in decimal, without a jump: eight digits that the leading zeros are shifted
// out of.
struct ShortNumber {
  static constexpr std::uint32_t limit = 100000000;
  std::uint64_t text;
  int size;

  explicit ShortNumber(std::uint32_t number) {
    static_assert(std::endian::native == std::endian::little);
    constexpr std::uint64_t zeros = 0x3030303030303030U;
    constexpr std::uint64_t lastDigit = std::uint64_t{1} << 56;  // which stays if it is a zero
    const std::uint32_t high = number / 10000;
    const std::uint32_t low = number - 10000 * high;
    const std::uint64_t digits = fourDigits[high] | std::uint64_t{fourDigits[low]} << 32;
    const int leadingZeros = std::countr_zero((digits ^ zeros) | lastDigit) / 8;
    text = digits >> 8 * leadingZeros;
    size = 8 - leadingZeros;
  }

  // Writes it, after a minus where it is negative, and returns the end; at most 9 characters are
  // touched.
  char* put(char* to, bool negative) const {
    *to = '-';
    to += negative;
    std::memcpy(to, &text, sizeof text);
    return to + size;
  }
};

// Writes a number of this size and returns the end; at most 11 characters are touched.
[[gnu::always_inline]] inline char* putNumber(char* to, bool negative, std::uint32_t size) {
  if (size < ShortNumber::limit) [[likely]]
    return ShortNumber(size).put(to, negative);
  *to = '-';
  to += negative;
  return std::to_chars(to, to + 10, size).ptr;
}

inline char* putNumber(char* to, int n) {
  const auto bits = static_cast<std::uint32_t>(n);
  return putNumber(to, n < 0, n < 0 ? 0U - bits : bits);
}
