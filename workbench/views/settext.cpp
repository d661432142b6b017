#include "workbench/views/settext.hpp"

#include <algorithm>
#include <cmath>

#include "workbench/base/textwidth.hpp"
#include "workbench/views/svgelements.hpp"
#include "workbench/views/viewparts.hpp"

namespace tpn {

const char* const setFonts = "DejaVu Sans Mono, Liberation Mono, Menlo, Consolas, monospace";

std::vector<std::string> setLines(const std::string& text, std::size_t columns) {
  const std::string indent = "  ";
  std::vector<std::string> words;
  for (std::size_t from = 0; from <= text.size();) {
    const std::size_t end = std::min(text.find(' ', from), text.size());
    const std::string word = cut(text.substr(from, end - from), columns - indent.size());
    const bool inInterval =
        !words.empty() && words.back().starts_with('[') && words.back().ends_with(',');
    if (inInterval)
      words.back() += " " + word;
    else
      words.push_back(word);
    from = end + 1;
  }
  std::vector<std::string> lines = folded(words, columns - indent.size());
  for (std::size_t i = 1; i < lines.size(); ++i) lines[i] = indent + lines[i];
  return lines;
}

// Of a character to the font's size: 0.602 in DejaVu Sans Mono, 0.6 in most others.
double setWidth(const std::string& text, double fontSize) {
  return static_cast<double>(displayedWidth(text)) * fontSize * 0.602;
}

double setWidth(const std::vector<std::string>& lines, double fontSize) {
  double widest = 0;
  for (const std::string& line : lines) widest = std::max(widest, setWidth(line, fontSize));
  return widest;
}

std::string setText(double x, double y, const std::string& text, double fontSize,
                    const std::string& colour, const std::string& more) {
  // Viewers take blanks that follow each other for one.
  std::string kept;
  for (std::size_t i = 0; i < text.size(); ++i)
    if (text[i] == ' ' && i > 0 && text[i - 1] == ' ')
      kept += "\u00a0";
    else
      kept += text[i];
  return "<text" + attribute("x", decimal(x)) + attribute("y", decimal(y)) +
         attribute("font-size", decimal(fontSize)) + attribute("fill", colour) +
         attribute("textLength", decimal(setWidth(text, fontSize))) +
         attribute("lengthAdjust", "spacingAndGlyphs") + more + ">" + xmlText(kept) + "</text>\n";
}

std::string decimal(double pixels) {
  const auto tenths = std::lround(pixels * 10);
  const std::string sign = tenths < 0 ? "-" : "";
  const auto size = std::labs(tenths);
  const std::string rest = size % 10 == 0 ? "" : "." + std::to_string(size % 10);
  return sign + std::to_string(size / 10) + rest;
}

std::string shifted(double x, double y) {
  return attribute("transform", "translate(" + decimal(x) + " " + decimal(y) + ")");
}

std::string rectangle(double x, double y, double width, double height, const std::string& more) {
  return "<rect" + attribute("x", decimal(x)) + attribute("y", decimal(y)) +
         attribute("width", decimal(width)) + attribute("height", decimal(height)) + more + "/>\n";
}

}  // namespace tpn
