#include "workbench/network/diagnostic.hpp"

#include <algorithm>
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

}  // namespace

bool hasErrors(const Diagnostics& diagnostics) {
  return std::any_of(diagnostics.begin(), diagnostics.end(), isError);
}

std::string text(const Diagnostic& d) {
  std::string place = d.file;
  if (d.line > 0) place += ":" + std::to_string(d.line);
  if (d.line > 0 && d.column > 0) place += ":" + std::to_string(d.column);
  return printable(place + ": " + severityName(d) + ": " + d.message + " [" + d.id + "]");
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
