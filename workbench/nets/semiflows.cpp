#include "workbench/nets/semiflows.hpp"

#include <algorithm>
#include <iterator>
#include <map>
#include <numeric>
#include <optional>
#include <set>
#include <utility>

#include "workbench/nets/placeclasses.hpp"

namespace tpn {

namespace {

using Classes = std::vector<std::size_t>;

struct Row {
  Classes classes;                    // ascending
  std::map<std::size_t, int> effect;  // by transition, none of them 0
  int tokens = 0;
};

// The transitions and classes that have to do with one another.
class Elimination {
 public:
  Elimination(std::vector<Row> rows, const Checkpoint& checkpoint, std::int64_t& work)
      : rows_(std::move(rows)), checkpoint_(checkpoint), work_(work) {}

  // What no transition changes.
  std::vector<Row> solved() {
    while (work_ > 0) {
      checkpoint_();
      const auto column = cheapest();
      if (!column) break;
      eliminate(*column);
    }
    std::erase_if(rows_, [](const Row& row) { return !row.effect.empty(); });
    return std::move(rows_);
  }

 private:
  // The transition for which the fewest rows have to be joined.
  std::optional<std::size_t> cheapest() {
    std::map<std::size_t, std::pair<std::int64_t, std::int64_t>> counts;  // winning, losing
    for (const Row& row : rows_) {
      work_ -= static_cast<std::int64_t>(row.effect.size());
      for (const auto& [column, by] : row.effect)
        ++(by > 0 ? counts[column].first : counts[column].second);
    }
    const auto cost = [](const auto& entry) { return entry.second.first * entry.second.second; };
    const auto least =
        std::min_element(counts.begin(), counts.end(),
                         [&](const auto& a, const auto& b) { return cost(a) < cost(b); });
    return least == counts.end() ? std::nullopt : std::optional(least->first);
  }

  void eliminate(std::size_t column) {
    std::vector<Row> kept;
    std::vector<Row> winning;
    std::vector<Row> losing;
    for (Row& row : rows_) {
      const auto entry = row.effect.find(column);
      const int by = entry == row.effect.end() ? 0 : entry->second;
      (by == 0 ? kept : by > 0 ? winning : losing).push_back(std::move(row));
    }
    std::set<Classes> known;
    std::size_t round = 0;
    for (const Row& w : winning)
      for (const Row& l : losing) {
        checkpoint_.at(round++);
        if (--work_ < 0) break;
        if (w.effect.at(column) + l.effect.at(column) != 0 || w.tokens + l.tokens > 1) continue;
        auto made = joined(w, l);
        if (made && known.insert(made->classes).second) kept.push_back(std::move(*made));
      }
    rows_ = std::move(kept);
  }

  // Nothing where they share a class, which would count twice.
  std::optional<Row> joined(const Row& a, const Row& b) {
    work_ -= static_cast<std::int64_t>(a.classes.size() + b.classes.size() + a.effect.size() +
                                       b.effect.size());
    Row row;
    row.tokens = a.tokens + b.tokens;
    std::set_union(a.classes.begin(), a.classes.end(), b.classes.begin(), b.classes.end(),
                   std::back_inserter(row.classes));
    if (row.classes.size() != a.classes.size() + b.classes.size()) return std::nullopt;
    row.effect = a.effect;
    for (const auto& [column, by] : b.effect)
      if ((row.effect[column] += by) == 0) row.effect.erase(column);
    return row;
  }

  std::vector<Row> rows_;
  const Checkpoint& checkpoint_;
  std::int64_t& work_;
};

// Classes in groups that no effect joins.
class Groups {
 public:
  Groups(std::size_t classes, const std::vector<PlaceClasses::Effect>& effects)
      : parents_(classes) {
    std::iota(parents_.begin(), parents_.end(), std::size_t{0});
    for (const PlaceClasses::Effect& effect : effects)
      for (const auto& [key, by] : effect) parents_[find(key)] = find(effect.begin()->first);
  }

  std::size_t find(std::size_t key) {
    while (parents_[key] != key) key = parents_[key] = parents_[parents_[key]];
    return key;
  }

 private:
  std::vector<std::size_t> parents_;
};

std::vector<std::size_t> placesOf(const PlaceClasses& classes, const Classes& keys) {
  std::vector<std::size_t> places;
  for (const std::size_t key : keys) {
    const auto& more = classes.classes()[key].places;
    places.insert(places.end(), more.begin(), more.end());
  }
  std::sort(places.begin(), places.end());
  return places;
}

// The classes that a set can hold, group by group, the small ones first: they are done with little
// work.
std::vector<std::vector<Row>> groupedRows(const PlaceClasses& classes) {
  const std::vector<PlaceClasses::Effect> effects = classes.effects();
  std::vector<Row> rows(classes.classes().size());
  for (std::size_t t = 0; t < effects.size(); ++t)
    for (const auto& [key, by] : effects[t]) rows[key].effect[t] = by;
  Groups groups(rows.size(), effects);
  std::map<std::size_t, std::vector<Row>> grouped;
  for (std::size_t key = 0; key < rows.size(); ++key) {
    if (classes.classes()[key].excluded) continue;
    rows[key].classes = {key};
    rows[key].tokens = classes.classes()[key].tokens;
    grouped[groups.find(key)].push_back(std::move(rows[key]));
  }
  std::vector<std::vector<Row>> ordered;
  ordered.reserve(grouped.size());
  for (auto& [key, group] : grouped) ordered.push_back(std::move(group));
  std::stable_sort(ordered.begin(), ordered.end(),
                   [](const auto& a, const auto& b) { return a.size() < b.size(); });
  return ordered;
}

}  // namespace

std::vector<std::vector<std::size_t>> semiflows(const PetriNet& net, const std::vector<bool>& live,
                                                const Checkpoint& checkpoint, std::int64_t work) {
  const PlaceClasses classes(net, live, checkpoint);
  std::vector<std::vector<std::size_t>> found;
  for (std::vector<Row>& group : groupedRows(classes))
    for (const Row& row : Elimination(std::move(group), checkpoint, work).solved())
      if (row.tokens == 1) found.push_back(placesOf(classes, row.classes));
  return found;
}

}  // namespace tpn
