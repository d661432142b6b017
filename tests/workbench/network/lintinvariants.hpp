// What holds of the diagnostics of any bytes at all; for the tests and the fuzzer alike.
//
// (1) There is a value just where there is no error.
// (2) Every diagnostic is one of the catalogue, with its severity.
// (3) Places lie within the file, or just behind its end, and come in order.
// (4) Messages are one line of printable text without a full stop.

#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <string>
#include <tuple>
#include <vector>

#include "workbench/base/printable.hpp"
#include "workbench/network/lintrules.hpp"

inline std::vector<std::size_t> lineLengths(const std::string& text) {
  std::vector<std::size_t> lengths{0};
  for (const char c : text) {
    if (c == '\n')
      lengths.push_back(0);
    else
      ++lengths.back();
  }
  return lengths;
}

inline void assertIsKnown(const tpn::Diagnostic& d) {
  const auto& rules = tpn::lintRules();
  const auto isIt = [&d](const tpn::RuleInfo& rule) { return rule.id == d.id; };
  const auto rule = std::find_if(rules.begin(), rules.end(), isIt);
  assert(rule != rules.end() && rule->severity == d.severity);
}

inline void assertIsOneLine(const std::string& message) {
  assert(!message.empty() && message.back() != '.');
  assert(message == tpn::printable(message));
}

inline void assertInvariants(const std::string& text, const tpn::Diagnostics& found,
                             bool hasValue) {
  assert(hasValue == !tpn::hasErrors(found));
  const std::vector<std::size_t> lengths = lineLengths(text);
  int line = 1;
  int column = 1;
  for (const tpn::Diagnostic& d : found) {
    assertIsKnown(d);
    assertIsOneLine(d.message);
    assert(std::tie(line, column) <= std::tie(d.line, d.column));
    line = d.line;
    column = d.column;
    assert(static_cast<std::size_t>(line) <= lengths.size());
    assert(static_cast<std::size_t>(column) <= lengths[static_cast<std::size_t>(line) - 1] + 1);
  }
}
