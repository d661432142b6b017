#include "workbench/walking/statetext.hpp"

#include <algorithm>
#include <iomanip>
#include <ostream>

#include "workbench/network/shown.hpp"
#include "workbench/walking/walk.hpp"

namespace tpn {

namespace {

// "process 4", or its name.
std::string processText(const Network& net, std::size_t process) {
  return (net.names.processes.contains(process) ? "" : "process ") + shownProcess(net, process);
}

std::string movesText(const Network& net, const Transition& t) {
  std::string text;
  for (const Move& move : t.moves) {
    text += (text.empty() ? "" : ", ") + processText(net, move.process) + ": ";
    if (!move.resets) text += "reads ";
    text += shownLocation(net, move.process, move.source);
    if (move.resets) text += " -> " + shownLocation(net, move.process, move.target);
  }
  return text;
}

void showProcesses(const Network& net, const TimedState& state, std::ostream& out) {
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    out << "  " << processText(net, p) << ": location " << shownLocation(net, p, state.locations[p])
        << ", clock " << state.clocks[p].text() << "\n";
  out << "  propositions:";
  const std::set<int> held = propositionsAt(net, state.locations);
  for (const int proposition : held)
    out << " "
        << (net.names.propositions.contains(proposition) ? shownProposition(net, proposition)
                                                         : std::to_string(proposition));
  out << (held.empty() ? " none\n" : "\n");
}

// Behind its number.
std::string nameOf(const Network& net, std::size_t transition) {
  return andName(std::to_string(number(transition)), shownTransition(net, transition));
}

// Of UTF-8, in characters.
std::size_t width(const std::string& text) {
  const auto begins = [](char c) { return (static_cast<unsigned char>(c) & 0xc0U) != 0x80; };
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), begins));
}

std::string padded(std::string text, std::size_t columns) {
  return text.append(columns - std::min(columns, width(text)), ' ');
}

void showTransitions(const Network& net, const TimedState& state, std::ostream& out) {
  constexpr std::size_t longestName = 24;  // longer ones shift their line
  const std::string reason = stuck(net, state);
  if (!reason.empty()) out << "  " << reason << "\n";
  std::vector<std::size_t> enabledOnes;
  std::size_t widest = 0;
  for (std::size_t t = 0; t < net.transitions.size(); ++t) {
    if (!enabled(net.transitions[t], state.locations)) continue;
    enabledOnes.push_back(t);
    widest = std::max(widest, std::min(longestName, width(nameOf(net, t))));
  }
  const std::vector<std::optional<Window>> delays = windows(net, state);
  for (const std::size_t t : enabledOnes)
    out << std::setw(4) << number(t) << padded(nameOf(net, t), widest) << "  "
        << padded(delaysText(delays[t]), 16) << "  " << movesText(net, net.transitions[t])
        << (delays[t] ? "" : "; not " + hindrance(net, state, t)) << "\n";
}

}  // namespace

std::string delaysText(const std::optional<Window>& delays) {
  if (!delays) return "cannot fire";
  const std::string from = "delay " + delays->from.text();
  if (!delays->to) return from + " or more";
  return *delays->to == delays->from ? from : from + " to " + delays->to->text();
}

void showState(const Network& net, const TimedState& state, std::ostream& out) {
  showProcesses(net, state, out);
  showTransitions(net, state, out);
}

}  // namespace tpn
