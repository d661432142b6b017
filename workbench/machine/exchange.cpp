#include "workbench/machine/exchange.hpp"

#include <algorithm>
#include <deque>
#include <set>
#include <tuple>

namespace tpn {

namespace {

using Spot = std::pair<std::size_t, std::size_t>;  // process, rank

// What a transition does to one of its processes, whoever the others are.
using Role = std::tuple<std::int64_t, std::optional<std::int64_t>, std::size_t, std::size_t,
                        std::size_t, bool, bool>;
Role roleIn(const Machine::Transition& t, const Machine::Move& move) {
  return {t.earliest, t.latest, t.moves.size(), move.source, move.target, move.counts, move.resets};
}

const Machine::Move& moveOf(const Machine::Transition& t, std::size_t process) {
  return *std::find_if(t.moves.begin(), t.moves.end(),
                       [&](const Machine::Move& move) { return move.process == process; });
}

// Of the transitions in which a process has one role: the partners, and where each of them is
// before and after.
struct Company {
  std::map<std::size_t, std::pair<std::set<std::size_t>, std::set<std::size_t>>> partners;
};
std::map<Role, Company> company(const Machine& machine, std::size_t process) {
  std::map<Role, Company> result;
  for (const std::size_t index : machine.processes[process].movers) {
    const Machine::Transition& t = machine.transitions[index];
    Company& with = result[roleIn(t, moveOf(t, process))];
    for (const Machine::Move& move : t.moves) {
      if (move.process == process) continue;
      with.partners[move.process].first.insert(move.source);
      with.partners[move.process].second.insert(move.target);
    }
  }
  return result;
}

class Inference {
 public:
  explicit Inference(const Machine& machine) : machine_(machine) {}

  // False where the two cannot be exchanged.
  bool swap(std::size_t p, std::size_t q) {
    if (!swapProcesses(p, q)) return false;
    while (!agenda_.empty()) {
      const auto [a, b] = agenda_.front();
      agenda_.pop_front();
      if (!follow(company(machine_, a), company(machine_, b))) return false;
    }
    for (const auto& [spot, rank] : found_.ranks)
      if (found_.processes.contains(spot.first)) return false;
    return true;
  }

  const Exchange& found() const { return found_; }

 private:
  bool swapProcesses(std::size_t p, std::size_t q) {
    if (found_.process(p) == q && found_.process(q) == p) return true;
    if (p == q || found_.processes.contains(p) || found_.processes.contains(q)) return false;
    if (!alike(machine_.processes[p], machine_.processes[q])) return false;
    found_.processes[p] = q;
    found_.processes[q] = p;
    agenda_.emplace_back(p, q);
    return true;
  }

  // What follows from a role of one being a role of the other.
  bool follow(const std::map<Role, Company>& a, const std::map<Role, Company>& b) {
    if (a.size() != b.size()) return false;
    for (auto i = a.begin(), j = b.begin(); i != a.end(); ++i, ++j)
      if (i->first != j->first || !matchPartners(i->second, j->second)) return false;
    return true;
  }

  bool matchPartners(const Company& a, const Company& b) {
    std::vector<std::size_t> onlyA;
    std::vector<std::size_t> onlyB;
    for (const auto& [partner, places] : a.partners) {
      const auto other = b.partners.find(partner);
      if (other == b.partners.end())
        onlyA.push_back(partner);
      else if (!matchPlaces(partner, places.first, other->second.first) ||
               !matchPlaces(partner, places.second, other->second.second))
        return false;
    }
    for (const auto& [partner, places] : b.partners)
      if (!a.partners.contains(partner)) onlyB.push_back(partner);
    if (onlyA.size() != onlyB.size() || onlyA.size() > 1) return false;
    return onlyA.empty() || swapProcesses(onlyA.front(), onlyB.front());
  }

  // A value that goes with the one process is swapped for the one that goes with the other.
  bool matchPlaces(std::size_t process, const std::set<std::size_t>& a,
                   const std::set<std::size_t>& b) {
    if (a.size() != b.size()) return false;
    if (a.size() > 1 || a == b) return true;
    return swapRanks(process, *a.begin(), *b.begin());
  }
  bool swapRanks(std::size_t process, std::size_t r, std::size_t s) {
    if (found_.rank(process, r) == s && found_.rank(process, s) == r) return true;
    const std::size_t initial = machine_.processes[process].initial;
    if (r == initial || s == initial) return false;
    if (found_.ranks.contains({process, r}) || found_.ranks.contains({process, s})) return false;
    found_.ranks[{process, r}] = s;
    found_.ranks[{process, s}] = r;
    return true;
  }

  const Machine& machine_;
  Exchange found_;
  std::deque<std::pair<std::size_t, std::size_t>> agenda_;
};

// Transitions as values, to look up their images among those of a process.
using Value =
    std::tuple<std::int64_t, std::optional<std::int64_t>,
               std::vector<std::tuple<std::size_t, std::size_t, std::size_t, bool, bool>>>;

Value imageOf(const Machine::Transition& t, const Exchange& exchange) {
  Value value{t.earliest, t.latest, {}};
  for (const Machine::Move& move : t.moves)
    std::get<2>(value).emplace_back(
        exchange.process(move.process), exchange.rank(move.process, move.source),
        exchange.rank(move.process, move.target), move.counts, move.resets);
  std::sort(std::get<2>(value).begin(), std::get<2>(value).end());
  return value;
}

// Those that the exchange may change; the others are their own images.
std::set<std::size_t> affected(const Machine& machine, const Exchange& exchange) {
  std::set<std::size_t> result;
  for (const auto& [p, q] : exchange.processes)
    result.insert(machine.processes[p].movers.begin(), machine.processes[p].movers.end());
  for (const auto& [spot, rank] : exchange.ranks) {
    const Machine::Location& location = machine.processes[spot.first].locations[spot.second];
    result.insert(location.leaving.begin(), location.leaving.end());
    result.insert(location.entering.begin(), location.entering.end());
  }
  return result;
}

// As multisets: a transition may be there twice.
bool mapsOntoItself(const Machine& machine, const Exchange& exchange) {
  std::map<Value, int> surplus;
  for (const std::size_t t : affected(machine, exchange)) {
    ++surplus[imageOf(machine.transitions[t], {})];
    --surplus[imageOf(machine.transitions[t], exchange)];
  }
  return std::all_of(surplus.begin(), surplus.end(),
                     [](const auto& entry) { return entry.second == 0; });
}

}  // namespace

bool alike(const Machine::Process& a, const Machine::Process& b) {
  return a.locations.size() == b.locations.size() && a.initial == b.initial &&
         a.movers.size() == b.movers.size() && a.cap == b.cap;
}

std::size_t Exchange::process(std::size_t p) const {
  const auto found = processes.find(p);
  return found == processes.end() ? p : found->second;
}

std::size_t Exchange::rank(std::size_t p, std::size_t r) const {
  const auto found = ranks.find({p, r});
  return found == ranks.end() ? r : found->second;
}

std::optional<Exchange> exchange(const Machine& machine, std::size_t p, std::size_t q) {
  Inference inference(machine);
  if (!inference.swap(p, q) || !mapsOntoItself(machine, inference.found())) return std::nullopt;
  return inference.found();
}

}  // namespace tpn
