#include "workbench/network/netfields.hpp"

#include <cassert>
#include <string>
#include <vector>

namespace tpn {

namespace {

Field field(const Line& line, const Word& word, const std::string& what, Report& report) {
  Field result{std::nullopt, {line.number, word.column}};
  if (!isNumber(word.text)) {
    report.add(Rule::notANumber, result.at, what + " " + inQuotes(word.text) + " is no number");
    return result;
  }
  result.value = value(word.text);
  if (!result.value)
    report.add(Rule::numberRange, result.at,
               what + " " + inQuotes(word.text) + " does not fit into 32 bits");
  return result;
}

}  // namespace

std::array<Field, 3> threeFields(const Line& line, const std::array<const char*, 3>& names,
                                 Report& report) {
  const std::vector<Word> all = words(line);
  assert(!all.empty());
  const int behind = all.back().column + static_cast<int>(all.back().text.size());
  std::array<Field, 3> fields;
  std::string missing;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i < all.size())
      fields.at(i) = field(line, all[i], names.at(i), report);
    else
      missing += (missing.empty() ? "" : " and ") + std::string(names.at(i));
  }
  if (!missing.empty())
    report.add(Rule::fieldMissing, {line.number, behind}, missing + " missing; zervan takes 0");
  if (all.size() > fields.size())
    report.add(Rule::fieldExtra, {line.number, all[fields.size()].column},
               inQuotes(all[fields.size()].text) + " is too much on this line and not read");
  return fields;
}

LabelLine labelLine(const Line& line, Report& report) {
  const std::vector<Word> all = words(line);
  assert(!all.empty());
  LabelLine label{field(line, all.front(), "location", report), {}};
  for (std::size_t i = 1; i < all.size(); ++i)
    label.propositions.push_back(field(line, all[i], "proposition", report));
  return label;
}

}  // namespace tpn
