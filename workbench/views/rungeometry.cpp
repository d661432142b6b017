#include "workbench/views/rungeometry.hpp"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstdint>
#include <utility>

#include "workbench/network/account.hpp"
#include "workbench/views/runlanes.hpp"
#include "workbench/views/viewparts.hpp"

namespace tpn {

namespace {

constexpr int header = 96;  // title, property, step numbers
constexpr int tail = 56;    // the last state
constexpr int margin = 16;
constexpr int leastWidth = 720;  // room for the title and the explanation below
constexpr int longestGap = 200;

std::vector<Instant> instantsOf(const std::vector<Rational>& times) {
  std::vector<Instant> instants;
  for (std::size_t i = 0; i < times.size(); ++i) {
    if (instants.empty() || instants.back().time != times[i]) instants.push_back({times[i], i, i});
    instants.back().last = i;
  }
  return instants;
}

// Wide enough for whatever is written beside its neighbours: a location between two dots, a
// transition's number, a step's.
int columnWidth(const Network& net, const Run& run, const Replay& replay, const RunGeometry& at) {
  std::size_t location = 1;
  for (const Process& process : net.processes)
    for (const int l : process.locations) location = std::max(location, std::to_string(l).size());
  if (!net.names.locations.empty())
    for (const TimedState& state : replay.states)
      for (const std::size_t p : at.lanes)
        location = std::max(location, pictured(locationName(net, p, state.locations[p])).size());
  std::size_t transition = std::to_string(net.transitions.size()).size();
  for (const Step& step : run.steps)
    transition = std::max(transition, pictured(transitionName(net, step.transition)).size());
  const std::size_t step = std::to_string(replay.states.size()).size();
  return std::max({24, textWidth(location, RunGeometry::barFont) + 16,
                   textWidth(transition, RunGeometry::smallFont) + 12,
                   textWidth(step, RunGeometry::smallFont) + 6});
}

// The least distance of two instants: that of columns, and their times must fit below.
int leastGap(const RunGeometry& at) {
  std::size_t longest = 1;
  for (const Instant& instant : at.instants)
    longest = std::max(longest, instant.time.text().size());
  return std::max(at.column + 6, textWidth(longest, RunGeometry::smallFont) + 8);
}

// Pixels for a unit of time: a gap of average length gets what makes a long run not too wide.
double pixelsPerUnit(const RunGeometry& at, int least) {
  const auto gaps = static_cast<int>(at.instants.size()) - 1;
  if (gaps == 0) return 0;
  const int average = std::clamp(1200 / gaps, least, 72);
  return average * gaps / at.instants.back().time.value();
}

// The round time step, 1, 2, 5, 10, 20, ..., whose ticks are not too dense.
double tickStep(double perUnit) {
  for (double power = 1;; power *= 10)
    for (const double digit : {1, 2, 5})
      if (digit * power * perUnit >= 12) return digit * power;
}

std::vector<int> ticksBetween(double from, double to, int x, double perUnit) {
  std::vector<int> ticks;
  const double step = tickStep(perUnit);
  for (auto count = static_cast<std::int64_t>(from / step) + 1;; ++count) {
    const double time = static_cast<double>(count) * step;
    if (time >= to) return ticks;
    ticks.push_back(x + static_cast<int>(std::lround((time - from) * perUnit)));
  }
}

Gap gapBetween(const Instant& before, const Instant& after, int x, double perUnit, int least) {
  const double delay = (after.time - before.time).value();
  const double wanted = delay * perUnit;
  Gap gap;
  gap.from = x;
  gap.to = x + static_cast<int>(std::lround(std::clamp<double>(wanted, least, longestGap)));
  gap.toScale = wanted > least - 1 && wanted < longestGap + 1;
  if (gap.toScale) gap.ticks = ticksBetween(before.time.value(), after.time.value(), x, perUnit);
  return gap;
}

void placeStates(RunGeometry& at) {
  const int least = leastGap(at);
  const double perUnit = pixelsPerUnit(at, least);
  int x = at.gutter;
  for (std::size_t i = 0; i < at.instants.size(); ++i) {
    const Instant& instant = at.instants[i];
    if (i > 0) {
      at.gaps.push_back(gapBetween(at.instants[i - 1], instant, x, perUnit, least));
      x = at.gaps.back().to;
    }
    for (std::size_t s = instant.first; s <= instant.last; ++s) {
      if (s > instant.first) x += at.column;
      at.entered.push_back(x);
    }
  }
  at.end = x + tail;
}

std::vector<std::size_t> lanesOf(const Network& net, const Property& property, const Run& run,
                                 const Replay& replay, bool all) {
  std::set<std::size_t> wanted = askedProcesses(net, property, replay.states[run.goal].locations);
  for (std::size_t p = 0; all && p < net.processes.size(); ++p) wanted.insert(p);
  return movingProcesses(net, run, std::move(wanted));
}

QuestionLine questionOf(const Network& net, const Property& property, const Run& run,
                        const Replay& replay) {
  if (asksNothing(property)) return {};
  const TimedState& goal = replay.states[run.goal];
  const std::string where =
      run.goal == 0 ? "at the start" : "after step " + std::to_string(run.goal);
  const std::string why =
      leavesOpen(property) ? ": " + shortened(goalAccount(net, property, goal), ", ", 24) : "";
  QuestionLine question = questionParts(net, property, goal, mostOfQuestion);
  question.push_back(
      {" holds " + where + ", at time " + replay.times[run.goal].text() + why, false});
  return question;
}

// In as many lines as it takes, which push down what is below. Digits and operators, of which
// questions are full, are wider than most letters.
void placeQuestion(RunGeometry& at, const QuestionLine& question) {
  constexpr int widestUsual = RunGeometry::smallFont * 7 / 10;
  const int columns = (at.width - 2 * RunGeometry::textLeft) / widestUsual;
  at.question = foldedQuestion(question, static_cast<std::size_t>(columns));
  if (at.question.empty()) return;
  const int more = static_cast<int>(at.question.size() - 1) * RunGeometry::questionLine;
  at.lanesTop += more;
  at.lanesBottom += more;
}

}  // namespace

int RunGeometry::barTop(std::size_t process) const {
  const auto lane = std::lower_bound(lanes.begin(), lanes.end(), process);
  assert(lane != lanes.end() && *lane == process);
  return lanesTop + static_cast<int>(lane - lanes.begin()) * lanePitch + (lanePitch - barHeight);
}

int RunGeometry::right(std::size_t state) const {
  return state + 1 < entered.size() ? entered[state + 1] : end;
}

std::string laneName(const Network& net, std::size_t process) {
  const auto named = net.names.processes.find(process);
  return named == net.names.processes.end() ? "process " + std::to_string(number(process))
                                            : pictured(named->second);
}

RunGeometry geometryOf(const Network& net, const Property& property, const Run& run,
                       const Replay& replay, bool all) {
  RunGeometry at;
  at.lanes = lanesOf(net, property, run, replay, all);
  std::size_t widestLane = std::string("process").size();
  for (const std::size_t p : at.lanes) widestLane = std::max(widestLane, laneName(net, p).size());
  at.gutter = margin + textWidth(widestLane, RunGeometry::laneFont) + 16;
  at.lanesTop = header;
  at.lanesBottom = header + static_cast<int>(at.lanes.size()) * RunGeometry::lanePitch + 8;
  at.instants = instantsOf(replay.times);
  at.column = columnWidth(net, run, replay, at);
  placeStates(at);
  at.width = std::max(leastWidth, at.end + margin);
  placeQuestion(at, questionOf(net, property, run, replay));
  return at;
}

}  // namespace tpn
