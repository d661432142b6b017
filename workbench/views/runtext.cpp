// A run as a table: one line a step, columns aligned, long lists cut so that thirty processes still
// fit beside each other. What the reader came for is never cut before other things: propositions of
// the property, and those that have just become true. Columns that say nothing of their own are
// left out, unless all is asked for.

#include <algorithm>
#include <limits>

#include "workbench/base/textwidth.hpp"
#include "workbench/network/account.hpp"
#include "workbench/network/shown.hpp"
#include "workbench/views/goalline.hpp"
#include "workbench/views/question.hpp"
#include "workbench/views/textblocks.hpp"
#include "workbench/views/viewparts.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

namespace {

using Words = std::vector<std::string>;

// How much of a list is shown.
struct Limits {
  std::size_t processes = 8;
  std::size_t changes = 6;
  std::size_t propositions = 12;
  std::size_t facts = 24;
};
constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();
constexpr Limits noLimits{unlimited, unlimited, unlimited, unlimited};

// At most `limit` items, and how many more there are, each with what separates it from the next.
Words listed(Words items, const std::string& separator, std::size_t limit) {
  const std::size_t left = items.size() > limit ? items.size() - limit + 1 : 0;
  items.resize(items.size() - left);
  for (std::size_t i = 0; i + 1 < items.size(); ++i) items[i] += separator;
  if (left > 0) items.push_back("... " + std::to_string(left) + " more");
  return items;
}

Words processesOf(const Network& net, const Transition& transition, const Limits& limits) {
  Words processes;
  for (const Move& move : transition.moves) processes.push_back(shownProcess(net, move.process));
  return listed(std::move(processes), "", limits.processes);
}

Words changesOf(const Network& net, const Transition& transition, const Limits& limits) {
  Words changes;
  for (const Move& move : transition.moves)
    if (move.source != move.target)
      changes.push_back(shownProcess(net, move.process) + ": " +
                        shownLocation(net, move.process, move.source) + " -> " +
                        shownLocation(net, move.process, move.target));
  return changes.empty() ? Words{"-"} : listed(std::move(changes), ",", limits.changes);
}

// Those that matter most, up to the limit, in the order of their numbers.
Words propositionsOf(const Network& net, const std::set<int>& now, const std::set<int>& before,
                     const Property& property, const Limits& limits) {
  if (now.empty()) return {"-"};
  std::set<int> asked;
  for (const PropertyItem& item : property.items)
    if (item.kind == PropertyItem::proposition || item.kind == PropertyItem::negated)
      asked.insert(item.number);
  std::vector<int> chosen(now.begin(), now.end());
  std::stable_sort(chosen.begin(), chosen.end(), [&](int a, int b) {
    const auto rank = [&](int q) { return asked.contains(q) ? 0 : before.contains(q) ? 2 : 1; };
    return rank(a) < rank(b);
  });
  const std::size_t shown = std::min(chosen.size(), limits.propositions);
  Words words =
      propositionNames(net, {chosen.begin(), chosen.begin() + static_cast<std::ptrdiff_t>(shown)});
  if (shown < chosen.size())
    words.push_back("... " + std::to_string(chosen.size() - shown) + " more");
  return words;
}

std::string initialText(const Network& net) {
  const std::string name = initialName(net);
  return name.empty() ? "all initial" : "all at " + name;
}

// The columns "delay" and "propositions" are there if they say anything. Who takes part and stays
// is in "processes" alone.
TextTable table(const Network& net, const Property& property, const Run& run, const Replay& replay,
                bool all) {
  const Limits limits = all ? noLimits : Limits{};
  TextColumn step{"step", true, {{"0"}}};
  TextColumn time{"time", true, {{"0"}}};
  TextColumn delay{"delay", true, {{"-"}}};
  TextColumn transition{"transition", net.names.transitions.empty(), {{"-"}}};
  TextColumn processes{"processes", false, {{"-"}}};
  TextColumn locations{"locations", false, {{initialText(net)}}};
  TextColumn propositions{"propositions", false, {}};
  std::set<int> before;
  bool delays = false;
  bool changing = false;
  for (std::size_t i = 0; i < replay.states.size(); ++i) {
    const std::set<int> now = propositionsAt(net, replay.states[i].locations);
    propositions.cells.push_back(propositionsOf(net, now, before, property, limits));
    changing = changing || (i > 0 && now != before);
    before = now;
    if (i == 0) continue;
    const Step& fired = run.steps[i - 1];
    const Transition& t = net.transitions[fired.transition];
    delays = delays || fired.delay != 0;
    step.cells.push_back({std::to_string(i)});
    time.cells.push_back({replay.times[i].text()});
    delay.cells.push_back({fired.delay.text()});
    transition.cells.push_back({shownTransition(net, fired.transition)});
    processes.cells.push_back(processesOf(net, t, limits));
    locations.cells.push_back(changesOf(net, t, limits));
  }
  TextTable result;
  result.columns = {step, time};
  if (delays || all) result.columns.push_back(delay);
  result.columns.push_back(transition);
  if (all) result.columns.push_back(processes);
  result.columns.push_back(locations);
  if (changing || all) result.columns.push_back(propositions);
  if (!asksNothing(property)) result.marked = run.goal;
  result.mark = "<- goal";
  return result;
}

// Lines that are indented to the width of their heading.
std::string wrapped(const std::string& heading, const Words& words, std::size_t width) {
  return indented(heading, folded(words, width - std::min(width, heading.size() + 1)));
}

// Where everybody is, as words of a sentence.
Words placesAt(const Network& net, const Locations& at) {
  Words places;
  for (std::size_t p = 0; p < at.size(); ++p)
    if (at[p] != 0) places.push_back(shownProcess(net, p) + " at " + shownLocation(net, p, at[p]));
  const bool othersLeft = places.size() < at.size();
  for (std::size_t i = 0; i + 1 < places.size() || (othersLeft && i < places.size()); ++i)
    places[i] += ",";
  if (othersLeft && places.empty()) return {initialText(net)};
  const std::string name = initialName(net);
  if (othersLeft)
    places.emplace_back(name.empty() ? "the others initial" : "the others at " + name);
  return places;
}

std::string goalText(const Network& net, const Property& property, const Run& run,
                     const Replay& replay, const Look& look) {
  const TimedState& goal = replay.states[run.goal];
  const std::string where = run.goal == 0 ? std::string("the initial state")
                                          : "the state after step " + std::to_string(run.goal);
  std::string result =
      goalLine(questionParts(net, property, goal, look.all ? unlimited : mostOfQuestion),
               "holds in " + where + ", at time " + replay.times[run.goal].text(), look);
  const Limits limits = look.all ? noLimits : Limits{};
  if (leavesOpen(property)) {
    const Words facts = listed(goalAccount(net, property, goal), ",", limits.facts);
    if (!facts.empty()) result += wrapped("held:", facts, look.width);
  }
  return result + wrapped("     ", placesAt(net, goal.locations), look.width);
}

}  // namespace

std::string runText(const Network& net, const Property& property, const Run& run,
                    const Look& look) {
  const Replay replay = replayed(net, property, run);
  const std::string steps =
      textBlocks(table(net, property, run, replay, look.all), look.width, look.colour);
  return asksNothing(property) ? steps : steps + goalText(net, property, run, replay, look);
}

}  // namespace tpn
