#include "workbench/campaign/htmlpage.hpp"

#include <algorithm>
#include <array>
#include <cstdio>

#include "workbench/campaign/plots.hpp"
#include "workbench/campaign/tables.hpp"
#include "workbench/views/page/html.hpp"
#include "workbench/views/page/policy.hpp"
#include "workbench/views/svgelements.hpp"
#include "workbench/views/viewparts.hpp"

namespace tpn {

namespace {

const char* const pageStyle = R"(
body { font-family: "DejaVu Sans", Verdana, Arial, sans-serif; font-size: 13px; margin: 2em; }
table { border-collapse: collapse; }
th, td { border-bottom: 1px solid #ddd; padding: 2px 10px; text-align: left; }
td.number { text-align: right; }
tr.reachable { background: #fff3e6; }
tr.unreachable { background: #eaf6ee; }
tr.failed, tr.broken, tr.refuted { background: #fde2e2; }
pre { background: #f5f5f5; padding: 1em; }
)";

// With that of the plots, which lose theirs: a page has one style, which its policy names.
std::string style() {
  const std::string plots = svgStyle;
  const std::size_t begin = plots.find('>') + 1;
  return pageStyle + plots.substr(begin, plots.rfind("</style>") - begin);
}

std::string cell(const std::string& text, bool isNumber = false) {
  return std::string(isNumber ? "<td class=\"number\">" : "<td>") + xmlText(text) + "</td>";
}

std::string secondsText(double seconds) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.2f", seconds);
  return text.data();
}

// Line by line: a line end is none of the characters that foreign text may bring.
std::string linesHtml(const std::string& text) {
  std::string html;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    html += xmlText(text.substr(at, end - at)) + "\n";
    at = end + 1;
  }
  return html;
}

std::string rowHtml(const Row& row) {
  const Job& job = row.job;
  return "<tr class=\"" + answerWord(row) + "\">" + cell(std::to_string(job.number), true) +
         cell(job.name) + cell(std::to_string(job.size), true) + cell(sweptText(job)) +
         cell(job.asked) + cell(job.engine) + cell(answerWord(row)) +
         cell(row.transitions < 0 ? "" : std::to_string(row.transitions), true) +
         cell(secondsText(row.seconds), true) + cell(std::to_string(row.memory / 1024), true) +
         cell(row.why) + "</tr>\n";
}

std::string tableHtml(const Collection& c) {
  std::string text = "<table>\n<tr>";
  for (const char* const head : {"job", "network", "size", "swept", "asked", "engine", "answer",
                                 "transitions", "seconds", "MB", "why"})
    text += std::string("<th>") + head + "</th>";
  text += "</tr>\n";
  for (const Row& row : c.rows) text += rowHtml(row);
  return text + "</table>\n";
}

}  // namespace

std::string collectionHtml(const Collection& c) {
  const std::string title = xmlText(c.plan.title.empty() ? "campaign" : c.plan.title);
  return "<!DOCTYPE html>\n<html lang=\"en\">\n" +
         element("head", "\n<meta charset=\"utf-8\">\n<meta" +
                             attribute("http-equiv", "Content-Security-Policy") +
                             attribute("content", contentPolicy(style(), "")) + ">\n" +
                             element("title", title) + element("style", style())) +
         element("body", "\n" + element("h1", title) + element("pre", linesHtml(summary(c))) +
                             inlineSvg(timeOverSize(c)) + inlineSvg(cactus(c)) + tableHtml(c)) +
         "</html>\n";
}

}  // namespace tpn
