// Where things stand in the picture of a run, in pixels.
//
// Time runs right, but not everywhere to one scale. Steps at one instant get a column each, or they
// would lie on top of each other: no time passes between these. Very short and very long delays get
// a least and a greatest width. Where the scale is left the axis shows a break.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"
#include "workbench/runs/replay.hpp"
#include "workbench/views/question.hpp"

namespace tpn {

// An upper estimate of the width of a text of digits and small letters in the fonts we name.
constexpr int textWidth(std::size_t characters, int fontSize) {
  return static_cast<int>(characters) * fontSize * 13 / 20 + 1;
}

// States that are reached at one moment, the first of them after some delay.
struct Instant {
  Rational time;
  std::size_t first = 0;  // states first .. last
  std::size_t last = 0;
};

// Time passing from one instant to the next.
struct Gap {
  int from = 0;  // x
  int to = 0;
  bool toScale = true;
  std::vector<int> ticks;  // x of the round times inside, where to scale
};

struct RunGeometry {
  static constexpr int barHeight = 20;
  static constexpr int lanePitch = 36;
  static constexpr int smallFont = 10;
  static constexpr int barFont = 11;
  static constexpr int laneFont = 12;
  static constexpr int textLeft = 16;     // x of the lines of text
  static constexpr int questionTop = 44;  // y of the question's first line
  static constexpr int questionLine = 14;

  std::vector<std::size_t> lanes;      // the processes that are drawn, ascending
  std::vector<QuestionLine> question;  // what is asked and when it holds; empty: nothing is
  int column = 0;                      // width of a column
  int gutter = 0;                      // x where the time axis begins
  int lanesTop = 0;                    // y
  int lanesBottom = 0;                 // y
  int end = 0;                         // x where the last state is left off
  int width = 0;                       // of the picture
  std::vector<int> entered;            // by state: x
  std::vector<Instant> instants;
  std::vector<Gap> gaps;  // gaps[i] ends at instants[i + 1]

  int barTop(std::size_t process) const;  // of one that is drawn
  int left(std::size_t state) const { return entered[state]; }
  int right(std::size_t state) const;  // where the next one is entered
};

// With a lane for each process that moves or is asked for, or for all.
RunGeometry geometryOf(const Network& net, const Property& property, const Run& run,
                       const Replay& replay, bool all);

// What stands beside a lane: "process 4", or its name.
std::string laneName(const Network& net, std::size_t process);

}  // namespace tpn
