// What the strict readers make of a text, and a small network to damage.

#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/workbench/network/lintinvariants.hpp"
#include "workbench/network/propertyreader.hpp"
#include "workbench/network/strictread.hpp"

using Ids = std::vector<std::pair<int, std::string>>;  // (line, id)

struct Found {
  std::optional<tpn::Network> network;
  std::optional<tpn::Property> property;
  tpn::Diagnostics diagnostics;

  Ids ids() const {
    Ids list;
    for (const tpn::Diagnostic& d : diagnostics) list.emplace_back(d.line, d.id);
    return list;
  }
};

inline Found inNetwork(const std::string& text) {
  Found found;
  found.network = tpn::readNetwork("net", text, found.diagnostics);
  assertInvariants(text, found.diagnostics, found.network.has_value());
  return found;
}

inline Found inProperty(const std::string& text) {
  Found found;
  found.property = tpn::readProperty("phi", text, found.diagnostics);
  assertInvariants(text, found.diagnostics, found.property.has_value());
  return found;
}

inline std::string replaced(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return text.replace(at, from.size(), to);
}

inline const std::string lamp =
    "lamp\n"
    "transitions\n"
    "1 0 3\n"
    "2 0 -1\n"
    "endtran\n"  // line 5
    "process\n"
    "1 0 1\n"
    "2 1 0\n"
    "valuation\n"
    "1 4 5\n"  // line 10
    "endval\n"
    "end\n"
    "end\n";

inline std::string lampWith(const std::string& from, const std::string& to) {
  return replaced(lamp, from, to);
}
