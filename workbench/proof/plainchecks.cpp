#include "workbench/proof/plainchecks.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <set>

#include "workbench/network/shown.hpp"

namespace tpn {

namespace {

bool exists(const Network& net, std::size_t process) { return process < net.processes.size(); }

bool exists(const Network& net, const Spot& spot) {
  return exists(net, spot.process) && net.processes[spot.process].locations.contains(spot.location);
}

bool exists(const Network& net, const Atom& atom) {
  if (atom.kind == Atom::clock) return exists(net, atom.process) && atom.value >= 1;
  return exists(net, Spot{atom.process, static_cast<int>(atom.value)});
}

std::string numbered(const char* what, std::size_t index) {
  return std::string(what) + " " + std::to_string(number(index));
}

// A set of values as a multiset of transitions would compare them.
struct Shape {
  std::int64_t earliest;
  std::optional<std::int64_t> latest;
  std::vector<std::array<std::int64_t, 5>> moves;

  friend auto operator<=>(const Shape&, const Shape&) = default;
};

Shape shape(const Transition& t, const Generator& g) {
  Shape result{t.interval.earliest, t.interval.latest, {}};
  for (const Move& move : t.moves) {
    const Spot from = g.image(Spot{move.process, move.source});
    const Spot to = g.image(Spot{move.process, move.target});
    result.moves.push_back({static_cast<std::int64_t>(from.process), from.location, to.location,
                            move.counts ? 1 : 0, move.resets ? 1 : 0});
  }
  std::sort(result.moves.begin(), result.moves.end());
  return result;
}

bool permutes(const Network& net, const Generator& g) {
  std::set<std::size_t> images;
  for (const auto& [from, to] : g.processes) {
    if (!exists(net, from) || !g.processes.contains(to)) return false;
    images.insert(to);
  }
  return images.size() == g.processes.size();
}

// Are the locations of the process mapped one to one onto those of its image, 0 onto 0?
bool mapsLocations(const Network& net, const Generator& g, std::size_t process) {
  if (g.image(Spot{process, 0}).location != 0) return false;
  std::set<int> images;
  for (const int location : net.processes[process].locations)
    images.insert(g.image(Spot{process, location}).location);
  return images == net.processes[g.image(process)].locations &&
         images.size() == net.processes[process].locations.size();
}

bool mapsLocations(const Network& net, const Generator& g) {
  for (const auto& [spot, to] : g.locations)
    if (!exists(net, spot)) return false;
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    if (!mapsLocations(net, g, p)) return false;
  return true;
}

// Whether the images of all transitions are transitions: then, the map being one to one, the
// images are all of them. Those that the generator leaves alone are their own images.
bool mapsTransitions(const Network& net, const std::set<Shape>& shapes, const Generator& g) {
  return std::all_of(net.transitions.begin(), net.transitions.end(), [&](const Transition& t) {
    const bool touched = std::any_of(t.moves.begin(), t.moves.end(), [&](const Move& move) {
      return g.processes.contains(move.process) ||
             g.locations.contains(Spot{move.process, move.source}) ||
             g.locations.contains(Spot{move.process, move.target});
    });
    return !touched || shapes.contains(shape(t, g));
  });
}

std::int64_t coefficient(const LinearInvariant& invariant, const Spot& spot) {
  const auto found = invariant.coefficients.find(spot);
  return found == invariant.coefficients.end() ? 0 : found->second;
}

// Sums of 64-bit numbers, of as many as memory holds, fit into 128 bits.
__extension__ using Wide = __int128;

std::string linearComplaint(const Network& net, const LinearInvariant& invariant) {
  Wide initially = 0;
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    initially += coefficient(invariant, {p, 0});
  if (initially != invariant.total) return "has another total in the initial state";
  for (std::size_t t = 0; t < net.transitions.size(); ++t) {
    Wide change = 0;
    for (const Move& move : net.transitions[t].moves) {
      change += coefficient(invariant, {move.process, move.target});
      change -= coefficient(invariant, {move.process, move.source});
    }
    if (change != 0) return "is changed by " + std::string("transition ") + shownTransition(net, t);
  }
  return "";
}

bool holdsInitially(const Atom& atom) {
  const bool value = atom.kind == Atom::location && atom.value == 0;
  return value == atom.positive;
}

}  // namespace

std::string text(const Atom& atom) {
  return (atom.positive ? "" : "-") + std::to_string(number(atom.process)) +
         (atom.kind == Atom::location ? "@" : ">=") + std::to_string(atom.value);
}

std::string text(const AtomClause& clause) {
  std::string result;
  for (const Atom& atom : clause) result += (result.empty() ? "" : " ") + text(atom);
  return result;
}

std::string text(const Network& net, const AtomClause& clause) {
  std::string names;
  for (const Atom& atom : clause)
    names += std::string(names.empty() ? "" : " ") + (atom.positive ? "" : "-") +
             (atom.kind == Atom::location
                  ? shownSpot(net, atom.process, static_cast<int>(atom.value))
                  : shownProcess(net, atom.process) + ">=" + std::to_string(atom.value));
  return "clause " + text(clause) + (net.names == Names{} ? "" : " (" + names + ")");
}

std::string shapeComplaint(const Network& net, const Certificate& certificate) {
  for (std::size_t i = 0; i < certificate.linear.size(); ++i)
    for (const auto& [spot, c] : certificate.linear[i].coefficients)
      if (!exists(net, spot))
        return numbered("linear invariant", i) + " names a location that does not exist";
  for (std::size_t i = 0; i < certificate.clauses.size(); ++i)
    for (const Atom& atom : certificate.clauses[i])
      if (!exists(net, atom))
        return numbered("clause", i) + " says " + text(atom) + ": no such thing";
  return "";
}

std::string symmetryComplaint(const Network& net, const std::vector<Generator>& generators,
                              const Checkpoint& checkpoint) {
  std::set<Shape> shapes;
  for (const Transition& t : net.transitions) shapes.insert(shape(t, Generator{}));
  for (std::size_t i = 0; i < generators.size(); ++i) {
    checkpoint();
    const Generator& g = generators[i];
    if (!permutes(net, g)) return numbered("generator", i) + " does not permute the processes";
    if (!mapsLocations(net, g))
      return numbered("generator", i) + " does not map the locations one to one, 0 to 0";
    if (!mapsTransitions(net, shapes, g))
      return numbered("generator", i) + " does not map the transitions onto themselves";
  }
  return "";
}

std::string linearComplaint(const Network& net, const std::vector<LinearInvariant>& invariants,
                            const Checkpoint& checkpoint) {
  for (std::size_t i = 0; i < invariants.size(); ++i) {
    checkpoint();
    const std::string complaint = linearComplaint(net, invariants[i]);
    if (!complaint.empty()) return numbered("linear invariant", i) + " " + complaint;
  }
  return "";
}

std::string initialComplaint(const Network& net, const std::vector<AtomClause>& clauses) {
  for (const AtomClause& clause : clauses)
    if (std::none_of(clause.begin(), clause.end(), holdsInitially))
      return "the initial state is not inside: " + text(net, clause);
  return "";
}

}  // namespace tpn
