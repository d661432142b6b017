// A run as a picture, in one SVG file that needs nothing else. From back to front: the areas of the
// instants and of the goal, ties, bars, dots and numbers. A tie runs behind the bars of processes
// that it passes over and ends in a dot on those that take part.

#include <algorithm>
#include <array>

#include "workbench/base/printable.hpp"
#include "workbench/network/account.hpp"
#include "workbench/views/rungeometry.hpp"
#include "workbench/views/runlanes.hpp"
#include "workbench/views/svgelements.hpp"
#include "workbench/views/viewparts.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

namespace {

class Picture {
 public:
  Picture(const Network& net, const Property& property, const Run& run, const Look& look)
      : net_(net),
        property_(property),
        run_(run),
        replay_(replayed(net, property, run)),
        at_(geometryOf(net, property, run, replay_, look.all)) {}

  std::string draw() const {
    const int height = at_.lanesBottom + 64;
    std::string svg =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg" +
        attribute("xmlns", "http://www.w3.org/2000/svg") + attribute("width", at_.width) +
        attribute("height", height) +
        attribute("viewBox", "0 0 " + std::to_string(at_.width) + " " + std::to_string(height)) +
        attribute("fill", "#222") + ">\n" + hint(net_.title) + svgStyle;
    svg += box(0, 0, at_.width, height, attribute("fill", "#fff"));
    svg += heading() + instantAreas();
    if (marked()) svg += goalArea();
    for (std::size_t i = 0; i < run_.steps.size(); ++i) svg += tie(i);
    for (const std::size_t p : at_.lanes) svg += lane(p);
    if (marked()) svg += goalOutlines();
    for (std::size_t i = 0; i < run_.steps.size(); ++i) svg += step(i);
    return svg + axis() + legend() + "</svg>\n";
  }

 private:
  bool marked() const { return !asksNothing(property_); }
  const Transition& fired(std::size_t step) const {
    return net_.transitions[run_.steps[step].transition];
  }
  int middle(std::size_t process) const { return at_.barTop(process) + RunGeometry::barHeight / 2; }

  // The part of the property that holds at the goal.
  std::string account() const {
    return shortened(goalAccount(net_, property_, replay_.states[run_.goal]), ", ", 24);
  }

  std::set<std::size_t> askedProcesses() const {
    return tpn::askedProcesses(net_, property_, replay_.states[run_.goal].locations);
  }
  std::string heading() const;
  std::string instantAreas() const;
  std::string goalArea() const;
  std::string goalOutlines() const;
  std::string tie(std::size_t step) const;
  std::string lane(std::size_t process) const;
  std::string bar(std::size_t process, std::size_t from, std::size_t to) const;
  std::string step(std::size_t step) const;
  std::string axis() const;
  std::string legend() const;

  const Network& net_;
  const Property& property_;
  const Run& run_;
  Replay replay_;
  RunGeometry at_;
};

std::string Picture::heading() const {
  const auto room = static_cast<std::size_t>((at_.width - 32) / 10);
  std::string text = label(RunGeometry::textLeft, 26, "heading", cut(printable(net_.title), room));
  int y = RunGeometry::questionTop;
  for (const QuestionLine& line : at_.question) {
    text += label(RunGeometry::textLeft, y, "quiet", line);
    y += RunGeometry::questionLine;
  }
  return text + label(at_.gutter - 12, at_.lanesTop - 10, "quiet", "step",
                      attribute("text-anchor", "end"));
}

// Grey: more than one state here, and no time passes.
std::string Picture::instantAreas() const {
  std::string areas;
  for (const Instant& instant : at_.instants)
    if (instant.last > instant.first)
      areas += box(at_.left(instant.first), at_.lanesTop,
                   at_.left(instant.last) - at_.left(instant.first), at_.lanesBottom - at_.lanesTop,
                   attribute("fill", "#efefef"));
  return areas;
}

std::string Picture::goalArea() const {
  const int x = at_.left(run_.goal);
  const int width = at_.right(run_.goal) - x;
  const std::string ink = attribute("fill", "#b84a00");
  std::string area =
      "<g id=\"goal\">\n" + hint("the property holds: " + shortProperty(property_, 400) +
                                 (leavesOpen(property_) ? ": " + account() : ""));
  area += box(x, at_.lanesTop, width, at_.lanesBottom - at_.lanesTop, attribute("fill", "#ffe7b8"));
  area += box(x, at_.lanesTop - 3, width, 3, ink) + box(x, at_.lanesBottom, width, 3, ink);
  area += box(x - 18, at_.lanesTop - 38, 36, 16, ink + attribute("rx", 3));
  area += label(x, at_.lanesTop - 26, "mark", "goal",
                attribute("fill", "#fff") + attribute("font-weight", "bold"));
  return area + "</g>\n";
}

// Around the locations that the property asks for, or a proposition of theirs.
std::string Picture::goalOutlines() const {
  const int x = at_.left(run_.goal);
  std::string outlines;
  for (const std::size_t p : askedProcesses())
    outlines +=
        box(x + 1, at_.barTop(p) - 2, at_.right(run_.goal) - x - 2, RunGeometry::barHeight + 4,
            attribute("class", "witness") + attribute("fill", "none") +
                attribute("stroke", "#b84a00") + attribute("stroke-width", 3) + attribute("rx", 4));
  return outlines;
}

// From the first to the last process of a shared transition.
std::string Picture::tie(std::size_t step) const {
  const std::vector<Move>& moves = fired(step).moves;
  if (moves.size() < 2) return "";
  const int x = at_.left(step + 1);
  return stroke(x, middle(moves.front().process), x, middle(moves.back().process),
                attribute("class", "tie"));
}

// A bar from one move of the process to its next one; a move that stays in its location begins a
// new one as well, for it resets the clock.
std::string Picture::lane(std::size_t process) const {
  std::string bars = "<g class=\"process\" id=\"process-" + std::to_string(number(process)) +
                     "\">\n" +
                     label(at_.gutter - 12, middle(process) + 4, "lane", laneName(net_, process));
  std::size_t from = 0;
  for (std::size_t i = 0; i < run_.steps.size(); ++i)
    for (const Move& move : fired(i).moves)
      if (move.process == process && move.resets) {
        bars += bar(process, from, i);
        from = i + 1;
      }
  return bars + bar(process, from, run_.steps.size()) + "</g>\n";
}

// Over the states from .. to; a long bar says its location more than once.
std::string Picture::bar(std::size_t process, std::size_t from, std::size_t to) const {
  const int location = replay_.states[from].locations[process];
  const Colour& colour = colourOf(net_.processes[process], location);
  const int x = at_.left(from);
  const int width = at_.right(to) - x;
  std::string about = "process " + processName(net_, process) + " in location " +
                      locationName(net_, process, location) + " from time " +
                      replay_.times[from].text();
  const bool lastBar = to == run_.steps.size();
  if (!lastBar) about += " to " + replay_.times[to + 1].text();
  const auto labels = net_.processes[process].labels.find(location);
  if (labels != net_.processes[process].labels.end() && !labels->second.empty())
    about += "; " + joined(propositionNames(net_, labels->second), " ");

  std::string result = "<g class=\"bar\">\n" + hint(about);
  result += box(x, at_.barTop(process), width - 1, RunGeometry::barHeight,
                attribute("fill", colour.fill) + attribute("rx", 2));
  constexpr int again = 480;
  for (int offset = 0; offset == 0 || offset + again / 2 < width; offset += again)
    result += label(x + 8 + offset, middle(process) + 4, "place",
                    pictured(locationName(net_, process, location)), attribute("fill", colour.ink));
  return result + "</g>\n";
}

// Its number above the lanes, the transition's above the first process, dots on all that move,
// rings on those that are only read.
std::string Picture::step(std::size_t step) const {
  const Transition& transition = fired(step);
  const bool shared = transition.moves.size() > 1;
  const int x = at_.left(step + 1);
  const std::string name = pictured(transitionName(net_, run_.steps[step].transition));
  std::vector<std::string> processes;
  for (const Move& move : transition.moves) processes.push_back(processName(net_, move.process));

  std::string result = "<g class=\"step\" id=\"step-" + std::to_string(step + 1) + "\">\n";
  result += hint("step " + std::to_string(step + 1) + ": transition " +
                 transitionName(net_, run_.steps[step].transition) + " within " +
                 text(transition.interval) + " of " + (shared ? "processes " : "process ") +
                 joined(processes, ", ") + " at time " + replay_.times[step + 1].text() +
                 ", after " + run_.steps[step].delay.text());
  const bool atGoal = marked() && step + 1 == run_.goal;
  result +=
      label(x, at_.lanesTop - 10, atGoal ? "mark goal" : "mark quiet", std::to_string(step + 1));
  const int width = textWidth(name.size(), RunGeometry::smallFont) + 6;
  const int top = at_.barTop(transition.moves.front().process) - 15;
  result += box(x - width / 2, top, width, 13,
                attribute("rx", 3) + attribute("fill", shared ? "#222" : "#fff") +
                    attribute("stroke", shared ? "#222" : "#888"));
  result += label(x, top + 10, "mark", name, attribute("fill", shared ? "#fff" : "#222"));
  for (const Move& move : transition.moves)
    result += "<circle" + attribute("cx", x) + attribute("cy", middle(move.process)) +
              attribute("r", 4) + attribute("fill", move.resets ? "#222" : "#fff") +
              attribute("stroke", move.resets ? "#fff" : "#222") + "/>\n";
  return result + "</g>\n";
}

std::string Picture::axis() const {
  const int y = at_.lanesBottom + 12;
  const std::string line = attribute("class", "axis");
  std::string result =
      "<g id=\"time\">\n" + stroke(at_.gutter, y, at_.end, y, line) +
      label(at_.gutter - 12, y + 18, "quiet", "time", attribute("text-anchor", "end"));
  for (const Instant& instant : at_.instants) {
    const int from = at_.left(instant.first);
    const int to = at_.left(instant.last);
    if (from < to) result += box(from, y - 2, to - from, 4, attribute("fill", "#444"));
    result += stroke((from + to) / 2, y, (from + to) / 2, y + 7, line);
    result += label((from + to) / 2, y + 18, "mark", instant.time.text());
  }
  for (const Gap& gap : at_.gaps) {
    for (const int x : gap.ticks) result += stroke(x, y, x, y + 4, line);
    if (gap.toScale) continue;
    const int x = (gap.from + gap.to) / 2;
    result += stroke(x, y, x + 4, y, attribute("stroke", "#fff") + attribute("stroke-width", 3));
    result += stroke(x - 2, y + 4, x + 2, y - 4, line) + stroke(x + 2, y + 4, x + 6, y - 4, line);
  }
  return result + "</g>\n";
}

std::string Picture::legend() const {
  const auto any = [](const auto& range, const auto& what) {
    return std::any_of(range.begin(), range.end(), what);
  };
  std::string words = "bar: location";
  words += "  \u00b7  box: transition, black where processes share it";
  if (any(at_.instants, [](const Instant& i) { return i.last > i.first; }))
    words += "  \u00b7  grey: no time passes";
  if (any(at_.gaps, [](const Gap& gap) { return !gap.toScale; }))
    words += "  \u00b7  //: not to scale";
  const std::size_t others = net_.processes.size() - at_.lanes.size();
  if (others > 0)
    words += "  \u00b7  not drawn: " + std::to_string(others) +
             (others == 1 ? " process that does not move" : " processes that do not move");
  return label(RunGeometry::textLeft, at_.lanesBottom + 54, "quiet", words);
}

}  // namespace

std::string runSvg(const Network& net, const Property& property, const Run& run, const Look& look) {
  return Picture(net, property, run, look).draw();
}

}  // namespace tpn
