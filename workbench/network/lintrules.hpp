// The catalogue of mistakes: every diagnostic of the readers is one of these. docs/lint.md tells of
// each what is wrong, what zervan would do and how to mend it; tests/workbench/network/lint holds a
// file that has just it.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "workbench/base/textlines.hpp"
#include "workbench/network/diagnostic.hpp"

namespace tpn {

enum class Rule {
  // The network file: its lines and sections.
  endsEarly,
  lastLineOpen,
  titleMissing,
  keywordMissing,
  keywordMisspelt,
  keywordIndented,
  keywordTail,
  lineBlank,
  endTooEarly,
  afterEnd,
  carriageReturn,
  // Its numbers.
  fieldMissing,
  fieldExtra,
  notANumber,
  numberRange,
  // What they say.
  transitionNumber,
  transitionTwice,
  transitionUndeclared,
  transitionUnused,
  moveTwice,
  timeNegative,
  timeTooLarge,
  intervalEmpty,
  earliestTooLate,
  locationNegative,
  locationZero,
  locationAlias,
  locationGap,
  labelUnknownLocation,
  propositionNegative,
  // Names, behind the last "end".
  nameLine,
  nameMalformed,
  nameUnknown,
  nameTwice,
  // The property file.
  propertyMissing,
  propertyCarriageReturn,
  unknownCharacter,
  unknownOperator,
  propositionWithoutNumber,
  propositionTooLarge,
  operandMissing,
  operandsLeft,
  temporalOperator,
  propertyGoesOn,
  propositionUnknown,
  propertyInfix,
  infixMalformed,
  infixUnknown,
  // A path length.
  boundTooSmall,
  tooManyVariables,
  variablesFold,
};

struct RuleInfo {
  Rule rule;
  std::string_view id;
  Severity severity;
};

const std::vector<RuleInfo>& lintRules();  // in the order of the enumeration

// Collects the diagnostics of one file and appends them when it is done, in order of position among
// those of the same file that came just before.
class Report {
 public:
  Report(std::string file, Diagnostics& all) : file_(std::move(file)), all_(all) {}
  ~Report();
  Report(const Report&) = delete;
  Report& operator=(const Report&) = delete;

  // `source`: as in a diagnostic.
  void add(Rule rule, Place at, std::string message, std::string source = "");
  bool hasErrors() const { return tpn::hasErrors(found_); }

 private:
  std::string file_;
  Diagnostics& all_;
  Diagnostics found_;
};

// A piece of a file as it may stand in a message: in quotes, cut where it is long, bytes that are
// no printable ASCII as \xNN.
std::string inQuotes(std::string_view piece);

}  // namespace tpn
