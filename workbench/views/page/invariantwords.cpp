#include "workbench/views/page/invariantwords.hpp"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>
#include <utility>

#include "workbench/proof/statement.hpp"
#include "workbench/views/page/states.hpp"
#include "workbench/views/viewparts.hpp"

namespace tpn {

namespace {

// "a", "a or b", "a, b or c"
std::string listed(const std::vector<std::string>& items, const std::string& last) {
  std::string text;
  for (std::size_t i = 0; i < items.size(); ++i)
    text += (i == 0 ? "" : i + 1 == items.size() ? " " + last + " " : ", ") + items[i];
  return text;
}

// "P1 is in reading or waiting"
std::string placed(const Network& net, std::size_t process, const std::set<int>& locations) {
  std::vector<std::string> names;
  names.reserve(locations.size());
  for (const int l : locations) names.push_back(locationTitle(net, process, l));
  return processTitle(net, process) + " is in " + listed(names, "or");
}

using Places = std::map<std::size_t, std::set<int>>;  // by process

std::string capitalised(const std::string& word) {
  // Of our own words alone: names stay as they are.
  return word.starts_with("process ") ? "P" + word.substr(1) : word;
}

// --- Sums. ---

// One side of an equation: places by what they count.
using Side = std::map<std::int64_t, Places>;

std::size_t processesOf(const Side& side) {
  std::set<std::size_t> all;
  for (const auto& [weight, places] : side)
    for (const auto& [process, locations] : places) all.insert(process);
  return all.size();
}

bool countsOnce(const Side& side) { return side.size() == 1 && side.begin()->first == 1; }

// Of one process, which is there or not.
bool isOnePlace(const Side& side) { return countsOnce(side) && processesOf(side) == 1; }

std::vector<std::string> placesIn(const Network& net, const Places& places) {
  std::vector<std::string> all;
  for (const auto& [process, locations] : places) all.push_back(placed(net, process, locations));
  return all;
}

// "(A is in x; B is in y)"
std::string these(const Network& net, const Side& side) {
  return "(" + joined(placesIn(net, side.begin()->second), "; ") + ")";
}

// "2 [A is in x] + [B is in y]"
std::string weighed(const Network& net, const Side& side) {
  std::vector<std::string> terms;
  for (const auto& [weight, places] : side)
    for (const std::string& place : placesIn(net, places))
      terms.push_back((weight == 1 ? "" : std::to_string(weight) + " ") + "[" + place + "]");
  return terms.empty() ? "0" : joined(terms, " + ");
}

// Of places that count once each, and none on the right.
std::string howMany(const Network& net, const Side& left, std::int64_t total) {
  const std::vector<std::string> places = placesIn(net, left.begin()->second);
  if (total > 0)
    return "Of these always exactly " + std::to_string(total) +
           (total == 1 ? " is so: " : " are so: ") + joined(places, "; ") + ".";
  return (places.size() == 1 ? "Never: " : "None of these ever: ") + joined(places, "; ") + ".";
}

std::string equation(const Network& net, const Side& left, const Side& right, std::int64_t more) {
  if (right.empty() && countsOnce(left)) return howMany(net, left, more);
  if (more == 0 && isOnePlace(left) && isOnePlace(right))
    return capitalised(placesIn(net, left.begin()->second).front()) + " exactly when " +
           placesIn(net, right.begin()->second).front() + ".";
  if (countsOnce(left) && countsOnce(right) && more == 0)
    return "As many of these are so " + these(net, left) + " as of these " + these(net, right) +
           ".";
  if (countsOnce(left) && countsOnce(right))
    return "Of these " + these(net, left) + " always " + std::to_string(more) +
           " more are so than of these " + these(net, right) + ".";
  return "Always " + weighed(net, left) + " = " + weighed(net, right) +
         (more == 0 ? "" : " + " + std::to_string(more)) +
         ", where [...] is 1 while that is so and 0 otherwise.";
}

// --- Clauses: whenever all of some things are so, one of others is. ---

struct Implication {
  std::vector<std::string> premises;
  std::vector<std::string> conclusions;
};

std::string clockOf(const Network& net, std::size_t process) {
  return "the clock of " + processTitle(net, process);
}

// The locations that a clause wants of a process, where it says that it is not in one: the others.
Places wantedPlaces(const Network& net, const AtomClause& clause) {
  Places wanted;
  for (const Atom& atom : clause) {
    if (atom.kind != Atom::location) continue;
    std::set<int>& places = wanted[atom.process];
    const auto location = static_cast<int>(atom.value);
    if (atom.positive) places.insert(location);
    if (atom.positive) continue;
    for (const int other : net.processes[atom.process].locations)
      if (other != location) places.insert(other);
  }
  return wanted;
}

bool forbids(const AtomClause& clause, std::size_t process) {
  return std::any_of(clause.begin(), clause.end(), [&](const Atom& atom) {
    return atom.kind == Atom::location && atom.process == process && !atom.positive;
  });
}

// As a conclusion, or as a premise about the other locations: whichever are fewer.
void addPlaces(const Network& net, const AtomClause& clause, Implication& says) {
  for (const auto& [process, locations] : wantedPlaces(net, clause)) {
    std::set<int> others;
    for (const int l : net.processes[process].locations)
      if (!locations.contains(l)) others.insert(l);
    if (!others.empty() && others.size() < locations.size() + (forbids(clause, process) ? 1 : 0))
      says.premises.push_back(placed(net, process, others));
    else
      says.conclusions.push_back(placed(net, process, locations));
  }
}

std::string compared(const std::string& clock, const char* how, const std::string& time) {
  return clock + how + time;
}

void addClocks(const Network& net, const AtomClause& clause, std::int64_t unit, Implication& says) {
  std::vector<std::string> below;
  for (const Atom& atom : clause) {
    if (atom.kind != Atom::clock) continue;
    const std::string time = std::to_string(atom.value * unit);
    const std::string clock = clockOf(net, atom.process);
    if (atom.positive)
      says.conclusions.push_back(compared(clock, " is at least ", time));
    else if (says.conclusions.empty() && below.empty())
      below.push_back(compared(clock, " is below ", time));
    else
      says.premises.push_back(compared(clock, " is at least ", time));
  }
  says.conclusions.insert(says.conclusions.end(), below.begin(), below.end());
}

// --- Symmetry. ---

// The cycles that a permutation is made of, each from its least process on.
std::vector<std::vector<std::size_t>> cycles(const Generator& g) {
  std::vector<std::vector<std::size_t>> all;
  std::set<std::size_t> seen;
  for (const auto& [first, image] : g.processes) {
    if (!seen.insert(first).second || image == first) continue;
    all.push_back({first});
    for (std::size_t p = image; p != first; p = g.image(p)) {
      seen.insert(p);
      all.back().push_back(p);
    }
  }
  return all;
}

// --- Which clauses are worth saying. ---

bool implies(const Atom& a, const Atom& b) {
  if (a.kind != b.kind || a.positive != b.positive || a.process != b.process) return false;
  if (a.kind == Atom::location) return a.value == b.value;
  return a.positive ? a.value >= b.value : a.value <= b.value;
}

bool implies(const AtomClause& a, const AtomClause& b) {
  return std::all_of(a.begin(), a.end(), [&](const Atom& atom) {
    return std::any_of(b.begin(), b.end(), [&](const Atom& other) { return implies(atom, other); });
  });
}

// Does it follow from one of the others, and of two that say the same, from the first?
bool follows(const std::vector<AtomClause>& clauses, std::size_t i) {
  for (std::size_t k = 0; k < clauses.size(); ++k)
    if (k != i && implies(clauses[k], clauses[i]) && (k < i || !implies(clauses[i], clauses[k])))
      return true;
  return false;
}

// The shortest first, and none that follows from another, unless they are too many to look.
std::vector<AtomClause> worthSaying(std::vector<AtomClause> clauses) {
  constexpr std::size_t mostCompared = 2000;
  std::stable_sort(clauses.begin(), clauses.end(),
                   [](const AtomClause& a, const AtomClause& b) { return a.size() < b.size(); });
  if (clauses.size() > mostCompared) return clauses;
  std::vector<AtomClause> kept;
  for (std::size_t i = 0; i < clauses.size(); ++i)
    if (!follows(clauses, i)) kept.push_back(clauses[i]);
  return kept;
}

void addOnce(std::vector<std::string>& all, std::set<std::string>& said, std::string text) {
  if (said.insert(text).second) all.push_back(std::move(text));
}

}  // namespace

std::string sentence(const Network& net, const LinearInvariant& invariant) {
  Side left;
  Side right;
  // So that the total is not below 0.
  const int sign = invariant.total < 0 ? -1 : 1;
  for (const auto& [spot, coefficient] : invariant.coefficients) {
    if (coefficient == 0) continue;
    Side& side = (coefficient > 0) == (sign > 0) ? left : right;
    side[std::abs(coefficient)][spot.process].insert(spot.location);
  }
  if (left.empty() && invariant.total == 0) std::swap(left, right);
  return equation(net, left, right, sign * invariant.total);
}

std::string sentence(const Network& net, const AtomClause& clause, std::int64_t unit) {
  Implication says;
  addPlaces(net, clause, says);
  addClocks(net, clause, unit, says);
  if (says.premises.empty()) return "Always: " + listed(says.conclusions, "or") + ".";
  if (says.conclusions.empty())
    return (says.premises.size() == 1 ? "Never: " : "Never at once: ") +
           listed(says.premises, "and") + ".";
  return "Whenever " + listed(says.premises, "and") + ", " + listed(says.conclusions, "or") + ".";
}

std::string sentence(const Network& net, const Generator& generator) {
  std::vector<std::string> moves;
  for (const std::vector<std::size_t>& cycle : cycles(generator)) {
    std::vector<std::string> names;
    names.reserve(cycle.size());
    for (const std::size_t p : cycle) names.push_back(processTitle(net, p));
    moves.push_back(names.size() == 2 ? names[0] + " and " + names[1] + " change places"
                                      : joined(names, " becomes ") + " becomes " + names[0]);
  }
  for (const auto& [spot, to] : generator.locations) {
    const std::size_t image = generator.image(spot.process);
    moves.push_back(locationTitle(net, spot.process, spot.location) + " of " +
                    processTitle(net, spot.process) + " becomes " + locationTitle(net, image, to) +
                    (image == spot.process ? "" : " of " + processTitle(net, image)));
  }
  return capitalised(joined(moves, ", ")) + ".";
}

InvariantWords inWords(const Network& net, const Certificate& certificate) {
  const std::int64_t unit = unitOfTime(net);
  InvariantWords words;
  std::set<std::string> said;
  for (const LinearInvariant& invariant : certificate.linear)
    addOnce(words.sums, said, sentence(net, invariant));
  for (const AtomClause& clause : worthSaying(certificate.clauses))
    addOnce(words.clauses, said, sentence(net, clause, unit));
  for (const Generator& generator : certificate.generators)
    words.exchanges.push_back(sentence(net, generator));
  return words;
}

}  // namespace tpn
