// The question: its text with marks, and what held.

#include <algorithm>
#include <utility>
#include <vector>

#include "workbench/network/account.hpp"
#include "workbench/runs/deadend.hpp"
#include "workbench/views/page/html.hpp"
#include "workbench/views/page/parts.hpp"
#include "workbench/views/svgelements.hpp"
#include "workbench/views/viewparts.hpp"

namespace tpn {

namespace {

// Parts of a text: from .. to, not included.
using Spans = std::vector<std::pair<std::size_t, std::size_t>>;

// Those of the items that are enough, in order, without those inside others.
Spans heldSpans(const Network& net, const Property& property, const TimedState& goal) {
  const std::set<int> propositions = propositionsAt(net, goal.locations);
  const bool deadlock = asksDeadlock(property) && isDeadEnd(net, goal);
  Spans spans;
  for (const std::size_t i : accountItems(net, property, {propositions, goal.locations, deadlock}))
    spans.emplace_back(property.items[i].begin, property.items[i].end);
  std::sort(spans.begin(), spans.end(), [](const auto& a, const auto& b) {
    return a.first != b.first ? a.first < b.first : a.second > b.second;
  });
  Spans outermost;
  for (const auto& [from, to] : spans)
    if (from < to && to <= property.text.size() &&
        (outermost.empty() || from >= outermost.back().second))
      outermost.emplace_back(from, to);
  return outermost;
}

std::string markedText(const std::string& text, const Spans& spans) {
  std::string html;
  std::size_t done = 0;
  for (const auto& [from, to] : spans) {
    html += xmlText(text.substr(done, from - done)) + "<mark>" +
            xmlText(text.substr(from, to - from)) + "</mark>";
    done = to;
  }
  return html + xmlText(text.substr(done));
}

}  // namespace

std::string questionPart(const Network& net, const Property& property, const TimedState* goal) {
  constexpr std::size_t longText = 600;
  const Spans held = goal == nullptr ? Spans() : heldSpans(net, property, *goal);
  const std::string code = element("p", attribute("class", "question"),
                                   "<code>" + markedText(property.text, held) + "</code>");
  std::string content =
      property.text.size() <= longText
          ? code
          : element("p", "Its " + std::to_string(property.text.size()) + " characters begin " +
                             "<code>" + xmlText(cut(property.text, 80)) + "</code>") +
                folded("the whole question", code);
  const std::vector<std::string> facts =
      goal == nullptr ? std::vector<std::string>() : goalAccount(net, property, *goal);
  if (!facts.empty())
    content += element("p", "What held: <mark>" + xmlText(joined(facts, ", ")) + "</mark>");
  return section("question", "The question", content);
}

}  // namespace tpn
