#include "workbench/command/findings.hpp"

#include <map>

#include "workbench/base/printable.hpp"

namespace tpn {

namespace {

struct Rest {
  std::size_t findings = 0;
  std::size_t errors = 0;
};

std::string restText(const std::string& file, const Rest& rest) {
  std::string text = printable(file) + ": " + std::to_string(rest.findings) + " more finding" +
                     (rest.findings == 1 ? "" : "s");
  if (rest.errors > 0) text += ", " + std::to_string(rest.errors) + " of them errors";
  return text + "; tpn lint --all tells them\n";
}

}  // namespace

std::string findingsText(const Diagnostics& diagnostics, std::size_t mostOfAFile) {
  std::map<std::string, std::size_t> told;
  std::map<std::string, Rest> rests;
  std::string all;
  for (const Diagnostic& d : diagnostics) {
    if (told[d.file]++ < mostOfAFile) {
      all += text(d) + "\n";
      continue;
    }
    ++rests[d.file].findings;
    if (d.severity == Severity::error) ++rests[d.file].errors;
  }
  for (const auto& [file, rest] : rests) all += restText(file, rest);
  return all;
}

}  // namespace tpn
