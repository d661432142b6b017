// The elements that a picture of a run is made of, and how they look. Coordinates are pixels, and
// `more` is further attributes. Foreign text is escaped.

#pragma once

#include <string>

#include "workbench/views/question.hpp"

namespace tpn {

extern const char* const svgStyle;  // the classes of texts and lines

std::string attribute(const std::string& name, const std::string& value);
std::string attribute(const std::string& name, int value);

std::string box(int x, int y, int width, int height, const std::string& more);
std::string stroke(int x1, int y1, int x2, int y2, const std::string& more);
std::string label(int x, int y, const std::string& type, const std::string& text,
                  const std::string& more = "");

// A line with the parts of it marked that held.
std::string label(int x, int y, const std::string& type, const QuestionLine& line);

// What a browser shows under the pointer.
std::string hint(const std::string& text);

}  // namespace tpn
