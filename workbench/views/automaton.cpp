#include "workbench/views/automaton.hpp"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "workbench/network/shown.hpp"
#include "workbench/views/alike.hpp"
#include "workbench/views/captions.hpp"
#include "workbench/views/patterns.hpp"

namespace tpn {

namespace {

constexpr std::size_t mostOfALittle = 4;  // processes of a network that is drawn one by one
constexpr std::size_t mostArrows = 100;   // of a graph
constexpr std::size_t mostLocations = 24;

// Of one kind of processes.
class Drawing {
 public:
  Drawing(const Network& net, const std::vector<Parts>& parts, const std::vector<Crew>& crews,
          const std::vector<std::size_t>& processes)
      : net_(net), crews_(crews), processes_(processes) {
    for (const std::size_t p : processes)
      for (const Part& part : parts[p])
        arrows_[{part.source, part.target, isShared(net.transitions[part.transition]), !part.counts,
                 !part.resets}]
            .push_back({p, part});
  }

  Automaton automaton() const {
    Automaton result;
    result.processes = processes_;
    std::vector<std::string> names;
    std::vector<std::size_t> numbers;
    for (const std::size_t p : processes_) {
      names.push_back(shownProcess(net_, p));
      numbers.push_back(p + 1);
    }
    result.which =
        (numbers.size() == 1 ? "process " : "processes ") + joined(ranges(numbers), ", ");
    result.name = members(names);
    if (result.which.ends_with(" " + result.name)) result.name = std::exchange(result.which, "");
    std::size_t rank = 0;
    for (const int location : first().locations)
      result.locations.push_back(drawn(location, colourOfRank(rank++)));
    if (isThicket()) {
      std::map<int, std::vector<const Arrows::value_type*>> into;
      for (const auto& arrow : arrows_) into[arrow.first.target].push_back(&arrow);
      for (const DrawnLocation& location : result.locations)
        result.table.push_back({location, entries(location.location, into[location.location])});
    } else {
      for (const auto& [arrow, seen] : arrows_)
        result.arrows.push_back({arrow, captionsOf(net_, seen, crews_)});
    }
    return result;
  }

 private:
  using Arrows = std::map<Arrow, std::vector<Seen>>;
  using Key = std::pair<std::string, std::size_t>;  // interval and sort of crew

  const Process& first() const { return net_.processes[processes_[0]]; }

  DrawnLocation drawn(int location, const Colour& colour) const {
    std::vector<std::string> names;
    std::vector<std::string> labels;
    for (const std::size_t p : processes_) {
      names.push_back(shownLocation(net_, p, location));
      for (const int q : labelsAt(net_.processes[p], location))
        labels.push_back(shownProposition(net_, q));
    }
    const std::string name = joined(summary(names, 2), ", ");
    const std::string propositions = joined(summary(labels, 6), " ");
    return {location, name, propositions == name ? "" : propositions, colour};
  }

  bool isThicket() const {
    const std::size_t locations = first().locations.size();
    std::set<std::pair<int, int>> shared;
    for (const auto& [arrow, seen] : arrows_)
      if (arrow.shared && arrow.source != arrow.target) shared.insert({arrow.source, arrow.target});
    const bool isVariable = locations >= 4 && shared.size() == locations * (locations - 1);
    const bool isCounter =
        locations > 8 &&
        std::all_of(arrows_.begin(), arrows_.end(), [](const auto& a) { return a.first.shared; });
    return isVariable || isCounter || arrows_.size() > mostArrows || locations > mostLocations;
  }

  // The arrows into a location; those that differ in nothing but where they begin, together.
  std::vector<Entry> entries(int location,
                             const std::vector<const Arrows::value_type*>& arrows) const {
    struct Way {
      Arrow arrow;  // without its source
      bool stays = false;

      auto operator<=>(const Way&) const = default;
    };
    std::map<Way, std::map<Key, std::pair<std::set<int>, std::vector<Seen>>>> ways;
    for (const Arrows::value_type* const entering : arrows) {
      const auto& [arrow, seen] = *entering;
      Way way{arrow, arrow.source == arrow.target};
      way.arrow.source = 0;
      for (const Seen& one : seen) {
        // From each source, what is written there.
        auto& [sources, all] = ways[way][key(one)];
        sources.insert(arrow.source);
        all.push_back(one);
      }
    }
    std::vector<Entry> result;
    for (const auto& [way, byKey] : ways)
      for (const auto& [ignored, sourcesAndSeen] : byKey)
        for (const Caption& caption : captionsOf(net_, sourcesAndSeen.second, crews_))
          result.push_back({way.stays ? "stays" : sourcesText(sourcesAndSeen.first, location),
                            way.arrow, caption});
    return result;
  }

  Key key(const Seen& seen) const {
    const std::size_t t = seen.part.transition;
    return {text(net_.transitions[t].interval), crews_[t].sort};
  }

  std::string sourcesText(const std::set<int>& sources, int target) const {
    const std::size_t others = first().locations.size() - 1;
    if (sources.size() == others && !sources.contains(target)) return "from any other";
    std::vector<std::string> names;
    names.reserve(sources.size());
    for (const int source : sources) names.push_back(drawn(source, {}).name);
    return "from " + joined(summary(names, 6), ", ");
  }

  const Network& net_;
  const std::vector<Crew>& crews_;
  const std::vector<std::size_t>& processes_;
  Arrows arrows_;
};

// Processes that are drawn together.
std::vector<std::vector<std::size_t>> groupsOf(const std::vector<std::size_t>& kinds, bool each) {
  std::vector<std::vector<std::size_t>> groups;
  std::map<std::size_t, std::size_t> places;  // by kind
  for (std::size_t p = 0; p < kinds.size(); ++p) {
    const auto [place, isNew] = places.try_emplace(kinds[p], groups.size());
    if (isNew || each) groups.emplace_back();
    groups[each ? p : place->second].push_back(p);
  }
  return groups;
}

}  // namespace

std::string classesOf(const Automaton& automaton, int location) {
  std::string classes = "location";
  for (const std::size_t p : automaton.processes)
    classes += " at-" + std::to_string(number(p)) + "-" + std::to_string(location);
  return classes;
}

std::string classesOf(const Caption& caption) {
  std::string classes;
  for (const std::size_t t : caption.transitions)
    classes += (classes.empty() ? "fires-" : " fires-") + std::to_string(number(t));
  return classes;
}

std::vector<Automaton> automataOf(const Network& net, bool each) {
  const std::vector<Parts> parts = partsByProcess(net);
  const std::vector<std::size_t> kinds = kindsOfProcesses(net);
  const std::vector<Crew> crews = crewsOf(net, kinds);
  std::vector<Automaton> automata;
  for (const auto& group : groupsOf(kinds, each || net.processes.size() <= mostOfALittle))
    automata.push_back(Drawing(net, parts, crews, group).automaton());
  return automata;
}

}  // namespace tpn
