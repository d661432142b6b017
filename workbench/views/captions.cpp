#include "workbench/views/captions.hpp"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "workbench/network/shown.hpp"
#include "workbench/views/patterns.hpp"

namespace tpn {

namespace {

constexpr std::size_t mostNames = 4;
constexpr std::size_t mostPartners = 6;

using Processes = std::vector<std::size_t>;

// The first of the others of a transition, as many as are written.
Processes partnersOf(const Crew& crew, std::size_t process) {
  Processes others;
  for (const std::size_t mover : crew.movers) {
    if (others.size() == mostPartners) break;
    if (mover != process) others.push_back(mover);
  }
  return others;
}

// Partners that stand beside each other in every one of the sets, which are of one length and the
// first of `total`.
std::string partnersText(const Network& net, const std::set<Processes>& sets, std::size_t total) {
  std::vector<std::string> words;
  for (std::size_t i = 0; i < sets.begin()->size(); ++i) {
    std::set<std::size_t> here;
    for (const Processes& set : sets) here.insert(set[i]);
    std::vector<std::string> names;
    names.reserve(here.size());
    for (const std::size_t p : here) names.push_back(shownProcess(net, p));
    words.push_back(eitherOf(names));
  }
  return shortened(words, total, ", ", mostPartners);
}

struct Line {
  std::string interval;
  std::set<Processes> partners;
  std::size_t totalPartners = 0;
  std::vector<std::size_t> transitions;
  std::vector<std::string> names;
};

}  // namespace

std::vector<Crew> crewsOf(const Network& net, const std::vector<std::size_t>& kinds) {
  std::vector<Crew> crews;
  std::map<std::vector<std::size_t>, std::size_t> sorts;  // by the kinds of the movers
  for (const Transition& t : net.transitions) {
    Crew crew;
    for (const Move& move : t.moves) crew.movers.push_back(move.process);
    std::stable_sort(crew.movers.begin(), crew.movers.end(),
                     [&](std::size_t a, std::size_t b) { return kinds[a] < kinds[b]; });
    std::vector<std::size_t> kindsHere;
    for (const std::size_t p : crew.movers) kindsHere.push_back(kinds[p]);
    crew.sort = sorts.try_emplace(std::move(kindsHere), sorts.size()).first->second;
    crews.push_back(std::move(crew));
  }
  return crews;
}

std::vector<Caption> captionsOf(const Network& net, const std::vector<Seen>& seen,
                                const std::vector<Crew>& crews) {
  std::vector<Line> lines;
  std::map<std::pair<std::string, std::size_t>, std::size_t> places;  // by interval and sort
  for (const Seen& one : seen) {
    const Crew& crew = crews[one.part.transition];
    const std::string interval = text(net.transitions[one.part.transition].interval);
    const auto [place, isNew] = places.try_emplace({interval, crew.sort}, lines.size());
    if (isNew) lines.push_back({interval, {}, crew.movers.size() - 1, {}, {}});
    Line& line = lines[place->second];
    line.partners.insert(partnersOf(crew, one.process));
    line.transitions.push_back(one.part.transition);
    line.names.push_back(shownTransition(net, one.part.transition));
  }
  std::vector<Caption> captions;
  for (Line& line : lines) {
    std::string words = joined(summary(line.names, mostNames), ", ") + "  " + line.interval;
    const std::string partners = partnersText(net, line.partners, line.totalPartners);
    if (!partners.empty()) words += " with " + partners;
    captions.push_back({std::move(words), std::move(line.transitions), std::move(line.names)});
  }
  return captions;
}

}  // namespace tpn
