// Why a net is refused: the catalogue of what the readers of .net and PNML say. docs/nets.md has a
// row for each, tests/workbench/nets/refused a file that has just it.

#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "workbench/base/textlines.hpp"
#include "workbench/network/diagnostic.hpp"
#include "workbench/network/lintrules.hpp"

namespace tpn {

enum class NetRule {
  // What a file cannot be read as.
  syntax,
  nameOpen,
  nameEmpty,
  nameUnknown,
  declaredTwice,
  xmlMalformed,
  xmlDoctype,
  xmlEncoding,
  pnmlElement,
  pnmlMissing,
  pnmlArc,
  pnmlUnit,
  pnmlReference,
  // What there is no network for.
  weight,
  marking,
  inhibitor,
  stopwatch,
  arcKind,
  priority,
  netType,
  intervalOpen,
  intervalEmpty,
  intervalTwice,
  constantTooLarge,
  notWhole,
  // What the file tells of the processes that it was made of.
  processLine,
  processMisfit,
};

struct NetRuleInfo {
  NetRule rule;
  std::string_view id;
};

const std::vector<NetRuleInfo>& netRules();  // in the order of the enumeration

// Appends to the diagnostics of a file, all of them errors, in order of position once it is done.
class NetReport {
 public:
  NetReport(std::string file, Diagnostics& all)
      : file_(std::move(file)), all_(all), first_(all.size()) {}
  ~NetReport();
  NetReport(const NetReport&) = delete;
  NetReport& operator=(const NetReport&) = delete;

  void refuse(NetRule rule, Place at, std::string why);
  bool refused() const { return all_.size() > first_; }

  // For what a net says as network files do, and is complained about in the same words.
  Report asNetworkFile() const { return {file_, all_}; }

 private:
  std::string file_;
  Diagnostics& all_;
  std::size_t first_;
};

}  // namespace tpn
