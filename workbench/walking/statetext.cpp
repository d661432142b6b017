#include "workbench/walking/statetext.hpp"

#include <algorithm>
#include <ostream>
#include <set>
#include <sstream>
#include <vector>

#include "workbench/base/textwidth.hpp"
#include "workbench/network/shown.hpp"
#include "workbench/walking/walk.hpp"

namespace tpn {

namespace {

// "process 4", or its name.
std::string processText(const Network& net, std::size_t process) {
  return (net.names.processes.contains(process) ? "" : "process ") + shownProcess(net, process);
}

using Phrases = std::vector<std::string>;

// "P1: idle -> asking,", "variable: reads free".
Phrases movesWords(const Network& net, const Transition& t) {
  Phrases words;
  for (const Move& move : t.moves) {
    std::string text = processText(net, move.process) + ": ";
    if (!move.resets) text += "reads ";
    text += shownLocation(net, move.process, move.source);
    if (move.resets) text += " -> " + shownLocation(net, move.process, move.target);
    words.push_back(text + (&move == &t.moves.back() ? "" : ","));
  }
  return words;
}

Phrases propositionWords(const Network& net, const std::set<int>& held) {
  Phrases words;
  for (const int proposition : held)
    words.push_back(net.names.propositions.contains(proposition)
                        ? shownProposition(net, proposition)
                        : std::to_string(proposition));
  return held.empty() ? Phrases{"none"} : words;
}

void showProcesses(const Network& net, const TimedState& state, std::size_t width,
                   std::ostream& out) {
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    out << "  " << processText(net, p) << ": location " << shownLocation(net, p, state.locations[p])
        << ", clock " << state.clocks[p].text() << "\n";
  const Phrases held = propositionWords(net, propositionsAt(net, state.locations));
  out << hanging("  propositions:", held, width);
}

// Behind its number.
std::string nameOf(const Network& net, std::size_t transition) {
  return andName(std::to_string(number(transition)), shownTransition(net, transition));
}

// What moves, and why it cannot where that is so.
Phrases effectOf(const Network& net, const TimedState& state, std::size_t transition, bool fires) {
  Phrases words = movesWords(net, net.transitions[transition]);
  if (fires) return words;
  words.back() += "; not";
  std::istringstream reason(hindrance(net, state, transition));
  for (std::string word; std::getline(reason, word, ' ');) words.push_back(word);
  return words;
}

void showTransitions(const Network& net, const TimedState& state, std::size_t width,
                     std::ostream& out) {
  constexpr std::size_t longestName = 24;  // longer ones shift their line
  const std::string reason = stuck(net, state);
  if (!reason.empty()) out << "  " << reason << "\n";
  std::vector<std::size_t> enabledOnes;
  std::size_t widest = 0;
  for (std::size_t t = 0; t < net.transitions.size(); ++t) {
    if (!enabled(net.transitions[t], state.locations)) continue;
    enabledOnes.push_back(t);
    widest = std::max(widest, std::min(longestName, displayedWidth(nameOf(net, t))));
  }
  const std::vector<std::optional<Window>> delays = windows(net, state);
  for (const std::size_t t : enabledOnes) {
    const std::string heading = rightPadded(std::to_string(number(t)), 4) +
                                padded(nameOf(net, t), widest) + "  " +
                                padded(delaysText(delays[t]), 16) + " ";
    out << hanging(heading, effectOf(net, state, t, delays[t].has_value()), width);
  }
}

}  // namespace

std::string delaysText(const std::optional<Window>& delays) {
  if (!delays) return "cannot fire";
  const std::string from = "delay " + delays->from.text();
  if (!delays->to) return from + " or more";
  return *delays->to == delays->from ? from : from + " to " + delays->to->text();
}

void showState(const Network& net, const TimedState& state, std::size_t width, std::ostream& out) {
  showProcesses(net, state, width, out);
  showTransitions(net, state, width, out);
}

}  // namespace tpn
