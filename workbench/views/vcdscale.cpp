#include "workbench/views/vcdscale.hpp"

#include <algorithm>
#include <limits>
#include <map>
#include <numeric>
#include <stdexcept>

namespace tpn {

namespace {

std::int64_t product(std::int64_t a, std::int64_t b) {
  if (b != 0 && a > std::numeric_limits<std::int64_t>::max() / b)
    throw std::overflow_error("the times of this run need more ticks than 64 bits can count");
  return a * b;
}

std::int64_t commonDenominator(const std::vector<Rational>& times) {
  std::int64_t common = 1;
  for (const Rational& time : times)
    common = product(common / std::gcd(common, time.denominator()), time.denominator());
  return common;
}

// The most states that are reached at one instant.
std::int64_t mostAtOnce(const std::vector<Rational>& times) {
  std::map<Rational, std::int64_t> counts;
  std::int64_t most = 0;
  for (const Rational& time : times) most = std::max(most, ++counts[time]);
  return most;
}

}  // namespace

std::int64_t VcdScale::ticks() const { return product(parts, slots); }

std::int64_t VcdScale::tick(const Rational& time, std::int64_t slot) const {
  return product(product(time.numerator(), parts / time.denominator()), slots) + slot;
}

VcdScale vcdScaleFor(const std::vector<Rational>& times) {
  VcdScale scale;
  const std::int64_t needed = 100 * mostAtOnce(times);  // what happens at once stays close together
  for (; scale.slots < needed; ++scale.digits) scale.slots *= 10;
  const std::int64_t common = commonDenominator(times);
  constexpr int finest = 15;  // a femtosecond
  for (; scale.digits <= finest; ++scale.digits, scale.parts *= 10)
    if (scale.parts % common == 0) return scale;
  scale.digits = -1;
  scale.parts = common;
  return scale;
}

}  // namespace tpn
