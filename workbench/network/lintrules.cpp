#include "workbench/network/lintrules.hpp"

#include <algorithm>
#include <cassert>
#include <tuple>
#include <utility>

namespace tpn {

namespace {

constexpr Severity error = Severity::error;
constexpr Severity warning = Severity::warning;

const RuleInfo& info(Rule rule) {
  const RuleInfo& found = lintRules().at(static_cast<std::size_t>(rule));
  assert(found.rule == rule);
  return found;
}

void appendEscaped(std::string& text, unsigned char c) {
  constexpr std::string_view digits = "0123456789abcdef";
  if (c >= ' ' && c <= '~') {
    text += static_cast<char>(c);
    return;
  }
  text += "\\x";
  text += digits[c / 16U];
  text += digits[c % 16U];
}

}  // namespace

const std::vector<RuleInfo>& lintRules() {
  static const std::vector<RuleInfo> rules{
      {Rule::endsEarly, "ends-early", error},
      {Rule::lastLineOpen, "last-line-open", error},
      {Rule::titleMissing, "title-missing", error},
      {Rule::keywordMissing, "keyword-missing", error},
      {Rule::keywordMisspelt, "keyword-misspelt", error},
      {Rule::keywordIndented, "keyword-indented", error},
      {Rule::keywordTail, "keyword-tail", warning},
      {Rule::lineBlank, "line-blank", error},
      {Rule::endTooEarly, "end-too-early", error},
      {Rule::afterEnd, "after-end", warning},
      {Rule::carriageReturn, "carriage-return", warning},
      {Rule::fieldMissing, "field-missing", error},
      {Rule::fieldExtra, "field-extra", warning},
      {Rule::notANumber, "not-a-number", error},
      {Rule::numberRange, "number-range", error},
      {Rule::transitionNumber, "transition-number", error},
      {Rule::transitionTwice, "transition-twice", error},
      {Rule::transitionUndeclared, "transition-undeclared", error},
      {Rule::transitionUnused, "transition-unused", error},
      {Rule::moveTwice, "move-twice", error},
      {Rule::timeNegative, "time-negative", error},
      {Rule::timeTooLarge, "time-too-large", error},
      {Rule::intervalEmpty, "interval-empty", warning},
      {Rule::earliestTooLate, "earliest-too-late", warning},
      {Rule::locationNegative, "location-negative", error},
      {Rule::locationZero, "location-zero", error},
      {Rule::locationAlias, "location-alias", warning},
      {Rule::locationGap, "location-gap", warning},
      {Rule::labelUnknownLocation, "label-unknown-location", error},
      {Rule::propositionNegative, "proposition-negative", error},
      {Rule::nameLine, "name-line", error},
      {Rule::nameMalformed, "name-malformed", error},
      {Rule::nameUnknown, "name-unknown", error},
      {Rule::nameTwice, "name-twice", error},
      {Rule::propertyMissing, "property-missing", error},
      {Rule::propertyCarriageReturn, "property-carriage-return", error},
      {Rule::unknownCharacter, "unknown-character", error},
      {Rule::unknownOperator, "unknown-operator", error},
      {Rule::propositionWithoutNumber, "proposition-without-number", error},
      {Rule::propositionTooLarge, "proposition-too-large", error},
      {Rule::operandMissing, "operand-missing", error},
      {Rule::operandsLeft, "operands-left", error},
      {Rule::temporalOperator, "temporal-operator", error},
      {Rule::propertyGoesOn, "property-goes-on", warning},
      {Rule::propositionUnknown, "proposition-unknown", warning},
      {Rule::propertyInfix, "property-infix", warning},
      {Rule::infixMalformed, "infix-malformed", error},
      {Rule::infixUnknown, "infix-unknown", error},
      {Rule::boundTooSmall, "bound-too-small", error},
      {Rule::tooManyVariables, "too-many-variables", error},
      {Rule::variablesFold, "variables-fold", error},
  };
  return rules;
}

Report::~Report() {
  all_.insert(all_.end(), std::make_move_iterator(found_.begin()),
              std::make_move_iterator(found_.end()));
  const auto other = [this](const Diagnostic& d) { return d.file != file_; };
  const auto same = std::find_if(all_.rbegin(), all_.rend(), other).base();
  std::stable_sort(same, all_.end(), [](const Diagnostic& a, const Diagnostic& b) {
    return std::tie(a.line, a.column) < std::tie(b.line, b.column);
  });
}

void Report::add(Rule rule, Place at, std::string message, std::string source) {
  const RuleInfo& known = info(rule);
  found_.push_back({file_, at.line, at.column, known.severity, std::string(known.id),
                    std::move(message), std::move(source)});
}

std::string inQuotes(std::string_view piece) {
  constexpr std::size_t most = 24;
  std::string text = "\"";
  for (const char c : piece.substr(0, most)) appendEscaped(text, static_cast<unsigned char>(c));
  return text + (piece.size() > most ? "...\"" : "\"");
}

}  // namespace tpn
