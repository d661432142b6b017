// Exact fractions of 64-bit integers, for times. Always in lowest terms with a positive
// denominator; an operation whose result does not fit throws std::overflow_error.

#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>

namespace tpn {

class Rational {
 public:
  Rational(std::int64_t whole = 0) : numerator_(whole) {}      // NOLINT: numbers convert
  Rational(std::int64_t numerator, std::int64_t denominator);  // asserts denominator != 0

  // "3", "2.5", "7/2"; none where the text is no such number or one that does not fit.
  static std::optional<Rational> read(const std::string& text);

  std::int64_t numerator() const { return numerator_; }
  std::int64_t denominator() const { return denominator_; }
  double value() const;
  std::string text() const;  // "3", "-1/2"

  friend Rational operator+(const Rational& a, const Rational& b);
  friend Rational operator-(const Rational& a, const Rational& b);
  friend bool operator==(const Rational& a, const Rational& b) = default;
  friend std::strong_ordering operator<=>(const Rational& a, const Rational& b);

 private:
  std::int64_t numerator_;
  std::int64_t denominator_ = 1;
};

}  // namespace tpn
