#include "workbench/views/page/html.hpp"

#include "workbench/views/svgelements.hpp"
#include "workbench/views/viewparts.hpp"

namespace tpn {

std::string element(const std::string& name, const std::string& attributes,
                    const std::string& content) {
  return "<" + name + attributes + ">" + content + "</" + name + ">\n";
}
std::string element(const std::string& name, const std::string& content) {
  return element(name, "", content);
}

std::string folded(const std::string& summary, const std::string& content) {
  return element("details", "\n" + element("summary", xmlText(summary)) + content);
}

std::string section(const std::string& id, const std::string& heading, const std::string& content) {
  const std::string title = id + "-heading";
  return element("section", attribute("id", id) + attribute("aria-labelledby", title),
                 "\n" + element("h2", attribute("id", title), xmlText(heading)) + content);
}

std::string dataBlock(const std::string& id, const std::string& json) {
  std::string safe;
  for (const char c : json) {
    if (c == '<' || c == '>')
      safe += c == '<' ? "\\u003c" : "\\u003e";
    else
      safe += c;
  }
  return element("script", attribute("type", "application/json") + attribute("id", id), safe);
}

std::string inlineSvg(const std::string& file) {
  const std::string ending = "</style>\n";
  const std::size_t begin = file.find("<svg");
  std::string svg = begin == std::string::npos ? "" : file.substr(begin);
  for (std::size_t at = svg.find("<style"); at != std::string::npos; at = svg.find("<style", at)) {
    const std::size_t end = svg.find(ending, at);
    svg.erase(at, end == std::string::npos ? end : end + ending.size() - at);
  }
  return svg;
}

}  // namespace tpn
