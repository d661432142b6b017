#include "workbench/nets/tinalexer.hpp"

#include <algorithm>
#include <array>

namespace tpn {

namespace {

// Longer ones before their beginnings.
constexpr std::array<std::string_view, 14> symbols{"->", "?-", "!-", "[", "]", "(", ")",
                                                   ",",  ":",  "*",  "?", "!", "<", ">"};
constexpr std::array<std::string_view, 5> keywords{"tr", "pl", "lb", "pr", "net"};

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\f' || c == '\v'; }
bool isWordCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || isDigit(c) || c == '_' || c == '\'';
}
bool isSpecial(char c) { return c == '{' || c == '}' || c == '\\'; }

std::size_t wordLength(std::string_view text) {
  const auto end = std::find_if_not(text.begin(), text.end(), isWordCharacter);
  return static_cast<std::size_t>(end - text.begin());
}

template <std::size_t Size>
bool isOneOf(const std::array<std::string_view, Size>& all, std::string_view text) {
  return std::find(all.begin(), all.end(), text) != all.end();
}

}  // namespace

bool TinaToken::isKeyword() const { return kind == word && isOneOf(keywords, text); }

void TinaLexer::skipComment() {
  const std::size_t length = std::min(rest().find('\n'), rest().size());
  comments_.push_back({rest().substr(0, length), line_, length < rest().size()});
  at_ += length;
}

void TinaLexer::skip() {
  for (; at_ < text_.size(); ++at_) {
    if (firstOnLine_ && text_[at_] == '#') skipComment();
    if (at_ == text_.size()) return;
    if (text_[at_] == '\n') {
      ++line_;
      lineBegin_ = at_ + 1;
      firstOnLine_ = true;
    } else if (!isBlank(text_[at_])) {
      return;
    }
  }
}

TinaToken TinaLexer::braced() {
  TinaToken token{TinaToken::braced, {}, "", place(), firstOnLine_};
  const std::size_t begin = at_;
  for (++at_; at_ < text_.size() && text_[at_] != '\n'; ++at_) {
    if (text_[at_] == '}') {
      token.text = text_.substr(begin, ++at_ - begin);
      if (token.name.empty()) report_.refuse(NetRule::nameEmpty, token.at, "a name is empty");
      return token;
    }
    const bool escape = text_[at_] == '\\' && at_ + 1 < text_.size() && isSpecial(text_[at_ + 1]);
    if (escape) ++at_;
    if (!escape && text_[at_] == '{') break;
    token.name += text_[at_];
  }
  report_.refuse(NetRule::nameOpen, token.at,
                 "the brace that opens here is not closed on its line; { and } within a name are "
                 "written \\{ and \\}");
  token.kind = TinaToken::unknown;
  token.text = text_.substr(begin, at_ - begin);
  return token;
}

TinaToken TinaLexer::next() {
  checkpoint_.at(passed_++);
  skip();
  if (at_ == text_.size()) return {TinaToken::end, {}, "", place(), firstOnLine_};
  const bool first = firstOnLine_;
  firstOnLine_ = false;
  if (rest().front() == '{') {
    TinaToken token = braced();
    token.first = first;
    return token;
  }
  TinaToken token{TinaToken::unknown, rest().substr(0, 1), "", place(), first};
  const std::size_t length = wordLength(rest());
  if (length > 0) {
    token.kind = TinaToken::word;
    token.text = rest().substr(0, length);
    token.name = token.text;
  } else {
    const auto found = std::find_if(symbols.begin(), symbols.end(),
                                    [&](std::string_view s) { return rest().starts_with(s); });
    if (found != symbols.end()) {
      token.kind = TinaToken::symbol;
      token.text = *found;
    }
  }
  at_ += token.text.size();
  return token;
}

std::optional<std::int64_t> tinaNumber(std::string_view word) {
  constexpr std::int64_t most = 1'000'000'000'000'000;
  std::int64_t factor = 1;
  if (word.ends_with('K')) factor = 1'000;
  if (word.ends_with('M')) factor = 1'000'000;
  if (factor > 1) word.remove_suffix(1);
  if (word.empty() || !std::all_of(word.begin(), word.end(), isDigit)) return std::nullopt;
  std::int64_t value = 0;
  for (const char digit : word) value = std::min(value * 10 + (digit - '0'), most);
  return std::min(value, most / factor) * factor;
}

std::string tinaName(const std::string& name) {
  if (!name.empty() && wordLength(name) == name.size() && !isOneOf(keywords, name)) return name;
  std::string written = "{";
  for (const char c : name) {
    if (isSpecial(c)) written += '\\';
    written += c;
  }
  return written + "}";
}

}  // namespace tpn
