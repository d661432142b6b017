// What people call the parts of a network. Numbers remain what everything is known by; a name
// stands beside its number, or in its place where it is shown.
//
// Written, a name is a word (a letter or _, then letters, digits and _) that is not taken by the
// language of properties, or anything else between braces, with { } \ behind a backslash.

#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tpn {

struct Names {
  std::map<std::size_t, std::string> processes;                  // by index
  std::map<std::pair<std::size_t, int>, std::string> locations;  // by process and location number
  std::map<std::size_t, std::string> transitions;                // by index
  std::map<int, std::string> propositions;                       // by number

  friend bool operator==(const Names&, const Names&) = default;
};

bool isTakenWord(std::string_view word);  // "true", "atleast", ...

// As it may be written down: the word itself, or in braces.
std::string writtenName(const std::string& name);

// A name at the beginning of a text.
struct ReadName {
  std::string name;
  std::size_t length = 0;  // of the text that it takes, braces included
};
std::optional<ReadName> readName(std::string_view text);  // nothing where none begins there

}  // namespace tpn
