// A network as Graphviz draws it: one automaton a process.
//
// The automata are not connected, so dot can lay out each alone and pack them into an array. (It
// forgets edge labels then, in version 2.43; labels are nodes here for better reasons as well.)

#include <compare>
#include <map>
#include <utility>

#include "workbench/base/printable.hpp"
#include "workbench/network/shown.hpp"
#include "workbench/views/viewparts.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

namespace {

// Graphviz reads escapes and, in labels, entities.
std::string escaped(const std::string& text) {
  std::string result;
  for (const char c : printable(text)) {
    if (c == '"' || c == '\\') result += '\\';
    result += c;
    if (c == '&') result += "amp;";
  }
  return result;
}
std::string quoted(const std::string& text) { return "\"" + escaped(text) + "\""; }

std::string node(std::size_t process, const std::string& name) {
  return "p" + std::to_string(number(process)) + "_" + name;
}

// What a page finds a location by: numbers, whatever the names are.
std::string locationClass(std::size_t process, int location) {
  return "location at-" + std::to_string(number(process)) + "-" + std::to_string(location);
}

std::string locationDot(const Network& net, std::size_t index, int location, const Colour& colour) {
  std::string words = escaped(locationName(net, index, location));
  const auto names = propositionNames(net, labelsAt(net.processes[index], location));
  if (!names.empty()) words += "\\n" + escaped(shortened(names, " ", 6));
  return "    " + node(index, std::to_string(location)) + " [class=\"" +
         locationClass(index, location) + "\", label=\"" + words + "\", fillcolor=\"" +
         colour.fill + "\", fontcolor=\"" + colour.ink + "\"" +
         (location == 0 ? ", penwidth=2.5" : "") + "];\n";
}

// Transitions between the same locations share an arrow: those with equal intervals and partners a
// line, shared ones and others an arrow each, and so those that do not count or do not reset.
struct Arrow {
  int source = 0;
  int target = 0;
  bool shared = false;
  bool puts = false;   // a token down: the move does not count
  bool reads = false;  // it does not reset

  friend auto operator<=>(const Arrow&, const Arrow&) = default;
};
struct Caption {
  std::string words;                     // without the transitions
  std::vector<std::string> transitions;  // names or numbers
  std::string classes;                   // what a page finds them by: " fires-3 fires-8"
};
using Captions = std::vector<Caption>;

std::map<Arrow, Captions> arrowsOf(const Network& net, std::size_t process, const Parts& parts) {
  std::map<Arrow, Captions> arrows;
  std::map<std::pair<const Captions*, std::string>, std::size_t> places;  // of captions, by words
  for (const Part& part : parts) {
    const Transition& t = net.transitions[part.transition];
    std::string rest = text(t.interval);
    if (isShared(t)) rest += " with " + partners(net, t, process, 6);
    Captions& lines = arrows[{part.source, part.target, isShared(t), !part.counts, !part.resets}];
    const auto [place, isNew] = places.try_emplace({&lines, rest}, lines.size());
    if (isNew) lines.push_back({rest, {}, ""});
    Caption& line = lines[place->second];
    line.transitions.push_back(shownTransition(net, part.transition));
    line.classes += " fires-" + std::to_string(number(part.transition));
  }
  return arrows;
}

// The words of an arrow are a node in its middle: so they stay clear of everything else, and two
// arrows in opposite directions stay two. Black where processes share them, as in pictures of runs;
// dashed where a token is only read, dotted where one is put down.
std::string arrowDot(std::size_t process, const Arrow& arrow, const Captions& lines) {
  constexpr std::size_t mostLines = 12;
  std::vector<std::string> words;
  std::string classes = arrow.shared ? "shared" : "local";
  for (const Caption& line : lines) {
    words.push_back(escaped(shortened(line.transitions, ", ", 8) + "  " + line.words));
    classes += line.classes;
  }
  const std::string source = std::to_string(arrow.source);
  const std::string target = std::to_string(arrow.target);
  const std::string middle =
      node(process, source + "_" + target + (arrow.shared ? "_shared" : "") +
                        (arrow.puts ? "_puts" : "") + (arrow.reads ? "_reads" : ""));
  const std::string stroke =
      std::string(arrow.shared ? " [penwidth=2, color=\"#222222\"" : " [color=\"#666666\"") +
      (arrow.puts    ? ", style=dotted"
       : arrow.reads ? ", style=dashed"
                     : "");
  return "    " + middle + " [class=\"" + classes + "\", label=\"" +
         shortened(words, "\\l", mostLines) + "\\l\", shape=box, style=\"rounded,filled\", " +
         (arrow.shared ? "fillcolor=\"#222222\", fontcolor=\"#ffffff\""
                       : "fillcolor=\"#ffffff\", color=\"#888888\"") +
         ", fontsize=10, margin=\"0.06,0.03\", width=0, height=0];\n    " + node(process, source) +
         " -> " + middle + stroke + ", arrowhead=none];\n    " + middle + " -> " +
         node(process, target) + stroke + "];\n";
}

std::string processDot(const Network& net, std::size_t index, const Parts& parts) {
  const Process& process = net.processes[index];
  const std::string name = std::to_string(number(index));
  std::string dot = "  subgraph cluster_" + name +
                    " {\n    label=" + quoted("process " + processName(net, index)) +
                    "; fontsize=14; color=\"#999999\"; style=rounded;\n";
  dot += "    " + node(index, "start") + " [shape=point, width=0.12, label=\"\"];\n";
  std::size_t rank = 0;
  for (const int location : process.locations)
    dot += locationDot(net, index, location, colourOfRank(rank++));
  dot += "    " + node(index, "start") + " -> " + node(index, "0") + ";\n";
  for (const auto& [arrow, lines] : arrowsOf(net, index, parts))
    dot += arrowDot(index, arrow, lines);
  return dot + "  }\n";
}

}  // namespace

std::string networkDot(const Network& net) {
  const std::string font = "fontname=\"DejaVu Sans,Verdana,Arial\"";
  std::string dot = "digraph network {\n  graph [label=" + quoted(net.title) + ", labelloc=t, " +
                    "fontsize=18, " + font + ", ranksep=0.25, pack=20, packmode=array_it];\n";
  dot += "  node [shape=ellipse, style=filled, " + font + ", fontsize=12, height=0.4];\n";
  dot += "  edge [color=\"#666666\", arrowsize=0.8];\n";
  const std::vector<Parts> parts = partsByProcess(net);
  for (std::size_t p = 0; p < net.processes.size(); ++p) dot += processDot(net, p, parts[p]);
  return dot + "}\n";
}

}  // namespace tpn
