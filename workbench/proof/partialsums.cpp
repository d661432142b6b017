#include "workbench/proof/partialsums.hpp"

#include <limits>
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

// What a location adds to the sums so far; none where one does not fit, or what is added cannot be
// taken away again.
std::optional<Sums> raised(const Sums& from, const std::map<int, std::int64_t>& add) {
  Sums to;
  for (const std::int64_t sum : from)
    for (const auto& [location, by] : add) {
      std::int64_t result = 0;
      const bool lowest = by == std::numeric_limits<std::int64_t>::min();
      if (lowest || __builtin_add_overflow(sum, by, &result)) return std::nullopt;
      to.insert(result);
    }
  return to;
}

// The sums before that lead to these; what does not fit is none.
Sums lowered(const Sums& from, const std::map<int, std::int64_t>& add) {
  Sums to;
  for (const std::int64_t sum : from)
    for (const auto& [location, by] : add) {
      std::int64_t result = 0;
      if (!__builtin_sub_overflow(sum, by, &result)) to.insert(result);
    }
  return to;
}

}  // namespace

std::optional<PartialSums> partialSums(const Network& net, const LinearInvariant& invariant,
                                       std::size_t most) {
  PartialSums result{addends(net, invariant), {{0}}};
  std::size_t additions = 0;
  for (const auto& [process, add] : result.addends) {
    additions += result.sums.back().size() * add.size();
    if (additions > most) return std::nullopt;
    std::optional<Sums> next = raised(result.sums.back(), add);
    if (!next) return std::nullopt;
    result.sums.push_back(std::move(*next));
  }
  Sums useful{invariant.total};
  std::size_t i = result.sums.size() - 1;
  for (auto part = result.addends.rbegin();; ++part, --i) {
    std::erase_if(result.sums[i], [&](std::int64_t sum) { return !useful.contains(sum); });
    if (part == result.addends.rend()) return result;
    useful = lowered(result.sums[i], part->second);
  }
}

}  // namespace tpn
