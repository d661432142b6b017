#include "workbench/views/patterns.hpp"

#include <algorithm>
#include <cassert>
#include <map>
#include <set>
#include <string_view>

#include "workbench/views/viewparts.hpp"

namespace tpn {

namespace {

// No printable text holds it.
const std::string numberMark = "\x1f";

bool isDigit(char c) { return '0' <= c && c <= '9'; }

// Text and numbers in turn, text first: "a12" is "a", "12", "".
std::vector<std::string> pieces(const std::string& name) {
  std::vector<std::string> result{""};
  bool inNumber = false;
  for (const char c : name) {
    if (isDigit(c) != inNumber) {
      result.emplace_back();
      inNumber = !inNumber;
    }
    result.back() += c;
  }
  if (inNumber) result.emplace_back();
  return result;
}

// Of names with one skeleton.
std::string pattern(const std::vector<std::string>& names) {
  std::vector<std::string> common = pieces(names[0]);
  for (const std::string& name : names) {
    const std::vector<std::string> other = pieces(name);
    for (std::size_t i = 1; i < common.size(); i += 2)
      if (common[i] != other[i]) common[i] = "*";
  }
  return joined(common, "");
}

struct Kin {
  std::string skeleton;
  std::vector<std::string> names;
};

// By skeleton, in order of appearance, each once.
std::vector<Kin> kinsOf(const std::vector<std::string>& names) {
  std::vector<Kin> kins;
  std::map<std::string, std::size_t> places;
  std::set<std::string_view> known;
  for (const std::string& name : names) {
    const std::string bare = skeleton(name);
    const auto [place, isNew] = places.try_emplace(bare, kins.size());
    if (isNew) kins.push_back({bare, {}});
    if (known.insert(name).second) kins[place->second].names.push_back(name);
  }
  return kins;
}

std::vector<std::size_t> numbersOf(const std::vector<std::string>& words) {
  std::vector<std::size_t> numbers;
  numbers.reserve(words.size());
  for (const std::string& word : words) numbers.push_back(std::stoul(word));
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

// A kin as items of a list: names one by one where they are not more than `most`.
std::vector<std::string> items(const Kin& kin, std::size_t most) {
  if (kin.skeleton == numberMark) return ranges(numbersOf(kin.names));
  return kin.names.size() <= most ? kin.names : std::vector<std::string>{pattern(kin.names)};
}

std::vector<std::string> items(const std::vector<Kin>& kins, std::size_t most) {
  std::vector<std::string> result;
  for (const Kin& kin : kins)
    for (const std::string& item : items(kin, most)) result.push_back(item);
  return result;
}

// Where names of one skeleton differ in one number alone, those numbers; else nothing.
std::vector<std::size_t> counting(const std::vector<std::string>& names) {
  const std::vector<std::string> first = pieces(names[0]);
  std::vector<std::size_t> differing;
  for (std::size_t i = 1; i < first.size(); i += 2)
    if (std::any_of(names.begin(), names.end(),
                    [&](const std::string& name) { return pieces(name)[i] != first[i]; }))
      differing.push_back(i);
  if (differing.size() != 1) return {};
  std::vector<std::string> numbers;
  for (const std::string& name : names) {
    numbers.push_back(pieces(name)[differing[0]]);
    if (numbers.back().size() > 9) return {};
  }
  return numbersOf(numbers);
}

}  // namespace

std::string skeleton(const std::string& name) {
  std::vector<std::string> parts = pieces(name);
  for (std::size_t i = 1; i < parts.size(); i += 2) parts[i] = numberMark;
  return joined(parts, "");
}

// A range needs three numbers that follow each other at one distance, and says the first two where
// that is not 1.
std::vector<std::string> ranges(const std::vector<std::size_t>& numbers) {
  std::vector<std::string> result;
  for (std::size_t i = 0; i < numbers.size();) {
    std::size_t end = i + 1;
    const std::size_t distance = end < numbers.size() ? numbers[end] - numbers[i] : 0;
    while (end < numbers.size() && numbers[end] - numbers[end - 1] == distance) ++end;
    const bool isRange = end - i >= (distance == 1 ? 3U : 4U);
    if (!isRange) {
      result.push_back(std::to_string(numbers[i++]));
      continue;
    }
    if (distance > 1) result.push_back(std::to_string(numbers[i++]));
    result.push_back(std::to_string(numbers[i]) + " .. " + std::to_string(numbers[end - 1]));
    i = end;
  }
  return result;
}

std::vector<std::string> summary(const std::vector<std::string>& names, std::size_t limit) {
  const std::vector<Kin> kins = kinsOf(names);
  std::vector<std::string> result = items(kins, 2);
  if (result.size() > 3) result = items(kins, 1);
  if (result.size() <= limit) return result;
  const std::size_t left = result.size() - limit + 1;
  result.resize(limit - 1);
  result.push_back("... " + std::to_string(left) + " more");
  return result;
}

std::string eitherOf(const std::vector<std::string>& names) {
  const std::vector<Kin> kins = kinsOf(names);
  const std::vector<std::string> words = items(kins, 1);
  if (kins.size() == 1 && kins[0].skeleton == numberMark && kins[0].names.size() > 1)
    return "one of " + joined(words, ", ");
  if (words.size() <= 3) return joined(words, " or ");
  return "one of " + shortened(words, ", ", 4);
}

std::string members(const std::vector<std::string>& names) {
  const std::vector<Kin> kins = kinsOf(names);
  if (kins.size() != 1) return joined(names, ", ");
  if (kins[0].skeleton == numberMark) return joined(ranges(numbersOf(names)), ", ");
  const std::vector<std::size_t> numbers = counting(names);
  const bool consecutive = numbers.size() == names.size() && names.size() > 2 &&
                           numbers.back() - numbers.front() + 1 == numbers.size();
  return consecutive ? names.front() + " .. " + names.back() : joined(names, ", ");
}

}  // namespace tpn
