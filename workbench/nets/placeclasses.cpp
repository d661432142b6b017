#include "workbench/nets/placeclasses.hpp"

#include <cassert>
#include <utility>

namespace tpn {

PlaceClasses::PlaceClasses(const PetriNet& net, const std::vector<bool>& live,
                           const Checkpoint& checkpoint)
    : classes_(net.places.size()), occurrences_(net.places.size()) {
  for (std::size_t p = 0; p < net.places.size(); ++p)
    classes_[p] = {{p}, net.places[p].marked ? 1 : 0, false};
  for (std::size_t t = 0; t < net.transitions.size(); ++t) {
    checkpoint.at(t);
    if (live[t]) addEffect(net.transitions[t]);
  }
  isWaiting_.resize(columns_.size());
  for (std::size_t c = 0; c < columns_.size(); ++c) touch(c);
  settle(checkpoint);
}

std::vector<PlaceClasses::Effect> PlaceClasses::effects() const {
  std::vector<Effect> left;
  for (const Column& column : columns_)
    if (!column.entries.empty()) left.push_back(column.entries);
  return left;
}

void PlaceClasses::addEffect(const PetriNet::Transition& t) {
  Column column;
  for (const std::size_t p : t.consumed) change(column, p, -1);
  for (const std::size_t p : t.produced) change(column, p, 1);
  for (const auto& [place, by] : column.entries) occurrences_[place].push_back(columns_.size());
  columns_.push_back(std::move(column));
}

void PlaceClasses::change(Column& column, std::size_t key, int by) {
  int& entry = column.entries[key];
  column.winning -= entry > 0 ? 1 : 0;
  entry += by;
  column.winning += entry > 0 ? 1 : 0;
  if (entry == 0) column.entries.erase(key);
}

void PlaceClasses::touch(std::size_t column) {
  if (isWaiting_[column]) return;
  isWaiting_[column] = true;
  waiting_.push_back(column);
}

void PlaceClasses::settle(const Checkpoint& checkpoint) {
  for (std::size_t round = 0; !waiting_.empty(); ++round) {
    checkpoint.at(round);
    const std::size_t column = waiting_.front();
    waiting_.pop_front();
    isWaiting_[column] = false;
    look(column);
  }
}

void PlaceClasses::look(std::size_t column) {
  const auto& [entries, winning] = columns_[column];
  const auto all = static_cast<int>(entries.size());
  if (all == 0) return;
  if (winning == 0 || winning == all) return excludeAll(column);
  if (all > 2) return;
  const auto& [first, firstBy] = *entries.begin();
  const auto& [second, secondBy] = *entries.rbegin();
  if (firstBy + secondBy == 0)
    merge(first, second);
  else
    excludeAll(column);
}

void PlaceClasses::merge(std::size_t a, std::size_t b) {
  if (occurrences_[a].size() + classes_[a].places.size() <
      occurrences_[b].size() + classes_[b].places.size())
    std::swap(a, b);
  for (const std::size_t column : std::exchange(occurrences_[b], {})) {
    const auto entry = columns_[column].entries.find(b);
    if (entry == columns_[column].entries.end()) continue;
    const int by = entry->second;
    change(columns_[column], b, -by);
    change(columns_[column], a, by);
    occurrences_[a].push_back(column);
    touch(column);
  }
  Class& kept = classes_[a];
  const Class gone = std::exchange(classes_[b], {{}, 0, true});
  kept.places.insert(kept.places.end(), gone.places.begin(), gone.places.end());
  kept.tokens += gone.tokens;
  if (kept.tokens > 1) exclude(a);
}

void PlaceClasses::exclude(std::size_t key) {
  classes_[key].excluded = true;
  for (const std::size_t column : std::exchange(occurrences_[key], {})) {
    const auto entry = columns_[column].entries.find(key);
    if (entry == columns_[column].entries.end()) continue;
    change(columns_[column], key, -entry->second);
    touch(column);
  }
}

void PlaceClasses::excludeAll(std::size_t column) {
  std::vector<std::size_t> keys;
  for (const auto& [key, by] : columns_[column].entries) keys.push_back(key);
  for (const std::size_t key : keys) exclude(key);
}

}  // namespace tpn
