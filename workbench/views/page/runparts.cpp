// A run on a page: its picture with the controls, and its states in a table.

#include "workbench/views/page/html.hpp"
#include "workbench/views/page/parts.hpp"
#include "workbench/views/page/states.hpp"
#include "workbench/views/svgelements.hpp"
#include "workbench/views/viewparts.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

namespace {

std::string button(const std::string& id, const std::string& label, const std::string& sign) {
  return element("button",
                 attribute("type", "button") + attribute("id", id) +
                     attribute("aria-label", label) + attribute("title", label),
                 sign);
}

std::string controls(std::size_t steps) {
  return element(
      "div",
      attribute("class", "stepper") + attribute("role", "group") +
          attribute("aria-label", "Step through the run"),
      "\n" + button("first", "first state", "\u21e4") + button("back", "one step back", "\u2190") +
          "<input type=\"range\" id=\"slider\" min=\"0\" value=\"0\" step=\"1\" "
          "aria-label=\"state\"" +
          attribute("max", std::to_string(steps)) + ">\n" +
          button("forward", "one step on", "\u2192") + button("last", "last state", "\u21e5") +
          "<p id=\"words\" aria-live=\"polite\"></p>\n");
}

std::string cell(const std::string& text, const std::string& type = "") {
  return "<td" + (type.empty() ? "" : attribute("class", type)) + ">" + xmlText(text) + "</td>";
}

std::string changes(const Network& net, const Transition& t) {
  std::vector<std::string> all;
  for (const Move& move : t.moves)
    if (move.source != move.target)
      all.push_back(processTitle(net, move.process) + ": " +
                    locationTitle(net, move.process, move.source) + " \u2192 " +
                    locationTitle(net, move.process, move.target));
  return joined(all, ", ");
}

std::string rowCells(const Network& net, const Run& run, const Replay& replay, std::size_t state) {
  const std::string holding =
      joined(propositionNames(net, propositionsAt(net, replay.states[state].locations)), ", ");
  if (state == 0)
    return cell("0", "number") + cell("") + cell("") + cell("all initial") + cell(holding);
  const Step& step = run.steps[state - 1];
  return cell(replay.times[state].text(), "number") + cell(step.delay.text(), "number") +
         cell(transitionTitle(net, step.transition)) +
         cell(changes(net, net.transitions[step.transition])) + cell(holding);
}

}  // namespace

std::string lanesPart(const Network& net, const Property& property, const Run& run,
                      const Look& look) {
  const std::string lanes =
      element("div",
              attribute("class", "picture") + attribute("id", "lanes") +
                  attribute("tabindex", "0") + attribute("role", "group") +
                  attribute("aria-label", "the run: time runs right, a lane a process"),
              "\n" + inlineSvg(runSvg(net, property, run, look)));
  const std::string note = element("p", attribute("class", "note screen"),
                                   "Step with the arrow keys, the slider, or a click into the "
                                   "picture or the table.");
  return section("run", "The run", controls(run.steps.size()) + lanes + note);
}

std::string tablePart(const Network& net, const Property& property, const Run& run,
                      const Replay& replay) {
  std::string rows;
  for (std::size_t i = 0; i < replay.states.size(); ++i) {
    const bool goal = !asksNothing(property) && i == run.goal;
    const std::string number = std::to_string(i) + (goal ? " goal" : "");
    rows += "<tr" + attribute("data-state", std::to_string(i)) +
            (goal ? attribute("class", "goal") : "") + "><th scope=\"row\">" + number + "</th>" +
            rowCells(net, run, replay, i) + "</tr>\n";
  }
  const std::string head =
      "<thead><tr><th scope=\"col\">state</th><th scope=\"col\">time</th><th scope=\"col\">delay"
      "</th><th scope=\"col\">transition</th><th scope=\"col\">what changes</th>"
      "<th scope=\"col\">what holds</th></tr></thead>\n";
  return section(
      "table", "All states",
      element("div",
              attribute("class", "wide") + attribute("tabindex", "0") + attribute("role", "group") +
                  attribute("aria-label", "all states, a row each"),
              element("table", attribute("id", "states"),
                      "\n" + head + element("tbody", "\n" + rows))));
}

}  // namespace tpn
