// The time since the last of a transition's processes moved is the smallest of their clocks, its
// youth below: "all have reached the earliest" and "one is not past the latest" both speak of it.

#include "workbench/runs/run.hpp"

#include <algorithm>
#include <cassert>
#include <stdexcept>
#include <utility>

namespace tpn {

namespace {

// The first move whose process is elsewhere; null where the transition is enabled.
const Move* hindrance(const Transition& t, const Locations& at) {
  for (const Move& move : t.moves)
    if (at[move.process] != move.source) return &move;
  return nullptr;
}

Rational youth(const Transition& t, const std::vector<Rational>& clocks) {
  assert(!t.moves.empty());
  Rational youngest = clocks[t.moves.front().process];
  for (const Move& move : t.moves) youngest = std::min(youngest, clocks[move.process]);
  return youngest;
}

// How long this transition lets time pass; no limit where it is not enabled or may wait for ever.
std::optional<Rational> patience(const Transition& t, const TimedState& state) {
  if (!t.interval.latest || hindrance(t, state.locations) != nullptr) return std::nullopt;
  return Rational(*t.interval.latest) - youth(t, state.clocks);
}

// The enabled transition that has to fire first, and within what delay.
struct Deadline {
  std::size_t transition = 0;
  Rational delay;
};
std::optional<Deadline> deadline(const Network& net, const TimedState& state) {
  std::optional<Deadline> first;
  for (std::size_t t = 0; t < net.transitions.size(); ++t) {
    const auto delay = patience(net.transitions[t], state);
    if (delay && (!first || *delay < first->delay)) first = Deadline{t, *delay};
  }
  return first;
}

std::string named(std::size_t transition) {
  return "transition " + std::to_string(number(transition));
}

std::string wrongPlace(const Step& step, const Move& move, const Locations& at) {
  return named(step.transition) + " is not enabled: process " +
         std::to_string(number(move.process)) + " is in location " +
         std::to_string(at[move.process]) + ", not " + std::to_string(move.source);
}

std::string tooEarly(const Step& step, const Transition& t, const Rational& passed) {
  return named(step.transition) + " fires too early: one of its clocks is at " + passed.text() +
         " and has to reach " + std::to_string(t.interval.earliest);
}

std::string tooLate(const Step& step, const Transition& t, const Rational& passed) {
  return named(step.transition) + " fires too late: its clocks are at " + passed.text() +
         " or more, past " + std::to_string(*t.interval.latest);
}

std::string tooLong(const Step& step, const Deadline& limit) {
  return "a delay of " + step.delay.text() + " is too long: " + named(limit.transition) +
         " allows " + limit.delay.text();
}

// What is wrong with the step; empty where nothing is.
std::string objection(const Network& net, const Step& step, const TimedState& state) {
  if (step.transition >= net.transitions.size()) return "there is no " + named(step.transition);
  if (step.delay < 0) return "the delay " + step.delay.text() + " is negative";
  const Transition& t = net.transitions[step.transition];
  if (const Move* move = hindrance(t, state.locations))
    return wrongPlace(step, *move, state.locations);
  const Rational passed = youth(t, state.clocks) + step.delay;
  if (passed < t.interval.earliest) return tooEarly(step, t, passed);
  if (t.interval.latest && passed > *t.interval.latest) return tooLate(step, t, passed);
  const auto limit = deadline(net, state);
  if (limit && step.delay > limit->delay) return tooLong(step, *limit);
  return "";
}

TimedState after(const Transition& t, const Rational& delay, TimedState state) {
  for (Rational& clock : state.clocks) clock = clock + delay;
  for (const Move& move : t.moves) {
    state.locations[move.process] = move.target;
    state.clocks[move.process] = 0;
  }
  return state;
}

std::string goalComplaint(const Network& net, const Property& property, const Run& run,
                          const std::vector<TimedState>& states) {
  const std::string when = "after " + std::to_string(run.goal) + " steps";
  if (run.goal >= states.size())
    return "the goal is " + when + ", but the run has only " + std::to_string(run.steps.size());
  if (!holds(property, propositionsAt(net, states[run.goal].locations)))
    return "the property does not hold " + when;
  return "";
}

}  // namespace

TimedState initialState(const Network& net) {
  return {initialLocations(net), std::vector<Rational>(net.processes.size())};
}

std::optional<Rational> longestDelay(const Network& net, const TimedState& state) {
  const auto first = deadline(net, state);
  return first ? std::optional(first->delay) : std::nullopt;
}

std::optional<Window> window(const Network& net, const TimedState& state, std::size_t transition) {
  const Transition& t = net.transitions.at(transition);
  if (hindrance(t, state.locations) != nullptr) return std::nullopt;
  Window result{std::max(Rational(0), Rational(t.interval.earliest) - youth(t, state.clocks)),
                longestDelay(net, state)};
  if (result.to && *result.to < result.from) return std::nullopt;
  return result;
}

std::string advance(const Network& net, const Step& step, TimedState& state) {
  assert(state.locations.size() == net.processes.size());
  assert(state.clocks.size() == net.processes.size());
  try {
    std::string complaint = objection(net, step, state);
    if (complaint.empty()) state = after(net.transitions[step.transition], step.delay, state);
    return complaint;
  } catch (const std::overflow_error& error) {
    return error.what();
  }
}

std::string extend(const Network& net, const Step& step, Replay& replayed) {
  TimedState state = replayed.states.back();
  std::string complaint = advance(net, step, state);
  if (!complaint.empty()) return complaint;
  try {
    replayed.times.push_back(replayed.times.back() + step.delay);
  } catch (const std::overflow_error& error) {
    return error.what();
  }
  replayed.states.push_back(std::move(state));
  return "";
}

Replay unmoved(const Network& net) { return {{initialState(net)}, {0}, ""}; }

Replay replay(const Network& net, const Property& property, const Run& run) {
  Replay result = unmoved(net);
  for (const Step& step : run.steps) {
    const std::string complaint = extend(net, step, result);
    if (complaint.empty()) continue;
    result.complaint = "step " + std::to_string(result.states.size()) + ": " + complaint;
    return result;
  }
  result.complaint = goalComplaint(net, property, run, result.states);
  return result;
}

}  // namespace tpn
