// Sums and products of two 64-bit integers are formed in 128 bits and reduced; only then is it
// asked whether they fit.

#include "workbench/runs/rational.hpp"

#include <algorithm>
#include <cassert>
#include <charconv>
#include <limits>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace tpn {

namespace {

__extension__ using Wide = __int128;  // not of the standard, but of both compilers

Wide greatestCommonDivisor(Wide a, Wide b) {
  while (b != 0) a = std::exchange(b, a % b);
  return a < 0 ? -a : a;
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::int64_t narrow(Wide x) {
  if (x < std::numeric_limits<std::int64_t>::min() || x > std::numeric_limits<std::int64_t>::max())
    throw std::overflow_error("a time needs more than 64 bits");
  return static_cast<std::int64_t>(x);
}

Rational reduced(Wide numerator, Wide denominator) {
  const Wide divisor = greatestCommonDivisor(numerator, denominator);
  return {narrow(numerator / divisor), narrow(denominator / divisor)};
}

// Digits alone: no sign, no blank.
std::optional<std::int64_t> readWhole(const std::string& text) {
  std::int64_t value = 0;
  if (text.empty() || !std::all_of(text.begin(), text.end(), isDigit)) return std::nullopt;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() ? std::optional(value) : std::nullopt;
}

std::optional<std::int64_t> powerOfTen(std::size_t exponent) {
  return readWhole("1" + std::string(exponent, '0'));
}

}  // namespace

std::optional<Rational> Rational::read(const std::string& text) {
  const std::size_t mark = text.find_first_of("./");
  if (mark == std::string::npos) return readWhole(text);
  const std::string before = text.substr(0, mark);
  const std::string behind = text.substr(mark + 1);
  const bool decimal = text[mark] == '.' && !before.empty() && !behind.empty();
  const auto numerator = readWhole(decimal ? before + behind : before);
  const auto denominator = decimal ? powerOfTen(behind.size()) : readWhole(behind);
  if (!numerator || !denominator || *denominator == 0) return std::nullopt;
  return Rational(*numerator, *denominator);
}

Rational::Rational(std::int64_t numerator, std::int64_t denominator) {
  assert(denominator != 0);
  const Wide divisor = greatestCommonDivisor(numerator, denominator);
  const Wide sign = denominator < 0 ? -1 : 1;
  numerator_ = narrow(sign * numerator / divisor);
  denominator_ = narrow(sign * denominator / divisor);
}

double Rational::value() const {
  return static_cast<double>(numerator_) / static_cast<double>(denominator_);
}

std::string Rational::text() const {
  const std::string whole = std::to_string(numerator_);
  return denominator_ == 1 ? whole : whole + "/" + std::to_string(denominator_);
}

// Numerators are at most 2^63 and denominators below it, so neither sum nor difference reaches
// 2^127.
Rational operator+(const Rational& a, const Rational& b) {
  return reduced(Wide{a.numerator_} * b.denominator_ + Wide{b.numerator_} * a.denominator_,
                 Wide{a.denominator_} * b.denominator_);
}

Rational operator-(const Rational& a, const Rational& b) {
  return reduced(Wide{a.numerator_} * b.denominator_ - Wide{b.numerator_} * a.denominator_,
                 Wide{a.denominator_} * b.denominator_);
}

std::strong_ordering operator<=>(const Rational& a, const Rational& b) {
  const Wide left = Wide{a.numerator_} * b.denominator_;
  const Wide right = Wide{b.numerator_} * a.denominator_;
  if (left == right) return std::strong_ordering::equal;
  return left < right ? std::strong_ordering::less : std::strong_ordering::greater;
}

}  // namespace tpn
