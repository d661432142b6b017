#include "workbench/proof/partialsums.hpp"

#include <utility>

namespace tpn {

namespace {

using Addends = std::map<std::size_t, std::map<int, std::int64_t>>;
using Sums = std::set<std::int64_t>;

Addends addends(const Network& net, const LinearInvariant& invariant) {
  Addends result;
  for (const auto& [spot, coefficient] : invariant.coefficients) {
    if (result.contains(spot.process)) continue;
    for (const int location : net.processes[spot.process].locations) {
      const auto given = invariant.coefficients.find({spot.process, location});
      result[spot.process][location] = given == invariant.coefficients.end() ? 0 : given->second;
    }
  }
  return result;
}

Sums moved(const Sums& from, const std::map<int, std::int64_t>& add, int sign) {
  Sums to;
  for (const std::int64_t sum : from)
    for (const auto& [location, by] : add) to.insert(sum + sign * by);
  return to;
}

}  // namespace

PartialSums partialSums(const Network& net, const LinearInvariant& invariant) {
  PartialSums result{addends(net, invariant), {{0}}};
  for (const auto& [process, add] : result.addends)
    result.sums.push_back(moved(result.sums.back(), add, 1));
  Sums useful{invariant.total};
  std::size_t i = result.sums.size() - 1;
  for (auto part = result.addends.rbegin();; ++part, --i) {
    std::erase_if(result.sums[i], [&](std::int64_t sum) { return !useful.contains(sum); });
    if (part == result.addends.rend()) return result;
    useful = moved(result.sums[i], part->second, -1);
  }
}

}  // namespace tpn
