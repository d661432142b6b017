#include "workbench/views/svgelements.hpp"

#include "workbench/views/viewparts.hpp"

namespace tpn {

std::string attribute(const std::string& name, const std::string& value) {
  return " " + name + "=\"" + value + "\"";
}
std::string attribute(const std::string& name, int value) {
  return attribute(name, std::to_string(value));
}

std::string box(int x, int y, int width, int height, const std::string& more) {
  return "<rect" + attribute("x", x) + attribute("y", y) + attribute("width", width) +
         attribute("height", height) + more + "/>\n";
}

std::string stroke(int x1, int y1, int x2, int y2, const std::string& more) {
  return "<line" + attribute("x1", x1) + attribute("y1", y1) + attribute("x2", x2) +
         attribute("y2", y2) + more + "/>\n";
}

std::string label(int x, int y, const std::string& type, const std::string& text,
                  const std::string& more) {
  return "<text" + attribute("x", x) + attribute("y", y) + attribute("class", type) + more + ">" +
         xmlText(text) + "</text>\n";
}

std::string label(int x, int y, const std::string& type, const QuestionLine& line) {
  std::string inside;
  for (const QuestionPart& part : line)
    inside += part.held ? "<tspan" + attribute("class", "held") + attribute("fill", "#b84a00") +
                              attribute("text-decoration", "underline") + ">" + xmlText(part.text) +
                              "</tspan>"
                        : xmlText(part.text);
  return "<text" + attribute("x", x) + attribute("y", y) + attribute("class", type) + ">" + inside +
         "</text>\n";
}

std::string hint(const std::string& text) { return "<title>" + xmlText(text) + "</title>\n"; }

const char* const svgStyle = R"(<style>
text { font-family: "DejaVu Sans", Verdana, Arial, sans-serif; font-size: 10px; }
.heading { font-size: 15px; font-weight: bold; }
.lane { font-size: 12px; text-anchor: end; }
.place { font-size: 11px; }
.mark { text-anchor: middle; }
.quiet { fill: #666; }
.goal { fill: #b84a00; font-weight: bold; }
.tie { stroke: #222; stroke-width: 2; }
.axis { stroke: #444; stroke-width: 1; fill: none; }
</style>
)";

}  // namespace tpn
