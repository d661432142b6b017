#include "workbench/network/expressionlexer.hpp"

#include <array>
#include <utility>

#include "workbench/network/lintrules.hpp"
#include "workbench/network/names.hpp"

namespace tpn {

namespace {

using Token = ExpressionToken;

constexpr std::array<std::pair<std::string_view, Token::Kind>, 8> symbols{
    {{"(", Token::open},
     {")", Token::close},
     {",", Token::comma},
     {".", Token::dot},
     {"!", Token::negation},
     {"&&", Token::conjunction},
     {"||", Token::disjunction},
     {"->", Token::implication}}};

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

bool isPartCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
         c == '*';
}

Token part(std::string_view text, std::size_t at) {
  Token token{Token::part, at, 0, {}};
  while (at + token.length < text.size() && isPartCharacter(text[at + token.length]))
    ++token.length;
  token.written = {std::string(text.substr(at, token.length)), false, at};
  return token;
}

Token braced(std::string_view text, std::size_t at) {
  const auto read = readName(text.substr(at));
  if (!read) throw ExpressionError(at, "the name that begins here has no end, or none is there");
  return {Token::part, at, read->length, {read->name, true, at}};
}

// What people write who come from elsewhere.
std::string hint(std::string_view rest) {
  if (rest.front() == '&') return "; and is written &&";
  if (rest.front() == '|') return "; or is written ||";
  if (rest.front() == '=') return "; a process in a location is written PROCESS.LOCATION";
  if (rest.front() == '~' || rest.front() == '-') return "; not is written !";
  return "";
}

}  // namespace

ExpressionToken expressionTokenAt(std::string_view text, std::size_t at) {
  while (at < text.size() && isBlank(text[at])) ++at;
  if (at == text.size()) return {Token::end, at, 0, {}};
  const std::string_view rest = text.substr(at);
  for (const auto& [symbol, kind] : symbols)
    if (rest.starts_with(symbol)) return {kind, at, symbol.size(), {}};
  if (rest.front() == '{') return braced(text, at);
  if (isPartCharacter(rest.front())) return part(text, at);
  throw ExpressionError(at, inQuotes(rest.substr(0, 1)) + " begins nothing here" + hint(rest));
}

}  // namespace tpn
