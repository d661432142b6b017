// A network for Graphviz: one automaton a process, and those that are alike once.
//
// The automata are not connected, so dot can lay out each alone and pack them into an array. (It
// forgets edge labels then, in version 2.43; labels are nodes here for better reasons as well.)

#include "workbench/base/printable.hpp"
#include "workbench/views/automaton.hpp"
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

std::string prefixOf(const Automaton& automaton) {
  return "p" + std::to_string(number(automaton.processes[0])) + "_";
}

std::string labelOf(const DrawnLocation& location) {
  const std::string names =
      location.propositions.empty() ? "" : "\\n" + escaped(location.propositions);
  return escaped(location.name) + names;
}

std::string look(const DrawnLocation& location) {
  return std::string("fillcolor=\"") + location.colour.fill + "\", fontcolor=\"" +
         location.colour.ink + "\"" + (location.location == 0 ? ", penwidth=2.5" : "");
}

// The words of an arrow are a node in its middle: so they stay clear of everything else, and two
// arrows in opposite directions stay two. Black where processes share them, as in pictures of runs;
// dashed where a token is only read, dotted where one is put down.
std::string arrowDot(const std::string& prefix, const DrawnArrow& drawn) {
  constexpr std::size_t mostLines = 12;
  const Arrow& arrow = drawn.arrow;
  std::vector<std::string> words;
  for (const Caption& caption : drawn.captions) words.push_back(escaped(caption.words));
  const std::string source = std::to_string(arrow.source);
  const std::string target = std::to_string(arrow.target);
  const std::string middle = prefix + source + "_" + target + (arrow.shared ? "_shared" : "") +
                             (arrow.puts ? "_puts" : "") + (arrow.reads ? "_reads" : "");
  const std::string stroke =
      std::string(arrow.shared ? " [penwidth=2, color=\"#222222\"" : " [color=\"#666666\"") +
      (arrow.puts    ? ", style=dotted"
       : arrow.reads ? ", style=dashed"
                     : "");
  std::string classes = arrow.shared ? "shared" : "local";
  for (const Caption& caption : drawn.captions) classes += " " + classesOf(caption);
  return "    " + middle + " [class=\"" + classes + "\", label=\"" +
         shortened(words, "\\l", mostLines) + "\\l\", shape=box, style=\"rounded,filled\", " +
         (arrow.shared ? "fillcolor=\"#222222\", fontcolor=\"#ffffff\""
                       : "fillcolor=\"#ffffff\", color=\"#888888\"") +
         ", fontsize=10, margin=\"0.06,0.03\", width=0, height=0];\n    " + prefix + source +
         " -> " + middle + stroke + ", arrowhead=none];\n    " + middle + " -> " + prefix + target +
         stroke + "];\n";
}

std::string graphDot(const Automaton& automaton) {
  const std::string prefix = prefixOf(automaton);
  std::string dot = "    " + prefix + "start [shape=point, width=0.12, label=\"\"];\n";
  for (const DrawnLocation& location : automaton.locations)
    dot += "    " + prefix + std::to_string(location.location) + " [class=\"" +
           classesOf(automaton, location.location) + "\", label=\"" + labelOf(location) + "\", " +
           look(location) + "];\n";
  dot += "    " + prefix + "start -> " + prefix + "0;\n";
  for (const DrawnArrow& arrow : automaton.arrows) dot += arrowDot(prefix, arrow);
  return dot;
}

// A box a location, below each other, that say how each is entered.
std::string tableDot(const Automaton& automaton) {
  const std::string prefix = prefixOf(automaton);
  std::string dot;
  std::string above;
  for (const TableRow& row : automaton.table) {
    const std::string node = prefix + std::to_string(row.location.location);
    std::string words = labelOf(row.location) + "\\l";
    std::string classes = classesOf(automaton, row.location.location);
    for (const Entry& entry : row.entries) {
      words += "    " + escaped(entry.from) + ": " + escaped(entry.caption.words) + "\\l";
      classes += " " + classesOf(entry.caption);
    }
    dot += "    " + node + " [class=\"" + classes + "\", shape=box, label=\"" + words + "\", " +
           look(row.location) + ", fontsize=10];\n";
    if (!above.empty()) dot += "    " + above + " -> " + node + " [style=invis];\n";
    above = node;
  }
  return dot;
}

std::string automatonDot(const Automaton& automaton) {
  const std::size_t count = automaton.processes.size();
  const std::string heading =
      automaton.name + (count > 1 ? " \u00d7 " + std::to_string(count) : "");
  return "  subgraph cluster_" + std::to_string(number(automaton.processes[0])) +
         " {\n    label=\"" + escaped(heading) +
         (automaton.which.empty() ? "" : "\\n" + escaped(automaton.which)) +
         "\"; fontsize=14; color=\"#999999\"; style=rounded;\n" +
         (automaton.table.empty() ? graphDot(automaton) : tableDot(automaton)) + "  }\n";
}

}  // namespace

std::string networkDot(const Network& net, const Look& look) {
  const std::string font = "fontname=\"DejaVu Sans,Verdana,Arial\"";
  std::string dot = "digraph network {\n  graph [label=" + quoted(net.title) + ", labelloc=t, " +
                    "fontsize=18, " + font + ", ranksep=0.25, pack=20, packmode=array_it];\n";
  dot += "  node [shape=ellipse, style=filled, " + font + ", fontsize=12, height=0.4];\n";
  dot += "  edge [color=\"#666666\", arrowsize=0.8];\n";
  for (const Automaton& automaton : automataOf(net, look.all)) dot += automatonDot(automaton);
  return dot + "}\n";
}

}  // namespace tpn
