// All delays are multiples of one grain, so all clocks and the ends of all windows are too: nothing
// has to be rounded, and denominators do not grow on long walks.

#include "workbench/walking/randomwalk.hpp"

#include <algorithm>
#include <random>
#include <stdexcept>
#include <vector>

#include "workbench/runs/run.hpp"

namespace tpn {

namespace {

constexpr std::int64_t grain = 12;  // parts of a time unit: halves, thirds, quarters

// Standard distributions differ between libraries, the engine does not. The slight bias of the
// remainder is harmless.
std::uint64_t upTo(std::uint64_t most, std::mt19937_64& random) { return random() % (most + 1); }

// Where nothing limits a delay, or hardly, waiting longer than all constants adds nothing.
Rational delayWithin(const Window& window, std::int64_t longest, std::mt19937_64& random) {
  const Rational whole = std::min<std::int64_t>(longest, 1'000'000'000);
  const Rational span = window.to ? std::min(*window.to - window.from, whole) : whole;
  const std::int64_t grains = span.numerator() * (grain / span.denominator());
  const auto chosen = static_cast<std::int64_t>(upTo(static_cast<std::uint64_t>(grains), random));
  return window.from + Rational(chosen, grain);
}

struct Choice {
  std::size_t transition = 0;
  Window delays;
};

std::vector<Choice> choices(const Network& net, const TimedState& state) {
  std::vector<Choice> found;
  const std::vector<std::optional<Window>> all = windows(net, state);
  for (std::size_t t = 0; t < all.size(); ++t)
    if (all[t]) found.push_back({t, *all[t]});
  return found;
}

// Where a walk is. The states before are not kept: they took 100 MB a second.
struct Now {
  TimedState state;
  Rational time;
};

// What is wrong with the step, or empty.
std::string go(const Network& net, const Step& step, Now& now) {
  try {
    const Rational time = now.time + step.delay;
    std::string complaint = advance(net, step, now.state);
    if (complaint.empty()) now.time = time;
    return complaint;
  } catch (const std::overflow_error& error) {
    return error.what();
  }
}

}  // namespace

Walked walkRandomly(const Network& net, std::uint64_t seed, std::size_t steps) {
  std::mt19937_64 random(seed);
  const std::int64_t longest = largestConstant(net) + 1;
  Walked walked;
  Now now{initialState(net), 0};
  while (walked.run.steps.size() < steps && walked.stuck.empty()) {
    const std::vector<Choice> all = choices(net, now.state);
    if (all.empty()) {
      walked.stuck = stuck(net, now.state);
      break;
    }
    const Choice& chosen = all[upTo(all.size() - 1, random)];
    const Step step{delayWithin(chosen.delays, longest, random), chosen.transition};
    walked.stuck = go(net, step, now);  // times that do not fit any more
    if (walked.stuck.empty()) walked.run.steps.push_back(step);
  }
  walked.run.goal = walked.run.steps.size();
  return walked;
}

}  // namespace tpn
