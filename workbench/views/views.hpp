// What there is to see of a run and of a network: tables with a row a view. The command line's
// options and the commands of a walk come from them, so a new view is a file with its function and
// a row in views.cpp.

#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "workbench/base/json.hpp"
#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"
#include "workbench/runs/run.hpp"
#include "workbench/search/answer.hpp"

namespace tpn {

// How a view is shown; views for programs (JSON, VCD) do not ask.
struct Look {
  bool all = false;        // also what does not move, and what is alike one by one
  std::size_t width = 80;  // of a line of text, in columns
  bool colour = false;     // text may hold sequences that colour it on a terminal
};

// Where a subcommand puts a view.
enum class Destination {
  usual,   // on standard output unless something else is asked for
  stream,  // there, with a flag --NAME
  file     // into a file of its own, with an option --NAME FILE
};

struct RunView {
  const char* name;
  const char* suffix;  // of files that hold it, without a dot
  Destination destination;
  const char* help;
  std::string (*print)(const Network& net, const Property& property, const Run& run,
                       const Look& look);
  // Of an answer, which may have no run; null where only runs can be seen like this.
  std::string (*answered)(const Network& net, const Property& property, const Answer& answer,
                          const Look& look);
};

struct NetworkView {
  const char* name;
  const char* suffix;
  Destination destination;
  const char* help;
  std::string (*print)(const Network& net, const Look& look);
};

std::span<const RunView> runViews();
std::span<const NetworkView> networkViews();

// None where there is none of that name.
const RunView* runViewCalled(std::string_view name);

// The views of a run take one that replays without complaint.

// One line a step: elapsed time, delay, transition with the processes that move, locations that
// changed, propositions that now hold; the goal is marked.
std::string runText(const Network& net, const Property& property, const Run& run,
                    const Look& look = {});

// docs/run.schema.json describes it.
Json runJson(const Network& net, const Property& property, const Run& run);

// A value change dump, for waveform viewers. Throws std::overflow_error where its ticks do not
// reach.
std::string runVcd(const Network& net, const Property& property, const Run& run);

// Time runs right, one lane a process.
std::string runSvg(const Network& net, const Property& property, const Run& run,
                   const Look& look = {});

// A page for a browser, which needs nothing else: the network beside the run, to be stepped
// through. Of an answer without a run: why there is none.
std::string runHtml(const Network& net, const Property& property, const Run& run,
                    const Look& look = {});
std::string answerHtml(const Network& net, const Property& property, const Answer& answer,
                       const Look& look = {});

std::string networkText(const Network& net, const Look& look = {});
Json networkJson(const Network& net);  // docs/network.schema.json

// For Graphviz: one automaton a process, those that are alike once.
std::string networkDot(const Network& net, const Look& look = {});

// The same as a picture, laid out by Graphviz; panel.hpp says how its elements tell what they show.
// Throws std::runtime_error with the reason, one line.
std::string networkSvg(const Network& net, const Look& look = {});

}  // namespace tpn
