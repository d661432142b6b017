#include "workbench/views/viewparts.hpp"

#include <array>
#include <cassert>
#include <iterator>
#include <nlohmann/json.hpp>

#include "workbench/base/printable.hpp"
#include "workbench/network/account.hpp"
#include "workbench/network/shown.hpp"
#include "workbench/runs/deadend.hpp"

namespace tpn {

Replay replayed(const Network& net, const Property& property, const Run& run) {
  Replay result = replay(net, property, run);
  assert(result.complaint.empty());
  return result;
}

bool asksNothing(const Property& property) {
  return property.items.size() == 1 && property.items[0].kind == PropertyItem::truth;
}

std::vector<std::string> propositionNames(const Network& net, const std::set<int>& propositions) {
  std::vector<std::string> names;
  names.reserve(propositions.size());
  for (const int q : propositions) names.push_back(shownProposition(net, q));
  return names;
}

std::vector<std::string> goalAccount(const Network& net, const Property& property,
                                     const TimedState& goal) {
  const std::set<int> propositions = propositionsAt(net, goal.locations);
  const bool deadlock = asksDeadlock(property) && isDeadEnd(net, goal);
  const bool unsafe = asksSafety(property) && collision(net, goal);
  return account(net, property, {propositions, goal.locations, deadlock, unsafe});
}

std::vector<Parts> partsByProcess(const Network& net) {
  std::vector<Parts> parts(net.processes.size());
  for (std::size_t t = 0; t < net.transitions.size(); ++t)
    for (const Move& move : net.transitions[t].moves)
      parts[move.process].push_back({t, move.source, move.target, move.counts, move.resets});
  return parts;
}

Json moveJson(const Move& move) {
  Json json{{"process", number(move.process)}, {"from", move.source}, {"to", move.target}};
  if (!move.counts) json["counts"] = false;
  if (!move.resets) json["resets"] = false;
  return json;
}

bool isShared(const Transition& t) { return t.moves.size() > 1; }

const std::set<int>& labelsAt(const Process& process, int location) {
  static const std::set<int> none;
  const auto labels = process.labels.find(location);
  return labels == process.labels.end() ? none : labels->second;
}

std::string text(const Interval& interval) {
  const std::string from = "[" + std::to_string(interval.earliest) + ", ";
  return from + (interval.latest ? std::to_string(*interval.latest) + "]" : "inf)");
}

std::string shortProperty(const Property& property, std::size_t longest) {
  if (property.text.size() <= longest) return printable(property.text);
  return printable(property.text.substr(0, longest - 3)) + "...";
}

std::string cut(const std::string& text, std::size_t limit) {
  std::size_t characters = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool begins = (static_cast<unsigned char>(text[i]) & 0xc0U) != 0x80;
    if (begins && characters++ == limit) return text.substr(0, i) + "...";
  }
  return text;
}

std::string pictured(const std::string& name) {
  constexpr std::size_t most = 16;
  return cut(printable(name), most);
}

std::string joined(const std::vector<std::string>& items, const std::string& separator) {
  std::string all;
  for (const std::string& item : items) all += (all.empty() ? "" : separator) + item;
  return all;
}

std::string shortened(const std::vector<std::string>& items, std::size_t total,
                      const std::string& separator, std::size_t limit) {
  if (total <= limit) return joined(items, separator);
  const auto end = items.begin() + static_cast<std::ptrdiff_t>(limit - 1);
  return joined({items.begin(), end}, separator) + " ... " + std::to_string(total - limit + 1) +
         " more";
}

std::string shortened(const std::vector<std::string>& items, const std::string& separator,
                      std::size_t limit) {
  return shortened(items, items.size(), separator, limit);
}

std::string partners(const Network& net, const Transition& t, std::size_t process,
                     std::size_t limit) {
  std::vector<std::string> first;
  for (const Move& move : t.moves) {
    if (first.size() == limit) break;
    if (move.process != process) first.push_back(shownProcess(net, move.process));
  }
  return shortened(first, t.moves.size() - 1, ", ", limit);
}

std::string xmlText(const std::string& text) {
  std::string escaped;
  for (const char c : printable(text)) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      case '\'':
        escaped += "&apos;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

const Colour& colourOfRank(std::size_t rank) {
  static constexpr std::array<Colour, 8> palette{{{"#d9d9d9", "#222222"},
                                                  {"#56b4e9", "#000000"},
                                                  {"#e69f00", "#000000"},
                                                  {"#0a7d5e", "#ffffff"},
                                                  {"#f0e442", "#000000"},
                                                  {"#cc79a7", "#000000"},
                                                  {"#0b5c94", "#ffffff"},
                                                  {"#b84a00", "#ffffff"}}};
  return rank == 0 ? palette[0] : palette[1 + (rank - 1) % (palette.size() - 1)];
}

const Colour& colourOf(const Process& process, int location) {
  const auto at = process.locations.find(location);
  return colourOfRank(static_cast<std::size_t>(std::distance(process.locations.begin(), at)));
}

}  // namespace tpn
