// The line that repeats what was asked for, as it was written, and says what became of it: the same
// under a run and where there is none. It is folded where it is long.

#pragma once

#include <string>
#include <vector>

#include "workbench/network/property.hpp"
#include "workbench/views/question.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

// "goal: committed && B.aborted is never reached"; lines. Below parts that held stands what marks
// them, unless colour does.
std::string goalLine(const QuestionLine& question, const std::string& outcome,
                     const Look& look = {});
std::string goalLine(const Property& property, const std::string& outcome, const Look& look = {});

// A heading, and lines that are indented to its width.
std::string indented(const std::string& heading, const std::vector<std::string>& lines);

}  // namespace tpn
