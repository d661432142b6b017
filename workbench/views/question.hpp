// A question as it was written, with the parts of it that held at the goal.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"
#include "workbench/runs/run.hpp"

namespace tpn {

struct QuestionPart {
  std::string text;  // printable
  bool held = false;
};
using QuestionLine = std::vector<QuestionPart>;

// Nothing is marked where all of it has to hold. What is longer than `most` bytes, as only programs
// write it, ends with how much more there is.
QuestionLine questionParts(const Network& net, const Property& property, const TimedState& goal,
                           std::size_t most);
QuestionLine questionParts(const Property& property, std::size_t most);  // nothing held
constexpr std::size_t mostOfQuestion = 4000;

// Folded at blanks, or where it has to be, into lines of up to so many columns.
std::vector<QuestionLine> foldedQuestion(const QuestionLine& parts, std::size_t width);

}  // namespace tpn
