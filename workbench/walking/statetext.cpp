#include "workbench/walking/statetext.hpp"

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

void showTransitions(const Network& net, const TimedState& state, std::ostream& out) {
  const std::string reason = stuck(net, state);
  if (!reason.empty()) out << "  " << reason << "\n";
  const std::vector<std::optional<Window>> delays = windows(net, state);
  for (std::size_t t = 0; t < net.transitions.size(); ++t)
    if (enabled(net.transitions[t], state.locations))
      out << std::right << std::setw(4) << number(t) << nameOf(net, t) << "  " << std::left
          << std::setw(16) << delaysText(delays[t]) << "  " << movesText(net, net.transitions[t])
          << (delays[t] ? "" : "; it " + hindrance(net, state, t)) << "\n";
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
