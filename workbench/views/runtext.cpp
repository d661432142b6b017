// A run as a table: one line a step, columns aligned, long lists cut so that thirty processes still
// fit beside each other. What the reader came for is never cut before other things: propositions of
// the property, and those that have just become true.

#include <algorithm>
#include <array>

#include "workbench/network/account.hpp"
#include "workbench/network/shown.hpp"
#include "workbench/views/goalline.hpp"
#include "workbench/views/viewparts.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

namespace {

constexpr std::size_t columns = 7;
constexpr std::size_t transitionColumn = 3;
using Row = std::array<std::string, columns>;

constexpr std::size_t mostProcesses = 8;
constexpr std::size_t mostChanges = 6;
constexpr std::size_t mostPropositions = 12;
constexpr std::size_t lineLength = 96;

// Of UTF-8, in characters.
std::size_t width(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xc0U) != 0x80;
  }));
}

std::string processesText(const Network& net, const Transition& transition) {
  std::vector<std::string> processes;
  for (const Move& move : transition.moves) processes.push_back(shownProcess(net, move.process));
  return shortened(processes, " ", mostProcesses);
}

std::string changesText(const Network& net, const Transition& transition) {
  std::vector<std::string> changes;
  for (const Move& move : transition.moves)
    if (move.source != move.target)
      changes.push_back(shownProcess(net, move.process) + ": " +
                        shownLocation(net, move.process, move.source) + " -> " +
                        shownLocation(net, move.process, move.target));
  return changes.empty() ? "-" : shortened(changes, ", ", mostChanges);
}

// Those that matter most, up to the limit, in the order of their numbers.
std::string propositionsText(const Network& net, const std::set<int>& now,
                             const std::set<int>& before, const Property& property) {
  if (now.empty()) return "-";
  std::set<int> asked;
  for (const PropertyItem& item : property.items)
    if (item.kind == PropertyItem::proposition || item.kind == PropertyItem::negated)
      asked.insert(item.number);
  std::vector<int> chosen(now.begin(), now.end());
  std::stable_sort(chosen.begin(), chosen.end(), [&](int a, int b) {
    const auto rank = [&](int q) { return asked.contains(q) ? 0 : before.contains(q) ? 2 : 1; };
    return rank(a) < rank(b);
  });
  const std::size_t shown = std::min(chosen.size(), mostPropositions);
  std::string result = joined(
      propositionNames(net, {chosen.begin(), chosen.begin() + static_cast<std::ptrdiff_t>(shown)}),
      " ");
  if (shown < chosen.size()) result += " ... " + std::to_string(chosen.size() - shown) + " more";
  return result;
}

std::string initialText(const Network& net) {
  const std::string name = initialName(net);
  return name.empty() ? "all initial" : "all at " + name;
}

std::vector<Row> table(const Network& net, const Property& property, const Run& run,
                       const Replay& replay) {
  std::vector<Row> rows;
  rows.push_back({"step", "time", "delay", "transition", "processes", "locations", "propositions"});
  std::set<int> before;
  for (std::size_t i = 0; i < replay.states.size(); ++i) {
    const std::set<int> now = propositionsAt(net, replay.states[i].locations);
    const std::string holding = propositionsText(net, now, before, property);
    if (i == 0) {
      rows.push_back({"0", "0", "-", "-", "-", initialText(net), holding});
    } else {
      const Step& step = run.steps[i - 1];
      const Transition& transition = net.transitions[step.transition];
      rows.push_back({std::to_string(i), replay.times[i].text(), step.delay.text(),
                      shownTransition(net, step.transition), processesText(net, transition),
                      changesText(net, transition), holding});
    }
    before = now;
  }
  return rows;
}

// Numbers stand right: the first `numbers` columns.
std::string line(const Row& row, const std::array<std::size_t, columns>& widths,
                 std::size_t numbers) {
  std::string result;
  for (std::size_t c = 0; c < columns; ++c) {
    const std::string blanks(widths[c] - width(row[c]), ' ');
    if (c > 0) result += "  ";
    if (c < numbers)
      result += blanks + row[c];
    else if (c + 1 < columns)
      result += row[c] + blanks;
    else
      result += row[c];
  }
  return result;
}

// Words after a heading, in lines that are indented to its width.
std::string wrapped(const std::string& heading, const std::vector<std::string>& words) {
  std::string result = heading;
  std::size_t used = heading.size();
  for (const std::string& word : words) {
    if (used + 1 + word.size() > lineLength) {
      result += "\n" + std::string(heading.size(), ' ');
      used = heading.size();
    }
    result += " " + word;
    used += 1 + word.size();
  }
  return result + "\n";
}

// Where everybody is, as words of a sentence.
std::vector<std::string> placesAt(const Network& net, const Locations& at) {
  std::vector<std::string> places;
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

// The part of the property that holds, where it leaves that open.
std::string accountText(const std::vector<std::string>& facts) {
  constexpr std::size_t mostFacts = 24;
  std::vector<std::string> shown(
      facts.begin(),
      facts.begin() + static_cast<std::ptrdiff_t>(std::min(facts.size(), mostFacts)));
  if (shown.empty()) return "";
  for (std::size_t i = 0; i + 1 < shown.size(); ++i) shown[i] += ",";
  if (shown.size() < facts.size())
    shown.push_back("... " + std::to_string(facts.size() - shown.size()) + " more");
  return wrapped("held:", shown);
}

std::string goalText(const Network& net, const Property& property, const Run& run,
                     const Replay& replay) {
  const TimedState& goal = replay.states[run.goal];
  const std::string where = run.goal == 0 ? std::string("the initial state")
                                          : "the state after step " + std::to_string(run.goal);
  return goalLine(property, "holds in " + where + ", at time " + replay.times[run.goal].text()) +
         (leavesOpen(property) ? accountText(goalAccount(net, property, goal)) : "") +
         wrapped("     ", placesAt(net, goal.locations));
}

}  // namespace

std::string runText(const Network& net, const Property& property, const Run& run,
                    const Look& /*look*/) {
  const Replay replay = replayed(net, property, run);
  const std::vector<Row> rows = table(net, property, run, replay);
  std::array<std::size_t, columns> widths{};
  for (const Row& row : rows)
    for (std::size_t c = 0; c < columns; ++c) widths[c] = std::max(widths[c], width(row[c]));

  const std::size_t numbers = transitionColumn + (net.names.transitions.empty() ? 1 : 0);
  const bool marked = !asksNothing(property);
  std::string result;
  for (std::size_t i = 0; i < rows.size(); ++i)
    result +=
        line(rows[i], widths, numbers) + (marked && i == run.goal + 1 ? "  <- goal" : "") + "\n";
  return marked ? result + goalText(net, property, run, replay) : result;
}

}  // namespace tpn
