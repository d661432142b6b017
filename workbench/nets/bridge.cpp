#include "workbench/nets/bridge.hpp"

#include <algorithm>
#include <cassert>
#include <map>
#include <set>
#include <utility>

#include "workbench/nets/distinct.hpp"
#include "workbench/network/namelines.hpp"

namespace tpn {

namespace {

// --- To a net. ---

bool isNamed(const Network& net, std::size_t process, int location) {
  return net.names.processes.contains(process) || net.names.locations.contains({process, location});
}

// "coordinator.idle"; "p1_0" where nothing has a name.
std::string placeName(const Network& net, std::size_t process, int location) {
  if (isNamed(net, process, location))
    return processName(net, process) + "." + locationName(net, process, location);
  return "p" + std::to_string(number(process)) + "_" + std::to_string(location);
}

std::string transitionWord(const Network& net, std::size_t t) {
  const auto named = net.names.transitions.find(t);
  return named == net.names.transitions.end() ? "t" + std::to_string(number(t)) : named->second;
}

class ToNet {
 public:
  explicit ToNet(const Network& net) : net_(net) {}

  PetriNet translated() {
    result_.name = net_.title;
    result_.origin.emplace().names = nameLines(net_.names);
    for (std::size_t p = 0; p < net_.processes.size(); ++p) addPlaces(p);
    DistinctNames names;
    for (std::size_t t = 0; t < net_.transitions.size(); ++t)
      addTransition(net_.transitions[t], names.name(transitionWord(net_, t)));
    return std::move(result_);
  }

 private:
  void addPlaces(std::size_t p) {
    const Process& process = net_.processes[p];
    places_.emplace_back();
    for (const int location : process.locations) {
      places_.back()[location] = result_.places.size();
      result_.places.push_back(
          {placeNames_.name(placeName(net_, p, location)), "", location == 0, {}});
      const auto label = process.labels.find(location);
      const std::set<int> none;
      result_.origin->spots.push_back(
          {number(p), location, label == process.labels.end() ? none : label->second, {}});
    }
  }

  void addTransition(const Transition& t, const std::string& name) {
    if (t.interval.latest && *t.interval.latest < t.interval.earliest)
      throw Inexact("transition " + name + " has the earliest time " +
                    std::to_string(t.interval.earliest) + " and the latest time " +
                    std::to_string(*t.interval.latest) +
                    "; no net can say that time stops before a transition may fire");
    PetriNet::Transition made{name, "", t.interval, {}, {}, {}, {}};
    for (const Move& move : t.moves) {
      made.consumed.push_back(places_[move.process].at(move.source));
      made.produced.push_back(places_[move.process].at(move.target));
    }
    result_.transitions.push_back(std::move(made));
  }

  const Network& net_;
  PetriNet result_;
  DistinctNames placeNames_;
  std::vector<std::map<int, std::size_t>> places_;  // [process], by location
};

// --- Back. ---

class ToNetwork {
 public:
  ToNetwork(const PetriNet& net, NetReport& report, const Checkpoint& checkpoint)
      : net_(net), report_(report), checkpoint_(checkpoint) {}

  std::optional<Network> translated() {
    result_.title = net_.name;
    if (net_.name.empty()) misfit({}, "the net has no name, and the network's title is gone");
    addPlaces();
    if (report_.refused()) return std::nullopt;
    for (std::size_t t = 0; t < net_.transitions.size(); ++t) {
      checkpoint_.at(t);
      addTransition(net_.transitions[t]);
    }
    if (report_.refused()) return std::nullopt;
    Report names = report_.asNetworkFile();
    result_.names = namesOf(net_.origin->names, result_, names);
    if (names.hasErrors()) return std::nullopt;
    return std::move(result_);
  }

 private:
  void misfit(Place at, const std::string& why) {
    report_.refuse(NetRule::processMisfit, at,
                   why + "; delete what is told of the processes to read the net without");
  }

  const PetriNet::Spot& spot(std::size_t place) const { return net_.origin->spots[place]; }

  void addPlaces() {
    for (std::size_t p = 0; p < net_.places.size(); ++p) {
      checkpoint_.at(p);
      const PetriNet::Place& place = net_.places[p];
      if (spot(p).process == 0)
        misfit(place.at, "no process is told of place " + inQuotes(place.name));
      else if (static_cast<std::size_t>(spot(p).process) > net_.places.size())
        misfit(spot(p).at, "there are fewer processes than that");
      else
        addPlace(place, spot(p));
    }
    for (std::size_t p = 0; p < result_.processes.size(); ++p)
      if (!result_.processes[p].locations.contains(0))
        misfit({}, "process " + std::to_string(number(p)) + " has no location 0");
  }

  void addPlace(const PetriNet::Place& place, const PetriNet::Spot& spot) {
    const auto index = static_cast<std::size_t>(spot.process) - 1;
    if (result_.processes.size() <= index) result_.processes.resize(index + 1);
    Process& process = result_.processes[index];
    if (!process.locations.insert(spot.location).second)
      misfit(spot.at, "another place is this location already");
    if (place.marked != (spot.location == 0))
      misfit(spot.at, "of each process the location 0, and no other, holds a token at first");
    if (!spot.propositions.empty()) process.labels[spot.location] = spot.propositions;
  }

  // By process; nothing where it has two.
  std::optional<std::map<int, int>> locations(const std::vector<std::size_t>& places) const {
    std::map<int, int> found;
    for (const std::size_t p : places)
      if (!found.emplace(spot(p).process, spot(p).location).second) return std::nullopt;
    return found;
  }

  void addTransition(const PetriNet::Transition& t) {
    const auto sources = locations(t.consumed);
    const auto targets = locations(t.produced);
    const auto sameProcess = [](const auto& a, const auto& b) { return a.first == b.first; };
    if (t.consumed.empty() || !t.read.empty() || !sources || !targets ||
        !std::equal(sources->begin(), sources->end(), targets->begin(), targets->end(),
                    sameProcess))
      return misfit(t.at, "transition " + inQuotes(t.name) +
                              " does not take and put one token of each process that it moves");
    Transition made{t.interval, {}};
    for (const auto& [process, source] : *sources)
      made.moves.push_back({static_cast<std::size_t>(process) - 1, source, targets->at(process)});
    result_.transitions.push_back(std::move(made));
  }

  const PetriNet& net_;
  NetReport& report_;
  const Checkpoint& checkpoint_;
  Network result_;
};

}  // namespace

PetriNet petriNetOf(const Network& net) { return ToNet(net).translated(); }

std::optional<Network> originalNetwork(const PetriNet& net, NetReport& report,
                                       const Checkpoint& checkpoint) {
  assert(net.origin);
  return ToNetwork(net, report, checkpoint).translated();
}

}  // namespace tpn
