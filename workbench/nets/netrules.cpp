#include "workbench/nets/netrules.hpp"

#include <algorithm>
#include <cassert>
#include <tuple>

namespace tpn {

const std::vector<NetRuleInfo>& netRules() {
  static const std::vector<NetRuleInfo> rules{
      {NetRule::syntax, "net-syntax"},
      {NetRule::nameOpen, "net-name-open"},
      {NetRule::nameEmpty, "net-name-empty"},
      {NetRule::nameUnknown, "net-name-unknown"},
      {NetRule::declaredTwice, "net-declared-twice"},
      {NetRule::xmlMalformed, "xml-malformed"},
      {NetRule::xmlDoctype, "xml-doctype"},
      {NetRule::xmlEncoding, "xml-encoding"},
      {NetRule::pnmlElement, "pnml-element"},
      {NetRule::pnmlMissing, "pnml-missing"},
      {NetRule::pnmlArc, "pnml-arc"},
      {NetRule::pnmlUnit, "pnml-unit"},
      {NetRule::pnmlReference, "pnml-reference"},
      {NetRule::weight, "net-weight"},
      {NetRule::marking, "net-marking"},
      {NetRule::inhibitor, "net-inhibitor"},
      {NetRule::stopwatch, "net-stopwatch"},
      {NetRule::arcKind, "net-arc-kind"},
      {NetRule::priority, "net-priority"},
      {NetRule::netType, "net-type"},
      {NetRule::intervalOpen, "net-interval-open"},
      {NetRule::intervalEmpty, "net-interval-empty"},
      {NetRule::intervalTwice, "net-interval-twice"},
      {NetRule::constantTooLarge, "net-constant-too-large"},
      {NetRule::notWhole, "net-not-whole"},
      {NetRule::processLine, "net-process-line"},
      {NetRule::processMisfit, "net-process-misfit"},
  };
  return rules;
}

NetReport::~NetReport() {
  std::stable_sort(all_.begin() + static_cast<std::ptrdiff_t>(first_), all_.end(),
                   [](const Diagnostic& a, const Diagnostic& b) {
                     return std::tie(a.line, a.column) < std::tie(b.line, b.column);
                   });
}

void NetReport::refuse(NetRule rule, Place at, std::string why) {
  const NetRuleInfo& known = netRules().at(static_cast<std::size_t>(rule));
  assert(known.rule == rule);
  all_.push_back(
      {file_, at.line, at.column, Severity::error, std::string(known.id), std::move(why)});
}

}  // namespace tpn
