#include "workbench/nets/translate.hpp"

#include <algorithm>
#include <cassert>
#include <map>
#include <utility>

#include "workbench/nets/bridge.hpp"
#include "workbench/nets/components.hpp"
#include "workbench/nets/distinct.hpp"
#include "workbench/nets/tinalexer.hpp"

namespace tpn {

namespace {

// A location of a process; of the two of an uncovered place, the one where it is marked.
struct Spot {
  std::size_t process = 0;
  int location = 0;
};

bool has(const std::vector<std::size_t>& places, std::size_t p) {
  return std::binary_search(places.begin(), places.end(), p);
}

bool isTitle(const std::string& name) {
  return !name.empty() && name.back() != '\r' && name.find('\n') == std::string::npos;
}

class Translator {
 public:
  Translator(const PetriNet& net, const Checkpoint& checkpoint)
      : net_(net),
        checkpoint_(checkpoint),
        cover_(coverOf(net, checkpoint)),
        spots_(net.places.size()) {}

  Translation translated() {
    result_.net.title = isTitle(net_.name) ? net_.name : "net";
    for (const Component& component : cover_.components) addComponent(component);
    for (std::size_t p = 0; p < net_.places.size(); ++p)
      if (cover_.marked[p] && !cover_.covered[p]) addUncovered(p);
    for (std::size_t t = 0; t < net_.transitions.size(); ++t) {
      checkpoint_.at(t);
      if (cover_.live[t])
        addTransition(t);
      else
        result_.left.push_back(t);
    }
    for (std::size_t p = 0; p < net_.places.size(); ++p)
      if (!cover_.marked[p]) result_.unmarked.push_back(p);
    label();
    return std::move(result_);
  }

 private:
  Names& names() { return result_.net.names; }

  std::size_t addProcess(const std::string& name, std::vector<std::size_t> places) {
    if (!name.empty()) names().processes[result_.places.size()] = processNames_.name(name);
    result_.net.processes.push_back({{0}, {}});
    result_.places.push_back(std::move(places));
    return result_.places.size() - 1;
  }

  void addComponent(const Component& component) {
    const std::size_t process = addProcess(component.name, component.places);
    int location = 0;
    for (const std::size_t p : component.places)
      if (cover_.marked[p]) spots_[p].push_back({process, net_.places[p].marked ? 0 : ++location});
  }

  void addUncovered(std::size_t p) {
    result_.uncovered.push_back(p);
    spots_[p].push_back({addProcess(net_.places[p].name, {p}), net_.places[p].marked ? 0 : 1});
  }

  // A component's process moves as a whole: what the transition takes of it, and puts there.
  void addTransition(std::size_t t) {
    const PetriNet::Transition& from = net_.transitions[t];
    std::map<std::size_t, Move> moves;
    for (const std::size_t p : from.consumed)
      for (const Spot& spot : spots_[p]) moves[spot.process] = consuming(from, p, spot);
    for (const std::size_t p : from.read)
      for (const Spot& spot : spots_[p])
        moves[spot.process] = {spot.process, spot.location, spot.location, true, false};
    for (const std::size_t p : from.produced)
      for (const Spot& spot : spots_[p]) produce(from, p, spot, moves);
    Transition made{from.interval, {}};
    for (auto& [process, move] : moves) made.moves.push_back(move);
    if (from.consumed.empty()) made.moves.push_back({addProcess(from.name, {}), 0, 0});
    enter(made);
    names().transitions[result_.transitions.size()] = from.name;
    result_.transitions.push_back(t);
    result_.net.transitions.push_back(std::move(made));
  }

  // Of a component the target is known when what is produced is; the token of an uncovered place is
  // gone unless it is put back.
  Move consuming(const PetriNet::Transition& from, std::size_t p, const Spot& spot) const {
    const bool stays = cover_.covered[p] || has(from.produced, p);
    return {spot.process, spot.location, stays ? spot.location : 1 - spot.location};
  }

  void produce(const PetriNet::Transition& from, std::size_t p, const Spot& spot,
               std::map<std::size_t, Move>& moves) {
    if (cover_.covered[p])
      moves.at(spot.process).target = spot.location;
    else if (!has(from.consumed, p))
      put(from, p, spot, moves);
  }

  // Where the place is read as well, the token comes to one that is there whenever the transition
  // fires. A process has one move; a second one, which is always in the way, says so.
  void put(const PetriNet::Transition& from, std::size_t p, const Spot& spot,
           std::map<std::size_t, Move>& moves) {
    if (has(from.read, p)) {
      const std::size_t full = addProcess(net_.places[p].name, {});
      moves[full] = {full, 1, 1, false, true};
    } else {
      moves[spot.process] = {spot.process, 1 - spot.location, spot.location, false, true};
    }
  }

  void enter(const Transition& made) {
    for (const Move& move : made.moves)
      result_.net.processes[move.process].locations.insert({move.source, move.target});
  }

  // A place of several components holds its token in all of them, and is a proposition in the
  // first.
  void label() {
    for (std::size_t p = 0; p < net_.places.size(); ++p) {
      checkpoint_.at(p);
      names().propositions[number(p)] = net_.places[p].name;
      if (spots_[p].empty()) continue;
      const Spot& home = spots_[p].front();
      result_.net.processes[home.process].labels[home.location].insert(number(p));
      for (const auto& [process, location] : spots_[p])
        names().locations[{process, location}] = cover_.covered[p] ? net_.places[p].name : "marked";
      if (!cover_.covered[p]) nameEmpty(home);
    }
  }

  void nameEmpty(const Spot& spot) {
    if (result_.net.processes[spot.process].locations.contains(1 - spot.location))
      names().locations[{spot.process, 1 - spot.location}] = "empty";
  }

  const PetriNet& net_;
  const Checkpoint& checkpoint_;
  Cover cover_;
  std::vector<std::vector<Spot>> spots_;  // [place]
  DistinctNames processNames_;
  Translation result_;
};

std::string processLine(const PetriNet& net, const Translation& translation, std::size_t p) {
  std::string line = "process " + std::to_string(number(p)) + ":";
  const std::vector<std::size_t>& places = translation.places[p];
  for (const std::size_t place : places) line += " " + tinaName(net.places[place].name);
  if (places.empty()) line += " the clock of a transition that consumes nothing";
  const bool alone = places.size() == 1 && has(translation.uncovered, places[0]);
  return line + (alone ? ", empty or marked\n" : "\n");
}

std::string whyNotPlain(const PetriNet& net, const Translation& translation, std::size_t t) {
  const PetriNet::Transition& from = net.transitions[translation.transitions[t]];
  const std::string name = "transition " + inQuotes(from.name);
  if (!from.read.empty())
    return name + " reads place " + inQuotes(net.places[from.read.front()].name) +
           " without taking its token; in a network file the clocks of all its processes begin "
           "anew";
  const auto put = std::find_if(from.produced.begin(), from.produced.end(), [&](std::size_t p) {
    return has(translation.uncovered, p) && !has(from.consumed, p);
  });
  assert(put != from.produced.end());
  return name + " puts a token on place " + inQuotes(net.places[*put].name) +
         ", which is in no set of places found that always holds one; a network file has no other "
         "processes";
}

}  // namespace

void requirePlain(const PetriNet& net, const Translation& translation) {
  for (std::size_t t = 0; t < translation.net.transitions.size(); ++t)
    for (const Move& move : translation.net.transitions[t].moves)
      if (!move.counts || !move.resets) throw Inexact(whyNotPlain(net, translation, t));
}

std::string told(const PetriNet& net, const Translation& translation) {
  std::string lines;
  for (std::size_t p = 0; p < translation.places.size(); ++p)
    lines += processLine(net, translation, p);
  for (const std::size_t t : translation.left)
    lines += "transition " + tinaName(net.transitions[t].name) + " never fires and is left out\n";
  for (const std::size_t p : translation.unmarked)
    lines += "place " + tinaName(net.places[p].name) + " never holds a token and has no process\n";
  return lines;
}

Translation translated(const PetriNet& net, const Checkpoint& checkpoint) {
  return Translator(net, checkpoint).translated();
}

}  // namespace tpn
