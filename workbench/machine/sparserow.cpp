#include "workbench/machine/sparserow.hpp"

#include <algorithm>
#include <cassert>
#include <limits>
#include <numeric>

namespace tpn {

namespace {

__extension__ using Wide = __int128;  // a product of two entries, and a sum of two of those

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();

Wide greatestCommonDivisor(Wide a, Wide b) {
  while (b != 0) a = std::exchange(b, a % b);
  return a < 0 ? -a : a;
}

using WideRow = std::vector<std::pair<std::size_t, Wide>>;

WideRow combined(const SparseRow& a, std::int64_t factorA, const SparseRow& b,
                 std::int64_t factorB) {
  WideRow result;
  result.reserve(a.size() + b.size());
  auto i = a.begin();
  auto j = b.begin();
  while (i != a.end() || j != b.end()) {
    const bool fromA = j == b.end() || (i != a.end() && i->first <= j->first);
    const bool fromB = i == a.end() || (j != b.end() && j->first <= i->first);
    const std::size_t column = fromA ? i->first : j->first;
    Wide sum = 0;
    if (fromA) sum += Wide{factorA} * (i++)->second;
    if (fromB) sum += Wide{factorB} * (j++)->second;
    if (sum != 0) result.emplace_back(column, sum);
  }
  return result;
}

}  // namespace

std::int64_t entry(const SparseRow& row, std::size_t column) {
  const auto at = std::lower_bound(row.begin(), row.end(), column,
                                   [](const auto& e, std::size_t c) { return e.first < c; });
  return at != row.end() && at->first == column ? at->second : 0;
}

std::optional<SparseRow> cleared(const SparseRow& row, const SparseRow& other, std::size_t column) {
  const std::int64_t mine = entry(row, column);
  const std::int64_t its = entry(other, column);
  assert(its != 0);
  const std::int64_t common = std::gcd(mine, its);
  const std::int64_t sign = its < 0 ? -1 : 1;
  const WideRow wide = combined(row, sign * (its / common), other, -sign * (mine / common));
  Wide divisor = 0;
  for (const auto& [c, value] : wide) divisor = greatestCommonDivisor(divisor, value);
  SparseRow result;
  result.reserve(wide.size());
  for (const auto& [c, value] : wide) {
    const Wide quotient = value / divisor;
    if (quotient > largest || quotient < -largest) return std::nullopt;
    result.emplace_back(c, static_cast<std::int64_t>(quotient));
  }
  return result;
}

}  // namespace tpn
