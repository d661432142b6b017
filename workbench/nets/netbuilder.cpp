#include "workbench/nets/netbuilder.hpp"

#include <algorithm>
#include <tuple>

#include "workbench/network/lintrules.hpp"

namespace tpn {

namespace {

using Index = std::unordered_map<std::string, std::size_t>;

std::optional<std::size_t> find(const Index& index, const std::string& name) {
  const auto found = index.find(name);
  return found == index.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace

std::size_t NetBuilder::place(const std::string& name, Place at) {
  const auto [found, isNew] = places_.emplace(name, net_.places.size());
  if (isNew) {
    net_.places.push_back({name, "", false, at});
    tokens_.push_back(0);
  }
  return found->second;
}

std::size_t NetBuilder::transition(const std::string& name, Place at) {
  const auto [found, isNew] = transitions_.emplace(name, net_.transitions.size());
  if (isNew) {
    net_.transitions.push_back({name, "", {}, {}, {}, {}, at});
    timed_.push_back(false);
  }
  return found->second;
}

std::optional<std::size_t> NetBuilder::knownPlace(const std::string& name) const {
  return find(places_, name);
}

std::optional<std::size_t> NetBuilder::knownTransition(const std::string& name) const {
  return find(transitions_, name);
}

void NetBuilder::arc(ArcKind kind, std::size_t transition, std::size_t place, std::int64_t weight,
                     Place at) {
  if (weight == 0)
    report_.refuse(NetRule::weight, at, "an arc of weight 0: write no arc");
  else
    arcs_.push_back({transition, place, kind, weight, at});
}

void NetBuilder::tokens(std::size_t place, std::int64_t count, Place at) {
  tokens_[place] = std::min<std::int64_t>(tokens_[place] + count, 2);
  net_.places[place].marked = tokens_[place] > 0;
  if (tokens_[place] > 1 && count > 0)
    report_.refuse(NetRule::marking, at,
                   "place " + inQuotes(net_.places[place].name) +
                       " holds more than one token; only nets whose places hold one at most are "
                       "taken");
}

void NetBuilder::interval(std::size_t transition, const Interval& interval, Place at) {
  PetriNet::Transition& t = net_.transitions[transition];
  if (interval.latest && *interval.latest < interval.earliest)
    report_.refuse(NetRule::intervalEmpty, at, "the earliest time is above the latest");
  else if (timed_[transition] && t.interval != interval)
    report_.refuse(NetRule::intervalTwice, at,
                   "transition " + inQuotes(t.name) + " has another interval already");
  timed_[transition] = true;
  t.interval = interval;
}

void NetBuilder::label(std::string& label, const std::string& text, Place at) {
  if (!label.empty() && label != text)
    report_.refuse(NetRule::declaredTwice, at, "the label is " + inQuotes(label) + " already");
  label = text;
}

// Of a transition, a place and a kind, one each: those said again are added to the first, and weigh
// more than 1 then.
std::vector<NetBuilder::Arc> NetBuilder::summedArcs(const Checkpoint& checkpoint) {
  const auto key = [](const Arc& a) { return std::tuple(a.transition, a.place, a.kind); };
  std::size_t compared = 0;
  std::stable_sort(arcs_.begin(), arcs_.end(), [&](const Arc& a, const Arc& b) {
    checkpoint.at(compared++);
    return key(a) < key(b);
  });
  std::vector<Arc> summed;
  for (const Arc& arc : arcs_) {
    if (summed.empty() || key(summed.back()) != key(arc)) {
      summed.push_back(arc);
    } else {
      summed.back().weight = 2;
      summed.back().at = arc.at;
    }
  }
  return summed;
}

void NetBuilder::enter(const Arc& arc) {
  PetriNet::Transition& t = net_.transitions[arc.transition];
  const std::string& name = net_.places[arc.place].name;
  if (arc.weight > 1)
    report_.refuse(NetRule::weight, arc.at,
                   "the arc between transition " + inQuotes(t.name) + " and place " +
                       inQuotes(name) + " weighs more than 1");
  if (arc.kind == ArcKind::produce) {
    t.produced.push_back(arc.place);
  } else if (arc.kind == ArcKind::consume) {
    t.consumed.push_back(arc.place);
  } else if (t.consumed.empty() || t.consumed.back() != arc.place) {
    t.read.push_back(arc.place);  // the order of kinds: what consumes came before
  }
}

PetriNet NetBuilder::finished(const Checkpoint& checkpoint) {
  const std::vector<Arc> summed = summedArcs(checkpoint);
  for (std::size_t i = 0; i < summed.size(); ++i) {
    checkpoint.at(i);
    enter(summed[i]);
  }
  return std::move(net_);
}

bool checkTime(std::int64_t time, Place at, NetReport& report) {
  if (time <= mostConstant) return true;
  report.refuse(NetRule::constantTooLarge, at,
                "a time above " + std::to_string(mostConstant) + ", the most that is counted");
  return false;
}

}  // namespace tpn
