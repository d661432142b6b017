// A run as a table: one line a step, columns aligned, long lists cut so that thirty processes still
// fit beside each other. What the reader came for is never cut before other things: propositions of
// the property, and those that have just become true.

#include <algorithm>
#include <array>

#include "workbench/views/viewparts.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

namespace {

constexpr std::size_t columns = 7;
constexpr std::size_t rightAligned = 4;  // the first ones: numbers
using Row = std::array<std::string, columns>;

constexpr std::size_t mostProcesses = 8;
constexpr std::size_t mostChanges = 6;
constexpr std::size_t mostPropositions = 12;
constexpr std::size_t lineLength = 96;

std::string processesText(const Transition& transition) {
  std::vector<std::string> numbers;
  for (const Move& move : transition.moves) numbers.push_back(std::to_string(number(move.process)));
  return shortened(numbers, " ", mostProcesses);
}

std::string changesText(const Transition& transition) {
  std::vector<std::string> changes;
  for (const Move& move : transition.moves)
    if (move.source != move.target)
      changes.push_back(std::to_string(number(move.process)) + ": " + std::to_string(move.source) +
                        " -> " + std::to_string(move.target));
  return changes.empty() ? "-" : shortened(changes, ", ", mostChanges);
}

// Those that matter most, up to the limit, in the order of their numbers.
std::string propositionsText(const std::set<int>& now, const std::set<int>& before,
                             const Property& property) {
  if (now.empty()) return "-";
  std::set<int> asked;
  for (const PropertyItem& item : property.items) asked.insert(item.number);
  std::vector<int> chosen(now.begin(), now.end());
  std::stable_sort(chosen.begin(), chosen.end(), [&](int a, int b) {
    const auto rank = [&](int q) { return asked.contains(q) ? 0 : before.contains(q) ? 2 : 1; };
    return rank(a) < rank(b);
  });
  const std::size_t shown = std::min(chosen.size(), mostPropositions);
  std::string result = joined(
      propositionNames({chosen.begin(), chosen.begin() + static_cast<std::ptrdiff_t>(shown)}), " ");
  if (shown < chosen.size()) result += " ... " + std::to_string(chosen.size() - shown) + " more";
  return result;
}

std::vector<Row> table(const Network& net, const Property& property, const Run& run,
                       const Replay& replay) {
  std::vector<Row> rows;
  rows.push_back({"step", "time", "delay", "transition", "processes", "locations", "propositions"});
  std::set<int> before;
  for (std::size_t i = 0; i < replay.states.size(); ++i) {
    const std::set<int> now = propositionsAt(net, replay.states[i].locations);
    const std::string holding = propositionsText(now, before, property);
    if (i == 0) {
      rows.push_back({"0", "0", "-", "-", "-", "all at 0", holding});
    } else {
      const Step& step = run.steps[i - 1];
      const Transition& transition = net.transitions[step.transition];
      rows.push_back({std::to_string(i), replay.times[i].text(), step.delay.text(),
                      std::to_string(number(step.transition)), processesText(transition),
                      changesText(transition), holding});
    }
    before = now;
  }
  return rows;
}

std::string line(const Row& row, const std::array<std::size_t, columns>& widths) {
  std::string result;
  for (std::size_t c = 0; c < columns; ++c) {
    const std::string blanks(widths[c] - row[c].size(), ' ');
    if (c > 0) result += "  ";
    if (c < rightAligned)
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

std::string goalText(const Property& property, const Run& run, const Replay& replay) {
  std::vector<std::string> places;
  const Locations& at = replay.states[run.goal].locations;
  for (std::size_t p = 0; p < at.size(); ++p)
    if (at[p] != 0) places.push_back(std::to_string(number(p)) + " at " + std::to_string(at[p]));
  const bool othersLeft = places.size() < at.size();
  for (std::size_t i = 0; i + 1 < places.size() || (othersLeft && i < places.size()); ++i)
    places[i] += ",";
  if (othersLeft) places.emplace_back(places.empty() ? "all at 0" : "the others at 0");
  const std::string where = run.goal == 0 ? std::string("the initial state")
                                          : "the state after step " + std::to_string(run.goal);
  return "goal: " + shortProperty(property) + " holds in " + where + ", at time " +
         replay.times[run.goal].text() + "\n" + wrapped("     ", places);
}

}  // namespace

std::string runText(const Network& net, const Property& property, const Run& run) {
  const Replay replay = replayed(net, property, run);
  const std::vector<Row> rows = table(net, property, run, replay);
  std::array<std::size_t, columns> widths{};
  for (const Row& row : rows)
    for (std::size_t c = 0; c < columns; ++c) widths[c] = std::max(widths[c], row[c].size());

  const bool marked = !asksNothing(property);
  std::string result;
  for (std::size_t i = 0; i < rows.size(); ++i)
    result += line(rows[i], widths) + (marked && i == run.goal + 1 ? "  <- goal" : "") + "\n";
  return marked ? result + goalText(property, run, replay) : result;
}

}  // namespace tpn
