#include "workbench/views/goalline.hpp"

#include <limits>

#include "workbench/base/textwidth.hpp"
#include "workbench/views/colours.hpp"

namespace tpn {

namespace {

std::vector<std::string> marked(const QuestionLine& line, bool colour) {
  std::string text;
  std::string marks;
  for (const QuestionPart& part : line) {
    text += coloured(part.text, part.held ? Ink::held : Ink::plain, colour);
    marks += std::string(displayedWidth(part.text), part.held ? '~' : ' ');
  }
  marks.erase(marks.find_last_not_of(' ') + 1);
  return marks.empty() || colour ? std::vector{text} : std::vector{text, marks};
}

}  // namespace

std::string goalLine(const QuestionLine& question, const std::string& outcome, const Look& look) {
  const std::string heading = "goal:";
  QuestionLine sentence = question;
  if (!outcome.empty()) sentence.push_back({" " + outcome, false});
  std::vector<std::string> lines;
  for (const QuestionLine& line : foldedQuestion(sentence, look.width - heading.size() - 1))
    for (const std::string& text : marked(line, look.colour)) lines.push_back(text);
  return indented(heading, lines);
}

std::string goalLine(const Property& property, const std::string& outcome, const Look& look) {
  const std::size_t most = look.all ? std::numeric_limits<std::size_t>::max() : mostOfQuestion;
  return goalLine(questionParts(property, most), outcome, look);
}

std::string indented(const std::string& heading, const std::vector<std::string>& lines) {
  std::string result;
  for (const std::string& line : lines)
    result += (result.empty() ? heading : std::string(heading.size(), ' ')) + " " + line + "\n";
  return result;
}

}  // namespace tpn
