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

// The others of a transition, by kind, those of a kind by number.
Processes partnersOf(const Network& net, const Seen& seen, const std::vector<std::size_t>& kinds) {
  Processes others;
  for (const Move& move : net.transitions[seen.part.transition].moves)
    if (move.process != seen.process) others.push_back(move.process);
  std::stable_sort(others.begin(), others.end(),
                   [&](std::size_t a, std::size_t b) { return kinds[a] < kinds[b]; });
  return others;
}

std::vector<std::string> namesOf(const Network& net, const Processes& processes) {
  std::vector<std::string> names;
  for (const std::size_t p : processes) names.push_back(shownProcess(net, p));
  return names;
}

// Partners that stand beside each other in every one of the sets, which are of one length.
std::string partnersText(const Network& net, const std::set<Processes>& sets) {
  if (sets.size() == 1) return shortened(namesOf(net, *sets.begin()), ", ", mostPartners);
  std::vector<std::string> words;
  for (std::size_t i = 0; i < sets.begin()->size(); ++i) {
    std::set<std::size_t> here;
    for (const Processes& set : sets) here.insert(set[i]);
    words.push_back(eitherOf(namesOf(net, {here.begin(), here.end()})));
  }
  return shortened(words, ", ", mostPartners);
}

struct Line {
  std::string interval;
  std::set<Processes> partners;
  std::vector<std::size_t> transitions;
  std::vector<std::string> names;
};

}  // namespace

std::vector<Caption> captionsOf(const Network& net, const std::vector<Seen>& seen,
                                const std::vector<std::size_t>& kinds) {
  std::vector<Line> lines;
  std::map<std::pair<std::string, Processes>, std::size_t> places;  // by interval and kinds
  for (const Seen& one : seen) {
    const Processes partners = partnersOf(net, one, kinds);
    Processes partnerKinds;
    for (const std::size_t p : partners) partnerKinds.push_back(kinds[p]);
    const std::string interval = text(net.transitions[one.part.transition].interval);
    const auto [place, isNew] =
        places.try_emplace({interval, std::move(partnerKinds)}, lines.size());
    if (isNew) lines.push_back({interval, {}, {}, {}});
    Line& line = lines[place->second];
    line.partners.insert(partners);
    line.transitions.push_back(one.part.transition);
    line.names.push_back(shownTransition(net, one.part.transition));
  }
  std::vector<Caption> captions;
  for (Line& line : lines) {
    std::string words = joined(summary(line.names, mostNames), ", ") + "  " + line.interval;
    const std::string partners = partnersText(net, line.partners);
    if (!partners.empty()) words += " with " + partners;
    captions.push_back({std::move(words), std::move(line.transitions), std::move(line.names)});
  }
  return captions;
}

}  // namespace tpn
