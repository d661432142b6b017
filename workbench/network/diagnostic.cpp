#include "workbench/network/diagnostic.hpp"

#include <algorithm>
#include <cstddef>
#include <nlohmann/json.hpp>

#include "workbench/base/json.hpp"
#include "workbench/base/printable.hpp"

namespace tpn {

namespace {

bool isError(const Diagnostic& d) { return d.severity == Severity::error; }

std::string severityName(const Diagnostic& d) { return isError(d) ? "error" : "warning"; }

Json toJson(const Diagnostic& d) {
  Json object{{"file", d.file}};
  if (d.line > 0) object["line"] = d.line;
  if (d.line > 0 && d.column > 0) object["column"] = d.column;
  object["severity"] = severityName(d);
  object["id"] = d.id;
  object["message"] = d.message;
  return object;
}

// Does a character begin here? Of UTF-8.
bool begins(char c) { return (static_cast<unsigned char>(c) & 0xc0U) != 0x80; }

std::size_t characters(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), begins));
}

// Two lines: the source, of a long one what is about the column, and a caret.
std::string shownSource(std::string source, int column) {
  constexpr std::size_t mostBefore = 48;
  constexpr std::size_t mostBehind = 32;
  std::replace(source.begin(), source.end(), '\t', ' ');
  const std::size_t at = std::min(static_cast<std::size_t>(std::max(column, 1)) - 1, source.size());
  std::string before = source.substr(0, at);
  std::string behind = source.substr(at);
  if (before.size() > mostBefore) before = "..." + before.substr(before.size() - mostBefore);
  if (behind.size() > mostBehind) behind = behind.substr(0, mostBehind) + "...";
  before = printable(before);
  return "  " + before + printable(behind) + "\n  " + std::string(characters(before), ' ') + "^";
}

}  // namespace

bool hasErrors(const Diagnostics& diagnostics) {
  return std::any_of(diagnostics.begin(), diagnostics.end(), isError);
}

std::string text(const Diagnostic& d) {
  std::string place = d.file;
  if (d.line > 0) place += ":" + std::to_string(d.line);
  if (d.line > 0 && d.column > 0) place += ":" + std::to_string(d.column);
  const std::string said =
      printable(place + ": " + severityName(d) + ": " + d.message + " [" + d.id + "]");
  return d.source.empty() ? said : said + "\n" + shownSource(d.source, d.column);
}

std::string diagnosticsJson(const Diagnostics& diagnostics) {
  const auto errors = std::count_if(diagnostics.begin(), diagnostics.end(), isError);
  Json list = Json::array();
  for (const Diagnostic& d : diagnostics) list.push_back(toJson(d));
  const Json all{{"errors", errors},
                 {"warnings", static_cast<std::ptrdiff_t>(diagnostics.size()) - errors},
                 {"diagnostics", list}};
  return jsonText(all);
}

}  // namespace tpn
