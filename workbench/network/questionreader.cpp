#include "workbench/network/questionreader.hpp"

#include <algorithm>
#include <string_view>
#include <vector>

#include "workbench/base/printable.hpp"
#include "workbench/base/textlines.hpp"
#include "workbench/network/infix.hpp"
#include "workbench/network/lintrules.hpp"
#include "workbench/network/propertyreader.hpp"

namespace tpn {

namespace {

// The line that the property stands on, if there is one.
const Line* propertyLine(const std::vector<Line>& lines) {
  const auto isBlank = [](const Line& line) { return words(line).empty(); };
  const auto found = std::find_if_not(lines.begin(), lines.end(), isBlank);
  return found == lines.end() ? nullptr : &*found;
}

// Nothing but the letters of postfix and blanks, and no operator of infix among blanks.
bool looksLikePostfix(const Line& line) {
  const std::vector<Word> all = words(line);
  return std::all_of(all.begin(), all.end(), [](const Word& word) {
    return word.text != "&&" &&
           word.text.find_first_not_of("TpEGXUFK0123456789&+-") == std::string_view::npos;
  });
}

// Is it in order as infix? Without the network: can it be, and is it more than a name?
bool isInfix(const Line& line, const Network* net) {
  try {
    if (net == nullptr) return parseExpression(line.text).nodes.size() > 1;
    readInfix(line.text, *net);
    return true;
  } catch (const ExpressionError&) {
    return false;
  }
}

void tell(Rule rule, const ExpressionError& error, const Line& line, Report& report) {
  report.add(rule, {line.number, static_cast<int>(error.at) + 1}, printable(error.what()),
             std::string(line.text));
}

std::optional<Property> readInfixLine(const Line& line, const Network* net, Report& report) {
  try {
    const Expression tree = parseExpression(line.text);
    if (net == nullptr) return std::nullopt;
  } catch (const ExpressionError& error) {
    tell(Rule::infixMalformed, error, line, report);
    return std::nullopt;
  }
  try {
    Property property = readInfix(line.text, *net);
    property.line = line.number;
    return property;
  } catch (const ExpressionError& error) {
    tell(Rule::infixUnknown, error, line, report);
    return std::nullopt;
  }
}

}  // namespace

std::optional<Property> readQuestion(const std::string& file, const std::string& text,
                                     const Network* net, Diagnostics& diagnostics) {
  Diagnostics ofPostfix;
  std::optional<Property> postfix = readProperty(file, text, ofPostfix);
  const std::vector<Line> lines = nonEmptyLines(text);
  const Line* const line = propertyLine(lines);
  if (postfix || line == nullptr || (looksLikePostfix(*line) && !isInfix(*line, net))) {
    diagnostics.insert(diagnostics.end(), ofPostfix.begin(), ofPostfix.end());
    return postfix;
  }
  Report report(file, diagnostics);
  return readInfixLine(*line, net, report);
}

std::optional<Property> readGivenQuestion(const std::string& text, const Network* net,
                                          Diagnostics& diagnostics) {
  Report report(commandLine, diagnostics);
  std::string line = text;
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  return readInfixLine({line, 1, false}, net, report);
}

void lintNotation(const std::string& file, const Property& property, Diagnostics& diagnostics) {
  if (!property.infix) return;
  Report(file, diagnostics)
      .add(Rule::propertyInfix, {property.line, 1},
           "infix notation: zervan reads postfix only, which tpn convert writes");
}

}  // namespace tpn
