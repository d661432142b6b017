#include "workbench/network/namesreader.hpp"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>

#include "workbench/base/spelling.hpp"
#include "workbench/network/called.hpp"
#include "workbench/network/names.hpp"

namespace tpn {

namespace {

constexpr std::array<std::pair<std::string_view, NameLine::Kind>, 4> kinds{
    {{"process", NameLine::process},
     {"location", NameLine::location},
     {"transition", NameLine::transition},
     {"proposition", NameLine::proposition}}};

std::string_view wordFor(NameLine::Kind kind) {
  return kinds.at(static_cast<std::size_t>(kind)).first;
}

std::optional<NameLine::Kind> kindCalled(std::string_view word) {
  for (const auto& [name, kind] : kinds)
    if (name == word) return kind;
  return std::nullopt;
}

std::string kindHint(std::string_view word) {
  std::vector<std::string> names;
  names.reserve(std::size(kinds));
  for (const auto& [name, kind] : kinds) names.emplace_back(name);
  const std::string near = nearest(word, names);
  return near.empty() ? "\"process\", \"location\", \"transition\" or \"proposition\" is expected"
                      : "\"" + near + "\" is expected";
}

Place behind(const std::vector<Word>& all, const Line& line) {
  return {line.number, all.back().column + static_cast<int>(all.back().text.size())};
}

// The number in a word of the line; nothing where there is none, which has been reported.
std::optional<int> numberAt(const Line& line, const std::vector<Word>& all, std::size_t i,
                            Report& report) {
  const bool there = i < all.size();
  if (there && isNumber(all[i].text))
    if (const auto number = value(all[i].text)) return number;
  report.add(Rule::nameLine, there ? Place{line.number, all[i].column} : behind(all, line),
             there ? "a number is expected, not " + inQuotes(all[i].text)
                   : "a number and a name are expected on this line");
  return std::nullopt;
}

// The name that is the rest of the line from a column on.
std::optional<std::string> nameAt(const Line& line, int column, Report& report) {
  std::string_view rest = line.text.substr(static_cast<std::size_t>(column) - 1);
  while (!rest.empty() && (rest.back() == ' ' || rest.back() == '\t' || rest.back() == '\r'))
    rest.remove_suffix(1);
  const auto read = readName(rest);
  if (read && read->length == rest.size()) return read->name;
  const std::string why =
      isTakenWord(rest) ? " is a word of properties; {" + std::string(rest) + "} would be a name"
                        : " is no name: letters, digits and _, or anything else between { and }";
  report.add(Rule::nameMalformed, {line.number, column}, inQuotes(rest) + why);
  return std::nullopt;
}

class Collector {
 public:
  Collector(const Network& net, const std::vector<NameLine>& lines, Report& report)
      : net_(net), called_(lines), report_(report) {}

  void take(const NameLine& line) {
    if (!exists(line)) return unknown(line);
    const bool inProcess = line.kind == NameLine::location;
    const auto thing = std::tuple(line.kind, line.number, inProcess ? line.inner : 0);
    const auto name = std::tuple(line.kind, inProcess ? line.number : 0, line.name);
    if (!things_.insert(thing).second)
      return report_.add(Rule::nameTwice, line.at, described(line) + " has a name already");
    if (!names_.insert(name).second)
      return report_.add(Rule::nameTwice, line.nameAt,
                         inQuotes(line.name) + " is the name of another " +
                             std::string(wordFor(line.kind)) + " already");
    keep(line);
  }

  Names names() { return std::move(found_); }

 private:
  bool isProcess(int number) const {
    return number >= 1 && static_cast<std::size_t>(number) <= net_.processes.size();
  }

  bool exists(const NameLine& line) {
    switch (line.kind) {
      case NameLine::process:
        return isProcess(line.number);
      case NameLine::location:
        return isProcess(line.number) &&
               net_.processes[static_cast<std::size_t>(line.number) - 1].locations.contains(
                   line.inner);
      case NameLine::transition:
        return line.number >= 1 && static_cast<std::size_t>(line.number) <= net_.transitions.size();
      default:
        if (propositions_.empty()) propositions_ = propositions(net_);
        return propositions_.contains(line.number);
    }
  }

  std::string described(const NameLine& line) const {
    switch (line.kind) {
      case NameLine::process:
        return called_.process(line.number);
      case NameLine::location:
        return called_.location(line.number, line.inner) + " of " + called_.process(line.number);
      case NameLine::transition:
        return called_.transition(line.number);
      default:
        return called_.proposition(line.number);
    }
  }

  // Not by the name that this very line gives it.
  std::string missing(const NameLine& line) const {
    if (line.kind == NameLine::location)
      return "location " + std::to_string(line.inner) + " of " + called_.process(line.number);
    return std::string(wordFor(line.kind)) + " " + std::to_string(line.number);
  }

  void unknown(const NameLine& line) {
    report_.add(Rule::nameUnknown, line.at, "there is no " + missing(line));
  }

  void keep(const NameLine& line) {
    const auto index = static_cast<std::size_t>(line.number) - 1;  // of those counted from 1
    switch (line.kind) {
      case NameLine::process:
        found_.processes[index] = line.name;
        break;
      case NameLine::location:
        found_.locations[{index, line.inner}] = line.name;
        break;
      case NameLine::transition:
        found_.transitions[index] = line.name;
        break;
      default:
        found_.propositions[line.number] = line.name;
    }
  }

  const Network& net_;
  Called called_;
  Report& report_;
  Names found_;
  std::set<int> propositions_;
  std::set<std::tuple<NameLine::Kind, int, int>> things_;
  std::set<std::tuple<NameLine::Kind, int, std::string>> names_;
};

}  // namespace

bool beginsNames(const Line& line) {
  const std::vector<Word> all = words(line);
  return all.size() == 1 && all.front().text == "names";
}

std::optional<NameLine> processHeading(const Line& line, std::size_t number) {
  const std::vector<Word> all = words(line);
  if (all.size() != 2 || all[0].text != name(Keyword::process)) return std::nullopt;
  const auto read = readName(all[1].text);
  if (!read || read->length != all[1].text.size()) return std::nullopt;
  const Place at{line.number, all[1].column};
  return NameLine{NameLine::process, static_cast<int>(number), 0, read->name, at, at};
}

void addHeadings(const std::vector<NameLine>& headings, std::vector<NameLine>& names) {
  std::map<std::string, int> counts;
  for (const NameLine& heading : headings) ++counts[heading.name];
  std::vector<NameLine> found;
  for (const NameLine& heading : headings)
    if (counts[heading.name] == 1) found.push_back(heading);
  names.insert(names.begin(), found.begin(), found.end());
}

std::optional<NameLine> readNameLine(const Line& line, Report& report) {
  const std::vector<Word> all = words(line);
  const auto kind = kindCalled(all.front().text);
  if (!kind) {
    report.add(Rule::nameLine, {line.number, all.front().column},
               kindHint(all.front().text) + ", not " + inQuotes(all.front().text));
    return std::nullopt;
  }
  NameLine read;
  read.kind = *kind;
  read.at = {line.number, all.front().column};
  const std::size_t numbers = *kind == NameLine::location ? 2 : 1;
  for (std::size_t i = 0; i < numbers; ++i) {
    const auto number = numberAt(line, all, i + 1, report);
    if (!number) return std::nullopt;
    (i == 0 ? read.number : read.inner) = *number;
  }
  if (all.size() <= numbers + 1) {
    report.add(Rule::nameLine, behind(all, line), "a name is missing at the end of this line");
    return std::nullopt;
  }
  read.nameAt = {line.number, all[numbers + 1].column};
  const auto name = nameAt(line, read.nameAt.column, report);
  if (!name) return std::nullopt;
  read.name = *name;
  return read;
}

Names namesOf(const std::vector<NameLine>& lines, const Network& net, Report& report) {
  Collector collector(net, lines, report);
  for (const NameLine& line : lines) collector.take(line);
  return collector.names();
}

}  // namespace tpn
