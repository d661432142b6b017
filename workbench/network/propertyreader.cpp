// The property file: tokens in postfix order without separators. Where zervan's scan stands still
// or takes what is not there, the mistake is told and reading goes on as if it had been mended.

#include "workbench/network/propertyreader.hpp"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <set>
#include <system_error>
#include <utility>

#include "workbench/base/textlines.hpp"
#include "workbench/network/lintrules.hpp"
#include "workbench/network/shown.hpp"

namespace tpn {

namespace {

// What begins at a place of the text. The kinds that a property keeps come first, in its order.
struct Token {
  enum Kind { truth, proposition, negated, conjunction, disjunction, temporal, strayE, unknown };
  Kind kind = unknown;
  std::string_view text;
  std::string_view digits;  // of a proposition
};

static_assert(static_cast<int>(Token::disjunction) == static_cast<int>(PropertyItem::disjunction));

PropertyItem itemOf(const Token& token, int number, Place at) {
  PropertyItem item;
  item.kind = static_cast<PropertyItem::Kind>(token.kind);
  item.number = number;
  item.begin = static_cast<std::size_t>(at.column) - 1;
  item.end = item.begin + token.text.size();
  return item;
}

bool startsToken(char c) { return c == 'T' || c == 'p' || c == '&' || c == '+' || c == 'E'; }

std::size_t leadingDigits(std::string_view text) {
  const std::size_t end = text.find_first_not_of("0123456789");
  return end == std::string_view::npos ? text.size() : end;
}

Token propositionToken(std::string_view rest) {
  const bool isNegated = rest.substr(1, 1) == "-";
  const std::size_t sign = isNegated ? 2 : 1;
  const std::size_t digits = leadingDigits(rest.substr(sign));
  return {isNegated ? Token::negated : Token::proposition, rest.substr(0, sign + digits),
          rest.substr(sign, digits)};
}

// Unknown characters in a row are one token; carriage returns are told apart.
Token unknownRun(std::string_view rest) {
  const bool isReturn = rest.front() == '\r';
  std::size_t length = 1;
  while (length < rest.size() && !startsToken(rest[length]) && (rest[length] == '\r') == isReturn)
    ++length;
  return {Token::unknown, rest.substr(0, length), {}};
}

Token tokenAt(std::string_view rest) {
  switch (rest.front()) {
    case 'T':
      return {Token::truth, rest.substr(0, 1), {}};
    case '&':
      return {Token::conjunction, rest.substr(0, 1), {}};
    case '+':
      return {Token::disjunction, rest.substr(0, 1), {}};
    case 'p':
      return propositionToken(rest);
    case 'E':
      if (rest.size() > 1 && std::string_view("GXUFK").find(rest[1]) != std::string_view::npos)
        return {Token::temporal, rest.substr(0, 2), {}};
      return {Token::strayE, rest.substr(0, 1), {}};
    default:
      return unknownRun(rest);
  }
}

std::size_t arity(const Token& token) {
  switch (token.kind) {
    case Token::conjunction:
    case Token::disjunction:
      return 2;
    case Token::temporal:
      return token.text == "EU" ? 2 : 1;
    default:
      return 0;
  }
}

class PropertyReader {
 public:
  PropertyReader(const Line& line, Report& report) : line_(line), report_(report) {}

  Property read();

 private:
  void take(const Token& token, Place at);
  void takeProposition(const Token& token, Place at);
  void takeOperands(const Token& token, Place at);

  const Line& line_;
  Report& report_;
  Property property_;
  std::size_t operands_ = 0;  // on the stack
};

Property PropertyReader::read() {
  property_.line = line_.number;
  property_.text = line_.text;
  for (std::size_t at = 0; at < line_.text.size();) {
    const Token token = tokenAt(line_.text.substr(at));
    take(token, {line_.number, static_cast<int>(at) + 1});
    at += token.text.size();
  }
  if (operands_ > 1)
    report_.add(
        Rule::operandsLeft, {line_.number, static_cast<int>(line_.text.size()) + 1},
        std::to_string(operands_) + " operands are left and no operator joins them; zervan aborts");
  return std::move(property_);
}

void PropertyReader::take(const Token& token, Place at) {
  switch (token.kind) {
    case Token::unknown:
      if (token.text.front() == '\r')
        report_.add(Rule::propertyCarriageReturn, at,
                    "carriage return; zervan waits for ever, save the file with Unix line ends");
      else
        report_.add(
            Rule::unknownCharacter, at,
            inQuotes(token.text) + " is nothing that a property holds; zervan waits for ever");
      return;
    case Token::strayE:
      report_.add(Rule::unknownOperator, at, "\"E\" begins no operator here; zervan skips it");
      return;
    case Token::temporal:
      report_.add(Rule::temporalOperator, at,
                  "temporal operator " + inQuotes(token.text) +
                      ": zervan always answers no; write the state alone");
      break;
    case Token::proposition:
    case Token::negated:
      takeProposition(token, at);
      break;
    default:
      property_.items.push_back(itemOf(token, 0, at));
  }
  takeOperands(token, at);
}

void PropertyReader::takeProposition(const Token& token, Place at) {
  int number = 0;
  const char* end = token.digits.data() + token.digits.size();
  const auto failure = std::from_chars(token.digits.data(), end, number).ec;
  if (token.digits.empty())
    report_.add(Rule::propositionWithoutNumber, at,
                inQuotes(token.text) + " has no number; zervan takes 0");
  else if (failure != std::errc())
    report_.add(Rule::propositionTooLarge, at,
                inQuotes(token.text) + " does not fit into 32 bits; zervan takes another number");
  property_.items.push_back(itemOf(token, number, at));
}

void PropertyReader::takeOperands(const Token& token, Place at) {
  const std::size_t needed = arity(token);
  if (operands_ < needed)
    report_.add(Rule::operandMissing, at,
                inQuotes(token.text) + " takes " + (needed == 1 ? "an operand" : "two operands") +
                    ", and there " + (operands_ == 0 ? "is none" : "is only one"));
  operands_ -= std::min(operands_, needed);
  ++operands_;
}

// Blanks and carriage returns alone: the property is likely to follow.
bool holdsNothing(const Line& line) { return words(line).empty(); }

}  // namespace

bool isAllPostfix(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const Token token = tokenAt(text.substr(at));
    if (token.kind == Token::unknown || token.kind == Token::strayE) return false;
    at += token.text.size();
  }
  return true;
}

std::optional<Property> readProperty(const std::string& file, const std::string& text,
                                     Diagnostics& diagnostics) {
  Report report(file, diagnostics);
  const std::vector<Line> lines = nonEmptyLines(text);
  Property property;
  std::size_t i = 0;
  while (i < lines.size() && holdsNothing(lines[i])) PropertyReader(lines[i++], report).read();
  if (i == lines.size()) {
    report.add(Rule::propertyMissing, endOf(text),
               "the file holds no property; zervan waits for ever");
    return std::nullopt;
  }
  property = PropertyReader(lines[i], report).read();
  if (++i < lines.size() && isAllPostfix(lines[i].text))
    report.add(Rule::propertyGoesOn, {lines[i].number, 1},
               "looks like more of the property; only the first line that is not empty is read");
  if (report.hasErrors()) return std::nullopt;
  return property;
}

void lintTogether(const Network& net, const std::string& propertyFile, const Property& property,
                  Diagnostics& diagnostics) {
  Report report(propertyFile, diagnostics);
  const std::set<int> known = propositions(net);
  std::set<int> told;
  for (const PropertyItem& item : property.items) {
    const bool isProposition =
        item.kind == PropertyItem::proposition || item.kind == PropertyItem::negated;
    if (isProposition && known.count(item.number) == 0 && told.insert(item.number).second)
      report.add(Rule::propositionUnknown, {property.line, static_cast<int>(item.begin) + 1},
                 "proposition " + std::to_string(item.number) +
                     andName(propositionName({}, item.number), propositionName(net, item.number)) +
                     " labels no location of the network; it is false everywhere");
  }
}

}  // namespace tpn
