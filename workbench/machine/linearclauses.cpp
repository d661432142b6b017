#include "workbench/machine/linearclauses.hpp"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace tpn {

namespace {

using Values = std::set<std::int64_t>;

// What each location of a process adds to the sum.
struct Part {
  std::size_t process = 0;
  std::vector<std::int64_t> values;  // [rank]

  Values distinct() const { return {values.begin(), values.end()}; }
};

std::vector<Part> partsOf(const Machine& machine, const PlaceInvariant& invariant) {
  std::vector<Part> parts;
  for (const auto& [process, rank, coefficient] : invariant.terms) {
    if (parts.empty() || parts.back().process != process)
      parts.push_back(
          {process, std::vector<std::int64_t>(machine.processes[process].locations.size(), 0)});
    parts.back().values[rank] = coefficient;
  }
  return parts;
}

// A number in unary code: which of its values it is at least.
struct Number {
  std::vector<std::int64_t> values;  // ascending
  std::vector<int> literals;         // [i]: at least values[i + 1]
};

class Encoder {
 public:
  Encoder(const Machine& machine, const StateLayout& layout)
      : layout_(layout), machine_(machine), next_(layout.size() + 1) {}

  // False where it would need more than so many clauses, and then nothing is added.
  bool add(const PlaceInvariant& invariant, std::size_t most) {
    std::vector<Part> parts = partsOf(machine_, invariant);
    // At the end: the sum of the others is what the last process takes away.
    const auto widest = std::max_element(
        parts.begin(), parts.end(),
        [](const Part& a, const Part& b) { return a.distinct().size() < b.distinct().size(); });
    std::rotate(widest, std::next(widest), parts.end());
    for (std::int64_t& value : parts.back().values) value = -value;
    const std::optional<std::vector<Values>> sums = partialSums(parts, most);
    if (!sums) return false;
    encode(parts, *sums);
    return true;
  }

  LinearClauses finish(std::size_t omitted) {
    return {std::move(clauses_), next_ - layout_.size() - 1, omitted};
  }

 private:
  // [i]: the sums of the first i + 1 parts that the others can make equal to the last one.
  static std::optional<std::vector<Values>> partialSums(const std::vector<Part>& parts,
                                                        std::size_t most) {
    std::vector<Values> sums{Values{0}};
    std::size_t pairs = 0;
    for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
      const Values added = parts[i].distinct();
      pairs += 2 * sums.back().size() * added.size();
      if (pairs > most) return std::nullopt;
      Values next;
      for (const std::int64_t sum : sums.back())
        for (const std::int64_t value : added) {
          std::int64_t result = 0;
          if (__builtin_add_overflow(sum, value, &result)) return std::nullopt;
          next.insert(result);
        }
      sums.push_back(std::move(next));
    }
    keepUseful(parts, sums);
    sums.erase(sums.begin());
    return sums;
  }

  static void keepUseful(const std::vector<Part>& parts, std::vector<Values>& sums) {
    Values useful = parts.back().distinct();
    for (std::size_t i = sums.size(); i-- > 0;) {
      Values kept;
      std::set_intersection(sums[i].begin(), sums[i].end(), useful.begin(), useful.end(),
                            std::inserter(kept, kept.end()));
      sums[i] = std::move(kept);
      if (i == 0) break;
      useful.clear();
      for (const std::int64_t sum : sums[i])
        for (const std::int64_t value : parts[i - 1].distinct()) {
          std::int64_t result = 0;
          if (!__builtin_sub_overflow(sum, value, &result)) useful.insert(result);
        }
    }
  }

  void encode(const std::vector<Part>& parts, const std::vector<Values>& sums) {
    const Number last = numberOf(parts.back());
    if (parts.size() == 1) return addSum({{0}, {}}, {{0}, {}}, last);
    Number sum = numberOf(parts.front());
    if (parts.size() == 2) return addSum({{0}, {}}, sum, last);
    for (std::size_t i = 1; i + 1 < parts.size(); ++i) {
      const Number part = numberOf(parts[i]);
      Number next = i + 2 == parts.size() ? last : fresh(sums[i]);
      addSum(sum, part, next);
      sum = std::move(next);
    }
  }

  // A literal for "the value of the process's location is at least this", for each of its values.
  Number numberOf(const Part& part) {
    const Values values = part.distinct();
    Number number{{values.begin(), values.end()}, {}};
    for (std::size_t i = 1; i < number.values.size(); ++i) {
      std::vector<bool> in;
      for (const std::int64_t value : part.values) in.push_back(value >= number.values[i]);
      number.literals.push_back(oneOf(part.process, in));
    }
    return number;
  }

  // A literal for "the process is in one of these locations": not all, and not none.
  int oneOf(std::size_t process, const std::vector<bool>& in) {
    const auto count = static_cast<std::size_t>(std::count(in.begin(), in.end(), true));
    const auto rankOf = [&](bool which) {
      return static_cast<std::size_t>(std::find(in.begin(), in.end(), which) - in.begin());
    };
    if (count == 1) return layout_.location(process, rankOf(true));
    if (count + 1 == in.size()) return -layout_.location(process, rankOf(false));
    if (in.front()) {
      std::vector<bool> others = in;
      others.flip();
      return -oneOf(process, others);
    }
    const auto [at, isNew] = groups_.try_emplace({process, in}, next_);
    if (isNew) define(next_++, process, in);
    return at->second;
  }

  void define(int helper, std::size_t process, const std::vector<bool>& in) {
    Clause inside{-helper};
    Clause outside{helper};
    for (std::size_t l = 0; l < in.size(); ++l) {
      const int location = layout_.location(process, l);
      clauses_.push_back({-location, in[l] ? helper : -helper});
      (in[l] ? inside : outside).push_back(location);
    }
    clauses_.push_back(std::move(inside));
    clauses_.push_back(std::move(outside));
  }

  Number fresh(const Values& values) {
    Number number{{values.begin(), values.end()}, {}};
    for (std::size_t i = 1; i < values.size(); ++i) number.literals.push_back(next_++);
    for (std::size_t i = 1; i < number.literals.size(); ++i)
      clauses_.push_back({-number.literals[i], number.literals[i - 1]});
    return number;
  }

  // Adds to a clause "the number is at least v"; true where it always is.
  static bool orAtLeast(Clause& clause, const Number& number, std::int64_t v) {
    const auto at = std::lower_bound(number.values.begin(), number.values.end(), v);
    if (at == number.values.begin()) return true;
    if (at != number.values.end())
      clause.push_back(number.literals[static_cast<std::size_t>(at - number.values.begin()) - 1]);
    return false;
  }

  // ... "the number is at most v".
  static bool orAtMost(Clause& clause, const Number& number, std::int64_t v) {
    const auto at = std::upper_bound(number.values.begin(), number.values.end(), v);
    if (at == number.values.end()) return true;
    if (at != number.values.begin())
      clause.push_back(-number.literals[static_cast<std::size_t>(at - number.values.begin()) - 1]);
    return false;
  }

  // x + y = z.
  void addSum(const Number& x, const Number& y, const Number& z) {
    for (std::size_t i = 0; i < x.values.size(); ++i)
      for (std::size_t j = 0; j < y.values.size(); ++j) {
        const std::int64_t sum = x.values[i] + y.values[j];
        Clause least;
        if (i > 0) least.push_back(-x.literals[i - 1]);
        if (j > 0) least.push_back(-y.literals[j - 1]);
        if (!orAtLeast(least, z, sum)) clauses_.push_back(std::move(least));
        Clause most;
        if (i + 1 < x.values.size()) most.push_back(x.literals[i]);
        if (j + 1 < y.values.size()) most.push_back(y.literals[j]);
        if (!orAtMost(most, z, sum)) clauses_.push_back(std::move(most));
      }
  }

  const StateLayout& layout_;
  const Machine& machine_;
  Clauses clauses_;
  int next_;
  std::map<std::pair<std::size_t, std::vector<bool>>, int> groups_;  // locations: their helper
};

}  // namespace

LinearClauses linearClauses(const Machine& machine, const StateLayout& layout,
                            const std::vector<PlaceInvariant>& invariants,
                            const Checkpoint& checkpoint, std::size_t most) {
  Encoder encoder(machine, layout);
  std::size_t omitted = 0;
  for (const PlaceInvariant& invariant : invariants) {
    if (!encoder.add(invariant, most)) ++omitted;
    checkpoint();
  }
  return encoder.finish(omitted);
}

}  // namespace tpn
