// A run, or an answer, as one page that needs nothing else.

#include <nlohmann/json.hpp>
#include <sstream>

#include "workbench/search/answer.hpp"
#include "workbench/views/page/html.hpp"
#include "workbench/views/page/parts.hpp"
#include "workbench/views/page/policy.hpp"
#include "workbench/views/page/sources.hpp"
#include "workbench/views/page/states.hpp"
#include "workbench/views/svgelements.hpp"
#include "workbench/views/viewparts.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

namespace {

std::string headPart(const std::string& title, const std::string& script) {
  const auto meta = [](const std::string& attributes) { return "<meta" + attributes + ">\n"; };
  return element("head",
                 "\n" + meta(attribute("charset", "utf-8")) +
                     meta(attribute("http-equiv", "Content-Security-Policy") +
                          attribute("content", contentPolicy(pageStyle, script))) +
                     meta(attribute("name", "viewport") +
                          attribute("content", "width=device-width, initial-scale=1")) +
                     meta(attribute("name", "referrer") + attribute("content", "no-referrer")) +
                     meta(attribute("name", "color-scheme") + attribute("content", "light dark")) +
                     element("title", xmlText(title)) + element("style", pageStyle));
}

std::string documentOf(const std::string& title, const std::string& script,
                       const std::string& body) {
  return "<!DOCTYPE html>\n" +
         element("html", attribute("lang", "en"),
                 "\n" + headPart(title, script) + element("body", "\n" + body));
}

// What the script steps through, the script, and a word for those without.
std::string runData(const Network& net, const Property& property, const Run& run,
                    const Replay& replay, const Look& look) {
  return element("noscript", element("p",
                                     "Scripts are off: this page does not step. The table has "
                                     "all states.")) +
         dataBlock("run-data", jsonText(statesJson(net, property, run, replay, look.all))) +
         element("script", pageScript);
}

const char* const statePart =
    "<section id=\"state\" aria-labelledby=\"state-heading\">\n"
    "<h2 id=\"state-heading\">The state</h2>\n<p id=\"holding\"></p>\n"
    "<div class=\"wide\"><table id=\"processes\"></table></div>\n</section>\n";

std::string split(const std::string& left, const std::string& right) {
  return element("div", attribute("class", "split"), "\n" + left + right);
}

std::string runParts(const Network& net, const Property& property, const Run& run,
                     const Replay& replay, const Look& look) {
  return lanesPart(net, property, run, look) + split(networkPart(net, look), statePart) +
         tablePart(net, property, run, replay);
}

std::string headerPart(const Network& net, const std::string& kind, const std::string& verdict) {
  std::istringstream lines(verdict);
  std::string html = element("h1", xmlText(net.title));
  std::string type = "verdict " + kind;
  for (std::string line; std::getline(lines, line); type = "note")
    html += element("p", attribute("class", type), xmlText(line));
  return element("header", "\n" + html);
}

std::string nameOf(const Network& net, const std::string& kind) {
  return (kind.empty() ? "a run" : kind) + ": " + net.title;
}

std::string withRun(const Network& net, const Property& property, const Run& run,
                    const std::string& kind, const std::string& verdict, const Look& look) {
  const Replay replay = replayed(net, property, run);
  std::string parts = runParts(net, property, run, replay, look);
  if (!asksNothing(property)) parts = questionPart(net, property, &replay.states[run.goal]) + parts;
  return documentOf(nameOf(net, kind), pageScript,
                    headerPart(net, kind, verdict) + element("main", "\n" + parts) +
                        runData(net, property, run, replay, look));
}

}  // namespace

std::string runHtml(const Network& net, const Property& property, const Run& run,
                    const Look& look) {
  const std::size_t steps = run.steps.size();
  return withRun(
      net, property, run, "",
      "a run of " + std::to_string(steps) + (steps == 1 ? " transition" : " transitions"), look);
}

std::string answerHtml(const Network& net, const Property& property, const Answer& answer,
                       const Look& look) {
  const std::string kind = kindName(answer.kind);
  if (answer.run) return withRun(net, property, *answer.run, kind, headline(answer), look);
  std::string parts = questionPart(net, property, nullptr);
  if (answer.certificate) parts += invariantPart(net, *answer.certificate);
  return documentOf(nameOf(net, kind), "",
                    headerPart(net, kind, headline(answer)) +
                        element("main", "\n" + parts + networkPart(net, look)));
}

}  // namespace tpn
