#include "workbench/network/netsections.hpp"

#include <algorithm>

namespace tpn {

namespace {

// All keywords from `first` on that come before `found`, the order starting again after a process.
std::vector<Keyword> between(Keyword first, Keyword found) {
  std::vector<Keyword> missing;
  for (Keyword k = first; k != found;) {
    missing.push_back(k);
    k = k == Keyword::end ? Keyword::process : static_cast<Keyword>(static_cast<int>(k) + 1);
  }
  return missing;
}

// An "end" among the labels: in place of "endval", or is that missing? One "end" closes the process
// and one more the file; one beyond that is the keyword in question.
bool standsForEndval(const std::vector<Line>& lines, std::size_t i) {
  const auto isEnd = [](const Line& line) {
    const auto found = meant(line);
    return found && found->keyword == Keyword::end;
  };
  const auto from = lines.begin() + static_cast<std::ptrdiff_t>(i);
  const auto other = std::find_if_not(from, lines.end(), isEnd);
  return other - from > (other == lines.end() ? 2 : 1);
}

}  // namespace

Keyword endOfSection(Section section) {
  switch (section) {
    case Section::heading:
      return Keyword::transitions;
    case Section::declarations:
      return Keyword::endtran;
    case Section::betweenProcesses:
      return Keyword::process;
    case Section::moves:
      return Keyword::valuation;
    case Section::labels:
      return Keyword::endval;
    default:
      return Keyword::end;
  }
}

std::string inQuotes(Keyword keyword) { return "\"" + std::string(name(keyword)) + "\""; }

std::string awaited(Section section) {
  return inQuotes(endOfSection(section)) +
         (section == Section::betweenProcesses ? " or \"end\"" : "");
}

std::string missingBetween(Keyword expected, Keyword found) {
  const std::vector<Keyword> missing = between(expected, found);
  std::string list;
  for (std::size_t i = 0; i < missing.size(); ++i) {
    if (i > 0) list += i + 1 == missing.size() ? " and " : ", ";
    list += inQuotes(missing[i]);
  }
  return list + (missing.size() > 1 ? " are" : " is");
}

std::optional<Meant> keywordIn(const std::vector<Line>& lines, std::size_t i, Section section) {
  std::optional<Meant> found = meant(lines[i]);
  if (!found) return found;
  const Keyword keyword = found->keyword;
  const bool closes = keyword == Keyword::endtran || keyword == Keyword::endval;
  const auto standsFor = [&](Keyword other) { return Meant{other, Meant::misspelt}; };
  switch (section) {
    case Section::heading:
      return found;
    case Section::declarations:
      if (keyword == Keyword::transitions) return std::nullopt;
      if (keyword == Keyword::end || keyword == Keyword::endval) return standsFor(Keyword::endtran);
      return found;
    case Section::betweenProcesses:
    case Section::blockEnd:
      if (keyword == Keyword::transitions) return std::nullopt;
      return closes ? standsFor(Keyword::end) : found;
    case Section::labels:
      if (keyword == Keyword::transitions || keyword == Keyword::valuation) return std::nullopt;
      if (keyword == Keyword::endtran || (keyword == Keyword::end && standsForEndval(lines, i)))
        return standsFor(Keyword::endval);
      return found;
    default:
      if (keyword == Keyword::transitions || keyword == Keyword::endtran) return std::nullopt;
      return found;
  }
}

}  // namespace tpn
