#include "workbench/proof/statement.hpp"

#include <numeric>
#include <set>
#include <stdexcept>

#include "workbench/base/sha256.hpp"

namespace tpn {

namespace {

std::string meaning(const Transition& t) {
  std::string text = std::to_string(t.interval.earliest) + " ";
  text += t.interval.latest ? std::to_string(*t.interval.latest) : "-1";
  for (const Move& move : t.moves)
    text += " " + std::to_string(number(move.process)) + ":" + std::to_string(move.source) + ">" +
            std::to_string(move.target) + (move.counts ? "" : "+") + (move.resets ? "" : "?");
  return text + "\n";
}

std::string spotsOf(const Network& net, int proposition) {
  std::string text;
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    for (const auto& [location, labels] : net.processes[p].labels)
      if (labels.contains(proposition))
        text += " " + std::to_string(number(p)) + "@" + std::to_string(location);
  return text;
}

}  // namespace

std::int64_t unitOfTime(const Network& net) {
  std::int64_t unit = 0;
  for (const Transition& t : net.transitions)
    unit = std::gcd(unit, std::gcd(t.interval.earliest, t.interval.latest.value_or(0)));
  return unit == 0 ? 1 : unit;
}

std::string networkMeaning(const Network& net) {
  std::set<std::string> transitions;
  for (const Transition& t : net.transitions) transitions.insert(meaning(t));
  std::string text = "processes\n";
  for (const Process& process : net.processes) {
    for (const int location : process.locations) text += " " + std::to_string(location);
    text += "\n";
  }
  text += "transitions\n";
  for (const std::string& t : transitions) text += t;
  return text;
}

namespace {

std::string itemMeaning(const Network& net, const PropertyItem& item) {
  const std::string spot =
      " " + std::to_string(number(item.process)) + "@" + std::to_string(item.number);
  switch (item.kind) {
    case PropertyItem::truth:
      return "true";
    case PropertyItem::falsity:
      return "false";
    case PropertyItem::proposition:
      return "at" + spotsOf(net, item.number);
    case PropertyItem::negated:
      return "not at" + spotsOf(net, item.number);
    case PropertyItem::at:
      return "at" + spot;
    case PropertyItem::notAt:
      return "not at" + spot;
    case PropertyItem::conjunction:
      return "and";
    case PropertyItem::disjunction:
      return "or";
    case PropertyItem::deadlock:
      return "deadlock";
    case PropertyItem::noDeadlock:
      return "not deadlock";
    case PropertyItem::unsafe:
      return "unsafe";
    case PropertyItem::counter:
      return std::to_string(item.least) + " to " + std::to_string(item.most) + " of " +
             std::to_string(item.operands);
  }
  throw std::logic_error("no such item");
}

}  // namespace

std::string goalMeaning(const Network& net, const Goal& goal) {
  std::string text;
  for (const PropertyItem& item : goal.items) text += itemMeaning(net, item) + "\n";
  return text;
}

Statement statement(const Network& net, const Goal& goal) {
  return {fingerprint(networkMeaning(net)), fingerprint(goalMeaning(net, goal)), unitOfTime(net)};
}

}  // namespace tpn
