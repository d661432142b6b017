// The files of tests/workbench/network/lint: one a rule, ID.tpn or ID.property.tpn, with just that
// mistake, and `expected`, the line that each gives.

#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <ostream>
#include <string>

#include "workbench/encoding/lintbound.hpp"
#include "workbench/network/lintrules.hpp"
#include "workbench/network/propertyreader.hpp"
#include "workbench/network/questionreader.hpp"
#include "workbench/network/strictread.hpp"

namespace tpn {
inline void PrintTo(const RuleInfo& rule, std::ostream* out) { *out << rule.id; }
}  // namespace tpn

inline std::string contents(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.good()) << path;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline const std::filesystem::path lintFolder =
    std::filesystem::path(ZERVAN_SOURCE_DIR) / "tests" / "workbench" / "network" / "lint";

inline bool existsInLintFolder(const std::string& name) {
  return std::filesystem::exists(lintFolder / name);
}

// What the rule's files give: the network, then the property, then both together, then the bound.
inline tpn::Diagnostics diagnosticsOf(const std::string& id) {
  static const std::map<std::string, int> bounds{
      {"bound-too-small", 0}, {"variables-fold", 50000}, {"too-many-variables", 100000}};
  tpn::Diagnostics all;
  std::optional<tpn::Network> net;
  std::optional<tpn::Property> property;
  const std::string netFile = id + ".tpn";
  const std::string propertyFile = id + ".property.tpn";
  if (existsInLintFolder(netFile))
    net = tpn::readNetwork(netFile, contents(lintFolder / netFile), all);
  const tpn::Network* known = net ? &*net : nullptr;
  if (existsInLintFolder(propertyFile))
    property = tpn::readQuestion(propertyFile, contents(lintFolder / propertyFile), known, all);
  if (net && property) tpn::lintTogether(*net, propertyFile, *property, all);
  if (property) tpn::lintNotation(propertyFile, *property, all);
  const auto bound = bounds.find(id);
  if (net && bound != bounds.end()) tpn::lintBound(*net, netFile, bound->second, all);
  return all;
}
