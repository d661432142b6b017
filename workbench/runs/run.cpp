// The smallest of its processes' clocks, as far as their moves count, is the time since a
// transition was enabled, where it is: "all have reached the earliest" and "one is not past the
// latest" both speak of it.

#include "workbench/runs/run.hpp"

#include <algorithm>
#include <cassert>
#include <stdexcept>
#include <utility>

#include "workbench/network/shown.hpp"

namespace tpn {

namespace {

Rational sinceEnabling(const Transition& t, const std::vector<Rational>& clocks) {
  assert(isValid(t));
  std::optional<Rational> least;
  for (const Move& move : t.moves)
    if (move.counts && (!least || clocks[move.process] < *least)) least = clocks[move.process];
  return *least;
}

// How long this transition lets time pass; no limit where it is not enabled or may wait for ever.
std::optional<Rational> timeLeft(const Transition& t, const TimedState& state) {
  if (!t.interval.latest || !enabled(t, state.locations)) return std::nullopt;
  return Rational(*t.interval.latest) - sinceEnabling(t, state.clocks);
}

// The enabled transition that has to fire first, and within what delay.
struct Deadline {
  std::size_t transition = 0;
  Rational delay;
};
std::optional<Deadline> deadline(const Network& net, const TimedState& state) {
  std::optional<Deadline> first;
  for (std::size_t t = 0; t < net.transitions.size(); ++t) {
    const auto delay = timeLeft(net.transitions[t], state);
    if (delay && (!first || *delay < first->delay)) first = Deadline{t, *delay};
  }
  return first;
}

std::string named(const Network& net, std::size_t transition) {
  return "transition " + shownTransition(net, transition);
}

std::string wrongPlace(const Network& net, const Step& step, const Move& move,
                       const Locations& at) {
  return named(net, step.transition) + (move.counts ? " is not enabled" : " is blocked") +
         ": process " + shownProcess(net, move.process) + " is in location " +
         shownLocation(net, move.process, at[move.process]) + ", not " +
         shownLocation(net, move.process, move.source);
}

std::string tooEarly(const Network& net, const Step& step, const Rational& passed) {
  const Transition& t = net.transitions[step.transition];
  return named(net, step.transition) + " fires too early: one of its clocks is at " +
         passed.text() + " and has to reach " + std::to_string(t.interval.earliest);
}

std::string tooLate(const Network& net, const Step& step, const Rational& passed) {
  const Transition& t = net.transitions[step.transition];
  return named(net, step.transition) + " fires too late: its clocks are at " + passed.text() +
         " or more, past " + std::to_string(*t.interval.latest);
}

std::string tooLong(const Network& net, const Step& step, const Deadline& limit) {
  return "a delay of " + step.delay.text() + " is too long: " + named(net, limit.transition) +
         " allows " + limit.delay.text();
}

// What is wrong with the step; empty where nothing is.
std::string violation(const Network& net, const Step& step, const TimedState& state) {
  if (step.transition >= net.transitions.size())
    return "there is no transition " + std::to_string(number(step.transition));
  if (step.delay < 0) return "the delay " + step.delay.text() + " is negative";
  const Transition& t = net.transitions[step.transition];
  if (const Move* move = unmetPrecondition(t, state.locations))
    return wrongPlace(net, step, *move, state.locations);
  const Rational passed = sinceEnabling(t, state.clocks) + step.delay;
  if (passed < t.interval.earliest) return tooEarly(net, step, passed);
  if (t.interval.latest && passed > *t.interval.latest) return tooLate(net, step, passed);
  const auto limit = deadline(net, state);
  if (limit && step.delay > limit->delay) return tooLong(net, step, *limit);
  return "";
}

// Of a transition that is enabled.
std::optional<Window> windowUpTo(const std::optional<Rational>& longest, const Transition& t,
                                 const TimedState& state) {
  const Rational ready = Rational(t.interval.earliest) - sinceEnabling(t, state.clocks);
  Window result{std::max(Rational(0), ready), longest};
  if (result.to && *result.to < result.from) return std::nullopt;
  return result;
}

TimedState after(const Transition& t, const Rational& delay, TimedState state) {
  for (Rational& clock : state.clocks) clock = clock + delay;
  for (const Move& move : t.moves) {
    if (!move.resets) continue;
    state.locations[move.process] = move.target;
    state.clocks[move.process] = 0;
  }
  return state;
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
  if (unmetPrecondition(t, state.locations) != nullptr) return std::nullopt;
  return windowUpTo(longestDelay(net, state), t, state);
}

std::optional<Window> windowOfCounting(const Network& net, const TimedState& state,
                                       std::size_t transition) {
  const Transition& t = net.transitions.at(transition);
  if (!enabled(t, state.locations)) return std::nullopt;
  return windowUpTo(longestDelay(net, state), t, state);
}

std::vector<std::optional<Window>> windows(const Network& net, const TimedState& state) {
  const std::optional<Rational> longest = longestDelay(net, state);
  std::vector<std::optional<Window>> all(net.transitions.size());
  for (std::size_t t = 0; t < all.size(); ++t)
    if (unmetPrecondition(net.transitions[t], state.locations) == nullptr)
      all[t] = windowUpTo(longest, net.transitions[t], state);
  return all;
}

std::string hindrance(const Network& net, const TimedState& state, std::size_t transition) {
  const Transition& t = net.transitions.at(transition);
  const auto limit = deadline(net, state);
  assert(enabled(t, state.locations) && limit);
  const Rational ready = Rational(t.interval.earliest) - sinceEnabling(t, state.clocks);
  return "before " + ready.text() + " has passed, and " + named(net, limit->transition) +
         " has to fire within " + limit->delay.text();
}

std::string advance(const Network& net, const Step& step, TimedState& state) {
  assert(state.locations.size() == net.processes.size());
  assert(state.clocks.size() == net.processes.size());
  try {
    std::string complaint = violation(net, step, state);
    if (complaint.empty()) state = after(net.transitions[step.transition], step.delay, state);
    return complaint;
  } catch (const std::overflow_error& error) {
    return error.what();
  }
}

}  // namespace tpn
