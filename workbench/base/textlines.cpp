#include "workbench/base/textlines.hpp"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <system_error>
#include <utility>

#include "workbench/base/spelling.hpp"

namespace tpn {

namespace {

// Longer keywords before their beginnings.
constexpr std::array<std::pair<Keyword, std::string_view>, 6> keywords{{
    {Keyword::transitions, "transitions"},
    {Keyword::endtran, "endtran"},
    {Keyword::process, "process"},
    {Keyword::valuation, "valuation"},
    {Keyword::endval, "endval"},
    {Keyword::end, "end"},
}};

bool isBlank(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
char lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

std::string_view firstWord(std::string_view text) {
  const auto from = std::find_if_not(text.begin(), text.end(), isBlank);
  const auto to = std::find_if(from, text.end(), isBlank);
  return text.substr(static_cast<std::size_t>(from - text.begin()),
                     static_cast<std::size_t>(to - from));
}

bool startsWithKeyword(std::string_view text, Keyword keyword) {
  const std::string_view whole = name(keyword);
  return text.substr(0, whole.size()) == whole;
}

std::optional<Keyword> exactly(std::string_view text) {
  for (const auto& [keyword, whole] : keywords)
    if (startsWithKeyword(text, keyword)) return keyword;
  return std::nullopt;
}

std::optional<Keyword> nearly(std::string_view word) {
  constexpr std::size_t longest = 16;
  if (word.empty() || word.size() > longest || isDigit(word.front())) return std::nullopt;
  std::string small(word);
  std::transform(small.begin(), small.end(), small.begin(), lower);
  if (const auto keyword = exactly(small)) return keyword;
  for (const auto& [keyword, whole] : keywords)
    if (editDistance(small, whole) <= (whole.size() > 3 ? 2U : 1U)) return keyword;
  return std::nullopt;
}

}  // namespace

std::vector<Line> nonEmptyLines(std::string_view text) {
  std::vector<Line> lines;
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t end = text.find('\n');
    const bool ended = end != std::string_view::npos;
    const std::string_view line = text.substr(0, end);
    if (!line.empty()) lines.push_back({line, number, ended});
    text.remove_prefix(ended ? end + 1 : text.size());
  }
  return lines;
}

Place endOf(std::string_view text) {
  const auto lines = std::count(text.begin(), text.end(), '\n');
  const std::size_t lastEnd = text.rfind('\n');
  const std::size_t lastBegin = lastEnd == std::string_view::npos ? 0 : lastEnd + 1;
  return {static_cast<int>(lines) + 1, static_cast<int>(text.size() - lastBegin) + 1};
}

std::vector<Word> words(const Line& line) {
  std::vector<Word> found;
  for (std::size_t at = 0; at < line.text.size();) {
    const std::string_view word = firstWord(line.text.substr(at));
    if (word.empty()) break;
    const auto begin = static_cast<std::size_t>(word.data() - line.text.data());
    found.push_back({word, static_cast<int>(begin) + 1});
    at = begin + word.size();
  }
  return found;
}

bool isNumber(std::string_view word) {
  if (!word.empty() && (word.front() == '+' || word.front() == '-')) word.remove_prefix(1);
  return !word.empty() && std::all_of(word.begin(), word.end(), isDigit);
}

std::optional<int> value(std::string_view number) {
  if (!number.empty() && number.front() == '+') number.remove_prefix(1);
  int n = 0;
  const auto [end, failure] = std::from_chars(number.data(), number.data() + number.size(), n);
  if (failure != std::errc() || end != number.data() + number.size()) return std::nullopt;
  return n;
}

std::string_view name(Keyword keyword) {
  return keywords.at(static_cast<std::size_t>(keyword)).second;
}

bool beginsWith(const Line& line, Keyword keyword) { return startsWithKeyword(line.text, keyword); }

std::optional<Meant> meant(const Line& line) {
  if (const auto keyword = exactly(line.text)) return Meant{*keyword, Meant::exact};
  const std::string_view word = firstWord(line.text);
  if (const auto keyword = exactly(word)) return Meant{*keyword, Meant::indented};
  const auto keyword = nearly(word);
  // Many short words look like "end"; it stands alone.
  if (!keyword || (*keyword == Keyword::end && words(line).size() > 1)) return std::nullopt;
  return Meant{*keyword, Meant::misspelt};
}

}  // namespace tpn
