#include "workbench/machine/invariants.hpp"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <numeric>
#include <optional>
#include <set>
#include <tuple>
#include <utility>

#include "workbench/machine/sparserow.hpp"

namespace tpn {

namespace {

// A column for each location that is not initial.
struct Columns {
  explicit Columns(const Machine& machine) {
    for (std::size_t p = 0; p < machine.processes.size(); ++p) {
      first.push_back(places.size());
      for (std::size_t l = 0; l < machine.processes[p].locations.size(); ++l)
        if (l != machine.processes[p].initial) places.emplace_back(p, l);
    }
  }
  std::size_t of(const Machine& machine, std::size_t process, std::size_t rank) const {
    return first[process] + rank - (rank > machine.processes[process].initial ? 1 : 0);
  }

  std::vector<std::size_t> first;                           // [process]
  std::vector<std::pair<std::size_t, std::size_t>> places;  // [column]: process, rank
};

// The coefficients, as unknowns, that a transition leaves the sum alone with: this row times them
// is 0.
SparseRow equation(const Machine& machine, const Columns& columns, const Machine::Transition& t) {
  SparseRow row;
  for (const auto& [process, source, target, counts, resets] : t.moves) {
    if (source == target) continue;
    const std::size_t initial = machine.processes[process].initial;
    if (source != initial) row.emplace_back(columns.of(machine, process, source), -1);
    if (target != initial) row.emplace_back(columns.of(machine, process, target), 1);
  }
  std::sort(row.begin(), row.end());
  return row;
}

// Solves homogeneous equations as they come. Every solved unknown has a row of itself and unknowns
// that are free. An equation that is too hard is made true by setting its unknowns to 0, which
// loses solutions and adds none.
class Elimination {
 public:
  Elimination(std::size_t unknowns, std::int64_t& work)
      : rows_(unknowns), users_(unknowns), work_(work) {}

  void add(SparseRow row) {
    for (const std::size_t unknown : unknowns(row)) {
      if (!isSolved(unknown)) continue;
      std::optional<SparseRow> rest = spent(cleared(row, rows_[unknown], unknown));
      if (!rest) return forget(row);
      row = std::move(*rest);
    }
    if (!row.empty() && !solve(row)) forget(row);
  }

  // A basis of all solutions.
  std::vector<SparseRow> solutions() const {
    std::vector<SparseRow> result;
    for (std::size_t free = 0; free < rows_.size(); ++free)
      if (!isSolved(free))
        if (std::optional<SparseRow> row = solution(free)) result.push_back(std::move(*row));
    return result;
  }

 private:
  bool isSolved(std::size_t unknown) const { return !rows_[unknown].empty(); }

  static std::vector<std::size_t> unknowns(const SparseRow& row) {
    std::vector<std::size_t> result;
    result.reserve(row.size());
    for (const auto& [unknown, coefficient] : row) result.push_back(unknown);
    return result;
  }

  std::optional<SparseRow> spent(std::optional<SparseRow> row) {
    if (row) work_ -= static_cast<std::int64_t>(row->size()) + 1;
    return work_ < 0 ? std::nullopt : std::move(row);
  }

  // The unknown that the fewest rows have to be rewritten for.
  std::size_t cheapest(const SparseRow& row) const {
    const auto cost = [this](const std::pair<std::size_t, std::int64_t>& e) {
      return std::pair(std::abs(e.second) != 1, users_[e.first].size());
    };
    return std::min_element(row.begin(), row.end(),
                            [&](const auto& a, const auto& b) { return cost(a) < cost(b); })
        ->first;
  }

  bool solve(const SparseRow& row) {
    const std::size_t pivot = cheapest(row);
    std::vector<SparseRow> changed;
    for (const std::size_t user : users_[pivot]) {
      std::optional<SparseRow> rest = spent(cleared(rows_[user], row, pivot));
      if (!rest) return false;
      changed.push_back(std::move(*rest));
    }
    const std::set<std::size_t> changing = std::exchange(users_[pivot], {});
    auto next = changed.begin();
    for (const std::size_t user : changing) setRow(user, std::move(*next++));
    setRow(pivot, row);
    return true;
  }

  void setRow(std::size_t solved, SparseRow row) {
    for (const auto& [unknown, coefficient] : rows_[solved]) users_[unknown].erase(solved);
    for (const auto& [unknown, coefficient] : row)
      if (unknown != solved) users_[unknown].insert(solved);
    rows_[solved] = std::move(row);
  }

  void forget(const SparseRow& row) {
    for (const std::size_t unknown : unknowns(row)) {
      if (!isSolved(unknown)) {
        forget(unknown);
      } else {
        for (const std::size_t other : unknowns(rows_[unknown]))
          if (other != unknown) forget(other);
      }
    }
  }

  void forget(std::size_t free) {
    for (const std::size_t user : std::exchange(users_[free], {})) {
      SparseRow& row = rows_[user];
      row.erase(
          std::find_if(row.begin(), row.end(), [free](const auto& e) { return e.first == free; }));
    }
    rows_[free] = {{free, 1}};
  }

  // That with one free unknown not 0, the others 0.
  std::optional<SparseRow> solution(std::size_t free) const {
    std::int64_t scale = 1;
    for (const std::size_t user : users_[free]) {
      const std::int64_t own = std::abs(entry(rows_[user], user));
      const std::int64_t divisor =
          own / std::gcd(own, entry(rows_[user], free));  // of user, where free is 1
      if (__builtin_mul_overflow(scale, divisor / std::gcd(scale, divisor), &scale))
        return std::nullopt;
    }
    SparseRow result{{free, scale}};
    for (const std::size_t user : users_[free]) {
      const std::int64_t own = entry(rows_[user], user);
      const std::int64_t its = entry(rows_[user], free);
      const std::int64_t common = std::gcd(own, its);
      std::int64_t value = 0;
      if (__builtin_mul_overflow(scale / (own / common), -(its / common), &value))
        return std::nullopt;
      result.emplace_back(user, value);
    }
    std::sort(result.begin(), result.end());
    return result;
  }

  std::vector<SparseRow> rows_;               // [unknown]: empty while it is free
  std::vector<std::set<std::size_t>> users_;  // [free unknown]: those solved by it
  std::int64_t& work_;
};

// Makes the rows of a basis simpler by adding multiples of others, while there is work left.
class Simplifier {
 public:
  Simplifier(const Machine& machine, const Columns& columns, std::vector<SparseRow>& basis,
             std::int64_t& work)
      : machine_(machine), columns_(columns), basis_(basis), work_(work) {
    for (std::size_t i = 0; i < basis.size(); ++i) enter(i);
  }

  void run() {
    for (bool changed = true; changed && work_ > 0;) {
      changed = false;
      for (std::size_t i = 0; i < basis_.size() && work_ > 0; ++i)
        while (improve(i)) changed = true;
    }
  }

 private:
  // Locations that are told from most others of their process; then entries; then their size.
  using Cost = std::tuple<std::size_t, std::size_t, std::int64_t>;

  Cost cost(const SparseRow& row) const {
    std::size_t told = 0;
    std::int64_t size = 0;
    for (std::size_t i = 0; i < row.size();) {
      const std::size_t process = columns_.places[row[i].first].first;
      std::map<std::int64_t, std::size_t> count;
      std::size_t others = machine_.processes[process].locations.size();
      std::size_t most = 0;
      for (; i < row.size() && columns_.places[row[i].first].first == process; ++i, --others) {
        most = std::max(most, ++count[row[i].second]);
        const std::int64_t magnitude = std::abs(row[i].second);
        size = std::max(size, magnitude);
      }
      told += machine_.processes[process].locations.size() - std::max(most, others);
    }
    return {told, row.size(), size};
  }

  void enter(std::size_t row) {
    for (const auto& [column, value] : basis_[row]) having_[column].insert(row);
  }

  bool improve(std::size_t i) {
    const Cost before = cost(basis_[i]);
    for (const auto& [column, value] : basis_[i])
      for (const std::size_t other : having_[column]) {
        if (other == i) continue;
        work_ -= static_cast<std::int64_t>(basis_[i].size() + basis_[other].size());
        if (work_ < 0) return false;
        std::optional<SparseRow> row = cleared(basis_[i], basis_[other], column);
        if (!row || cost(*row) >= before) continue;
        for (const auto& [old, v] : basis_[i]) having_[old].erase(i);
        basis_[i] = std::move(*row);
        enter(i);
        return true;
      }
    return false;
  }

  const Machine& machine_;
  const Columns& columns_;
  std::vector<SparseRow>& basis_;
  std::int64_t& work_;
  std::map<std::size_t, std::set<std::size_t>> having_;  // [column]: rows
};

std::vector<SparseRow> nullSpace(const Machine& machine, const Columns& columns,
                                 std::int64_t& work) {
  std::vector<SparseRow> equations;
  for (const Machine::Transition& t : machine.transitions)
    equations.push_back(equation(machine, columns, t));
  // Short ones first: they make the others short.
  std::stable_sort(equations.begin(), equations.end(),
                   [](const SparseRow& a, const SparseRow& b) { return a.size() < b.size(); });
  equations.erase(std::unique(equations.begin(), equations.end()), equations.end());
  Elimination elimination(columns.places.size(), work);
  for (SparseRow& row : equations) elimination.add(std::move(row));
  return elimination.solutions();
}

PlaceInvariant asInvariant(const Columns& columns, const SparseRow& row) {
  const std::int64_t sign = row.front().second < 0 ? -1 : 1;
  PlaceInvariant result;
  for (const auto& [column, value] : row)
    result.terms.push_back(
        {columns.places[column].first, columns.places[column].second, sign * value});
  return result;
}

}  // namespace

std::vector<PlaceInvariant> placeInvariants(const Machine& machine, std::int64_t work) {
  const Columns columns(machine);
  std::int64_t left = work;
  std::vector<SparseRow> basis = nullSpace(machine, columns, left);
  left = work;
  Simplifier(machine, columns, basis, left).run();
  std::vector<PlaceInvariant> result;
  for (const SparseRow& row : basis) result.push_back(asInvariant(columns, row));
  return result;
}

}  // namespace tpn
