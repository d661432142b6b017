#include "workbench/machine/symmetry.hpp"

#include <algorithm>
#include <bliss/graph.hh>
#include <map>
#include <tuple>
#include <utility>

namespace tpn {

namespace {

using Interval = std::pair<std::int64_t, std::optional<std::int64_t>>;
using MoveValue = std::tuple<std::size_t, std::size_t, std::size_t, bool, bool>;
using Moves = std::vector<MoveValue>;
using Shape = std::pair<Interval, Moves>;  // of a transition; moves by process

Shape shapeOf(const Machine::Transition& t) {
  Shape shape{{t.earliest, t.latest}, {}};
  for (const auto& [process, source, target, counts, resets] : t.moves)
    shape.second.emplace_back(process, source, target, counts, resets);
  return shape;
}

Shape imageOf(const Machine::Transition& t, const Symmetry& s) {
  Shape shape{{t.earliest, t.latest}, {}};
  for (const auto& [process, source, target, counts, resets] : t.moves)
    shape.second.emplace_back(s.process[process], s.ranks[process][source],
                              s.ranks[process][target], counts, resets);
  std::sort(shape.second.begin(), shape.second.end());
  return shape;
}

// The graph: a vertex a process, a location, a transition; two for what a move does, shared by all
// transitions that have it: its source side and its target side, or one where it stays. process -
// location, transition - source side, source side - source, source side - target side, target side
// - target. (A vertex for each move of each transition takes three times as many.) What sides there
// are tells moves apart that count, or reset, from others.
class SymmetryGraph {
 public:
  SymmetryGraph(const Machine& machine, const Checkpoint& checkpoint)
      : machine_(machine), checkpoint_(checkpoint) {
    for (const Machine::Process& process : machine.processes) addProcess(process);
    for (std::size_t t = 0; t < machine.transitions.size(); ++t) {
      addTransition(machine.transitions[t]);
      checkpoint_.at(t);
    }
  }

  std::vector<Symmetry> generators() {
    bliss::Stats stats;
    graph_.find_automorphisms(stats, take, this);
    return std::move(found_);
  }

 private:
  enum Colour : unsigned {
    ofProcess,
    ofLocation,
    ofInitial,
    sourceSide,
    targetSide,
    staying,
    idleSourceSide,  // of a move that does not count
    idleStaying,
    reading,  // of one that does not reset
    idleReading,
    transitions
  };

  static Colour sideOf(const Machine::Move& move) {
    if (move.source != move.target) return move.counts ? sourceSide : idleSourceSide;
    if (move.resets) return move.counts ? staying : idleStaying;
    return move.counts ? reading : idleReading;
  }

  void addProcess(const Machine::Process& p) {
    const unsigned vertex = graph_.add_vertex(ofProcess);
    processes_.push_back(vertex);
    locations_.push_back(vertex + 1);
    for (std::size_t l = 0; l < p.locations.size(); ++l)
      graph_.add_edge(vertex, graph_.add_vertex(l == p.initial ? ofInitial : ofLocation));
  }

  void addTransition(const Machine::Transition& t) {
    const auto colour = colours_.emplace(Interval{t.earliest, t.latest},
                                         transitions + static_cast<unsigned>(colours_.size()));
    const unsigned vertex = graph_.add_vertex(colour.first->second);
    for (const Machine::Move& move : t.moves) graph_.add_edge(vertex, moveVertex(move));
  }

  unsigned moveVertex(const Machine::Move& move) {
    const auto& [p, source, target, counts, resets] = move;
    const auto [entry, isNew] = moves_.try_emplace({p, source, target, counts, resets}, 0);
    if (!isNew) return entry->second;
    const unsigned from = entry->second = graph_.add_vertex(sideOf(move));
    graph_.add_edge(from, locations_[p] + static_cast<unsigned>(source));
    if (source == target) return from;
    const unsigned to = graph_.add_vertex(targetSide);
    graph_.add_edge(from, to);
    graph_.add_edge(to, locations_[p] + static_cast<unsigned>(target));
    return from;
  }

  static void take(void* self, unsigned /*count*/, const unsigned* image) {
    static_cast<SymmetryGraph*>(self)->add(image);
  }

  // Called by the library, which what the checkpoint throws may pass through.
  void add(const unsigned* image) {
    checkpoint_();
    Symmetry s;
    for (std::size_t p = 0; p < processes_.size(); ++p) {
      const auto q = std::lower_bound(processes_.begin(), processes_.end(), image[processes_[p]]);
      s.process.push_back(static_cast<std::size_t>(q - processes_.begin()));
      s.ranks.emplace_back();
      const unsigned first = locations_[s.process.back()];
      for (std::size_t l = 0; l < machine_.processes[p].locations.size(); ++l)
        s.ranks.back().push_back(image[locations_[p] + static_cast<unsigned>(l)] - first);
    }
    found_.push_back(std::move(s));
  }

  const Machine& machine_;
  const Checkpoint& checkpoint_;
  bliss::Graph graph_;
  std::vector<unsigned> processes_;
  std::vector<unsigned> locations_;  // [process]: the first one's vertex
  std::map<Interval, unsigned> colours_;
  std::map<MoveValue, unsigned> moves_;
  std::vector<Symmetry> found_;
};

std::size_t vertices(const Machine& machine) {
  std::size_t count = machine.transitions.size();
  for (const Machine::Process& process : machine.processes) count += 1 + process.locations.size();
  for (const Machine::Transition& t : machine.transitions) count += 2 * t.moves.size();
  return count;
}

// Is it a permutation of the numbers below `size`?
bool permutes(std::vector<std::size_t> images, std::size_t size) {
  std::sort(images.begin(), images.end());
  for (std::size_t i = 0; i < images.size(); ++i)
    if (images[i] != i) return false;
  return images.size() == size;
}

bool mapsProcesses(const Machine& machine, const Symmetry& s) {
  if (!permutes(s.process, machine.processes.size())) return false;
  for (std::size_t p = 0; p < machine.processes.size(); ++p) {
    const Machine::Process& from = machine.processes[p];
    const Machine::Process& to = machine.processes[s.process[p]];
    if (from.locations.size() != to.locations.size() ||
        !permutes(s.ranks[p], from.locations.size()) || s.ranks[p][from.initial] != to.initial)
      return false;
  }
  return true;
}

// The transitions with moves that are not their own images, ascending. Found from the processes
// that have some, which are few: there may be as many symmetries as processes.
std::vector<std::size_t> changed(const Machine& machine, const Symmetry& s) {
  std::vector<std::size_t> found;
  for (std::size_t p = 0; p < machine.processes.size(); ++p) {
    const auto moves = [&](std::size_t rank) {
      return s.process[p] != p || s.ranks[p][rank] != rank;
    };
    for (std::size_t l = 0; l < machine.processes[p].locations.size(); ++l) {
      if (!moves(l)) continue;
      const Machine::Location& location = machine.processes[p].locations[l];
      found.insert(found.end(), location.leaving.begin(), location.leaving.end());
      found.insert(found.end(), location.entering.begin(), location.entering.end());
    }
  }
  std::sort(found.begin(), found.end());
  found.erase(std::unique(found.begin(), found.end()), found.end());
  return found;
}

}  // namespace

bool isSymmetry(const Machine& machine, const Symmetry& symmetry) {
  if (symmetry.process.size() != machine.processes.size() ||
      symmetry.ranks.size() != machine.processes.size() || !mapsProcesses(machine, symmetry))
    return false;
  // Only transitions that it changes at all: the others are their own images.
  std::vector<Shape> from;
  std::vector<Shape> to;
  for (const std::size_t t : changed(machine, symmetry)) {
    from.push_back(shapeOf(machine.transitions[t]));
    to.push_back(imageOf(machine.transitions[t], symmetry));
  }
  std::sort(from.begin(), from.end());
  std::sort(to.begin(), to.end());
  return from == to;
}

std::vector<Symmetry> symmetries(const Machine& machine, const Checkpoint& checkpoint,
                                 std::size_t mostVertices) {
  if (vertices(machine) > mostVertices) return {};
  std::vector<Symmetry> found = SymmetryGraph(machine, checkpoint).generators();
  std::erase_if(found, [&](const Symmetry& s) {
    checkpoint();
    return !isSymmetry(machine, s);
  });
  // Transitions that are alike may be swapped, and nothing else: that is none of the states'.
  Symmetry same;
  for (std::size_t p = 0; p < machine.processes.size(); ++p) {
    same.process.push_back(p);
    same.ranks.emplace_back();
    for (std::size_t l = 0; l < machine.processes[p].locations.size(); ++l)
      same.ranks.back().push_back(l);
  }
  std::erase(found, same);
  return found;
}

std::vector<int> permutationOf(const Machine& machine, const StateLayout& layout,
                               const Symmetry& symmetry) {
  std::vector<int> images(static_cast<std::size_t>(layout.size()) + 1, 0);
  for (std::size_t p = 0; p < machine.processes.size(); ++p) {
    const std::size_t q = symmetry.process[p];
    for (std::size_t l = 0; l < machine.processes[p].locations.size(); ++l)
      images[static_cast<std::size_t>(layout.location(p, l))] =
          layout.location(q, symmetry.ranks[p][l]);
    for (int c = 0; c < layout.width(p); ++c)
      images[static_cast<std::size_t>(layout.clockAt(p, c))] = layout.clockAt(q, c);
  }
  return images;
}

}  // namespace tpn
