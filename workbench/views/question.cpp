#include "workbench/views/question.hpp"

#include <algorithm>

#include "workbench/base/printable.hpp"
#include "workbench/base/textwidth.hpp"
#include "workbench/network/account.hpp"
#include "workbench/runs/deadend.hpp"

namespace tpn {

namespace {

// By byte of the property's text.
std::vector<bool> heldBytes(const Network& net, const Property& property, const TimedState& goal) {
  std::vector<bool> held(property.text.size());
  if (!leavesOpen(property)) return held;
  const std::set<int> propositions = propositionsAt(net, goal.locations);
  const bool deadlock = asksDeadlock(property) && isDeadEnd(net, goal);
  for (const std::size_t i : accountItems(net, property, {propositions, goal.locations, deadlock}))
    for (std::size_t at = property.items[i].begin; at < property.items[i].end; ++at)
      held.at(at) = true;
  return held;
}

// Line ends and tabs are blanks like others here.
std::string shown(std::string bytes) {
  for (char& c : bytes)
    if (c == '\n' || c == '\t' || c == '\r') c = ' ';
  return printable(bytes);
}

void append(QuestionLine& line, const std::string& text, bool held) {
  if (text.empty()) return;
  if (line.empty() || line.back().held != held) line.push_back({"", held});
  line.back().text += text;
}

struct Character {
  std::string text;
  bool held;
};

QuestionLine partsOf(const Property& property, const std::vector<bool>& held, std::size_t most) {
  QuestionLine parts;
  const std::size_t shownBytes = std::min(most, held.size());
  for (std::size_t from = 0; from < shownBytes;) {
    std::size_t to = from;
    while (to < shownBytes && held[to] == held[from]) ++to;
    append(parts, shown(property.text.substr(from, to - from)), held[from]);
    from = to;
  }
  if (shownBytes < held.size())
    append(parts, " ... " + std::to_string(held.size() - shownBytes) + " characters more", false);
  return parts;
}

void trim(QuestionLine& line) {
  while (!line.empty() && line.back().text.ends_with(' ')) {
    line.back().text.pop_back();
    if (line.back().text.empty()) line.pop_back();
  }
}

}  // namespace

QuestionLine questionParts(const Network& net, const Property& property, const TimedState& goal,
                           std::size_t most) {
  return partsOf(property, heldBytes(net, property, goal), most);
}

QuestionLine questionParts(const Property& property, std::size_t most) {
  return partsOf(property, std::vector<bool>(property.text.size()), most);
}

std::vector<QuestionLine> foldedQuestion(const QuestionLine& parts, std::size_t width) {
  std::vector<Character> characters;
  for (const QuestionPart& part : parts)
    for (std::string_view rest = part.text; !rest.empty();) {
      const std::string_view one = head(rest, 1);
      characters.push_back({std::string(one), part.held});
      rest.remove_prefix(one.size());
    }
  std::vector<QuestionLine> lines;
  for (std::size_t from = 0; from < characters.size();) {
    std::size_t used = 0;
    std::size_t end = from;    // of what fits
    std::size_t blank = from;  // behind the last blank that does
    while (end < characters.size()) {
      used += displayedWidth(characters[end].text);
      const bool isBlank = characters[end].text == " ";
      if (used > width && end > from && !isBlank) break;
      ++end;
      if (isBlank) blank = end;
    }
    if (end < characters.size() && blank > from) end = blank;
    lines.emplace_back();
    for (; from < end; ++from) append(lines.back(), characters[from].text, characters[from].held);
    trim(lines.back());
  }
  return lines;
}

}  // namespace tpn
