#include "workbench/network/resolve.hpp"

#include <charconv>
#include <optional>

#include "workbench/base/spelling.hpp"
#include "workbench/network/lintrules.hpp"

namespace tpn {

namespace {

// Digits alone that fit.
std::optional<int> numberIn(std::string_view text) {
  int number = 0;
  if (text.empty() || text.find_first_not_of("0123456789") != std::string_view::npos)
    return std::nullopt;
  const auto failure = std::from_chars(text.data(), text.data() + text.size(), number).ec;
  return failure == std::errc() ? std::optional(number) : std::nullopt;
}

template <class Value>
std::vector<std::string> keys(const std::map<std::string, Value>& map) {
  std::vector<std::string> names;
  for (const auto& [name, value] : map) names.push_back(name);
  return names;
}

[[noreturn]] void unknown(const WrittenPart& part, const std::string& what,
                          const std::string& where, const std::vector<std::string>& candidates) {
  const std::string near = nearest(part.text, candidates);
  std::string message = "no " + what + " `" + part.text + "`" + where;
  if (!near.empty()) message += "; there is `" + near + "`";
  throw ExpressionError(part.at, message);
}

}  // namespace

// Greedy, with one place to go back to: the last star.
bool fitsPattern(const std::string& text, const WrittenPart& pattern) {
  if (pattern.braced) return text == pattern.text;
  const std::string& wanted = pattern.text;
  std::size_t t = 0;
  std::size_t p = 0;
  std::size_t star = std::string::npos;
  std::size_t resume = 0;
  while (t < text.size()) {
    if (p < wanted.size() && wanted[p] == '*') {
      star = p++;
      resume = t;
    } else if (p < wanted.size() && wanted[p] == text[t]) {
      ++p;
      ++t;
    } else if (star != std::string::npos) {
      p = star + 1;
      t = ++resume;
    } else {
      return false;
    }
  }
  return wanted.find_first_not_of('*', p) == std::string::npos;
}

Resolver::Resolver(const Network& net) : net_(net), locations_(net.processes.size()) {
  for (const auto& [index, name] : net.names.processes) processes_.emplace(name, index);
  for (const auto& [number, name] : net.names.propositions) propositions_.emplace(name, number);
  for (const auto& [spot, name] : net.names.locations)
    locations_.at(spot.first).emplace(name, spot.second);
}

int Resolver::proposition(const WrittenPart& part) const {
  const auto found = propositions_.find(part.text);
  if (found != propositions_.end()) return found->second;
  const std::string_view text = part.text;
  const auto number = numberIn(text.substr(text.starts_with("p") ? 1 : text.size()));
  if (!part.braced && number) return *number;
  unknown(part, "proposition", "", keys(propositions_));
}

std::size_t Resolver::process(const WrittenPart& part) const {
  const auto found = processes_.find(part.text);
  if (found != processes_.end()) return found->second;
  const auto number = numberIn(part.text);
  if (!part.braced && number && *number >= 1 &&
      static_cast<std::size_t>(*number) <= net_.processes.size())
    return static_cast<std::size_t>(*number) - 1;
  unknown(part, "process", "", keys(processes_));
}

int Resolver::location(std::size_t process, const WrittenPart& part) const {
  const std::map<std::string, int>& named = locations_.at(process);
  const auto found = named.find(part.text);
  if (found != named.end()) return found->second;
  const auto number = numberIn(part.text);
  if (!part.braced && number && net_.processes[process].locations.contains(*number)) return *number;
  unknown(part, "location", " in process " + processName(net_, process), keys(named));
}

std::vector<int> Resolver::propositions(const WrittenPart& pattern) const {
  std::vector<int> found;
  for (const int number : tpn::propositions(net_)) {
    const auto named = net_.names.propositions.find(number);
    const bool byName =
        named != net_.names.propositions.end() && fitsPattern(named->second, pattern);
    if (byName || (!pattern.braced && fitsPattern("p" + std::to_string(number), pattern)))
      found.push_back(number);
  }
  if (found.empty()) unknown(pattern, "proposition fits", "", keys(propositions_));
  return found;
}

std::vector<Resolver::Spots> Resolver::spots(const WrittenPart& process,
                                             const WrittenPart& location) const {
  std::vector<Spots> found;
  std::vector<std::string> others;
  bool any = false;
  for (std::size_t p = 0; p < net_.processes.size(); ++p) {
    const bool fits = fitsPattern(processName(net_, p), process) ||
                      (!process.braced && fitsPattern(std::to_string(number(p)), process));
    if (!fits) continue;
    any = true;
    for (const auto& [name, number] : locations_[p]) others.push_back(name);
    Spots spots{p, {}};
    for (const int l : net_.processes[p].locations)
      if (fitsPattern(locationName(net_, p, l), location) ||
          (!location.braced && fitsPattern(std::to_string(l), location)))
        spots.locations.push_back(l);
    if (!spots.locations.empty()) found.push_back(std::move(spots));
  }
  if (!any) unknown(process, "process fits", "", keys(processes_));
  if (found.empty()) unknown(location, "location fits", " in any of these processes", others);
  return found;
}

}  // namespace tpn
