#include "workbench/network/plain.hpp"

#include <algorithm>
#include <cassert>
#include <map>
#include <stdexcept>
#include <utility>

namespace tpn {

namespace {

using Items = std::vector<PropertyItem>;
using Spot = std::pair<std::size_t, int>;  // (process, location)

PropertyItem itemOf(PropertyItem::Kind kind, int number = 0) {
  PropertyItem item;
  item.kind = kind;
  item.number = number;
  return item;
}

bool asksSpot(const PropertyItem& item) {
  return item.kind == PropertyItem::at || item.kind == PropertyItem::notAt;
}

// The propositions that label one location and no other.
std::map<Spot, int> ownPropositions(const Network& net) {
  std::map<int, std::pair<Spot, int>> seen;  // proposition -> where, how often
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    for (const auto& [location, labels] : net.processes[p].labels)
      for (const int proposition : labels) {
        auto& [spot, times] = seen[proposition];
        spot = {p, location};
        ++times;
      }
  std::map<Spot, int> own;
  for (const auto& [proposition, where] : seen)
    if (where.second == 1) own.emplace(where.first, proposition);
  return own;
}

// Propositions that neither the network nor the property knows, in ascending order.
class Unused {
 public:
  Unused(const Network& net, const Property& property) : known_(propositions(net)) {
    for (const PropertyItem& item : property.items)
      if (item.kind == PropertyItem::proposition || item.kind == PropertyItem::negated)
        known_.insert(item.number);
  }

  int next() {
    while (known_.contains(++last_)) continue;
    return last_;
  }

 private:
  std::set<int> known_;
  int last_ = 0;
};

// least .. most of some operands, split in halves: so many on the left, the rest on the right.
class Counter {
 public:
  explicit Counter(const std::vector<Items>& operands) : operands_(operands) {}

  // Items that say that `least` or more of those from `begin` up to `end` hold.
  const Items& atLeast(std::size_t begin, std::size_t end, std::size_t least) {
    const auto [at, isNew] = made_.try_emplace({{begin, end}, least});
    if (!isNew) return at->second;
    Items items = made(begin, end, least);
    return made_[{{begin, end}, least}] = std::move(items);
  }

 private:
  static constexpr std::size_t mostItems = 2'000'000;

  Items made(std::size_t begin, std::size_t end, std::size_t least) {
    if (least == 0) return {itemOf(PropertyItem::truth)};
    if (end - begin == 1) return operands_[begin];
    const std::size_t middle = begin + (end - begin) / 2;
    Items all;
    for (std::size_t left = 0; left <= std::min(least, middle - begin); ++left) {
      if (least - left > end - middle) continue;
      const bool isFirst = all.empty();
      if (left > 0) append(all, atLeast(begin, middle, left));
      if (left < least) append(all, atLeast(middle, end, least - left));
      if (left > 0 && left < least) all.push_back(itemOf(PropertyItem::conjunction));
      if (!isFirst) all.push_back(itemOf(PropertyItem::disjunction));
    }
    return all;
  }

  static void append(Items& all, const Items& more) {
    if (all.size() + more.size() > mostItems)
      throw std::runtime_error("a counter over so many cannot be written without counting");
    all.insert(all.end(), more.begin(), more.end());
  }

  const std::vector<Items>& operands_;
  std::map<std::pair<std::pair<std::size_t, std::size_t>, std::size_t>, Items> made_;
};

// Negation reaches the leaves through the operators.
Items negated(Items items) {
  for (PropertyItem& item : items) {
    switch (item.kind) {
      case PropertyItem::proposition:
        item.kind = PropertyItem::negated;
        break;
      case PropertyItem::negated:
        item.kind = PropertyItem::proposition;
        break;
      case PropertyItem::conjunction:
        item.kind = PropertyItem::disjunction;
        break;
      case PropertyItem::disjunction:
        item.kind = PropertyItem::conjunction;
        break;
      default:
        throw std::logic_error("no operand of a counter");
    }
  }
  return items;
}

class Plainer {
 public:
  Plainer(const Network& net, const Property& property)
      : net_(net), own_(ownPropositions(net)), never_(Unused(net, property).next()) {}

  Items plain(const Items& items) {
    std::vector<Items> stack;
    for (const PropertyItem& item : items) {
      const auto count = static_cast<std::size_t>(operandsOf(item));
      assert(stack.size() >= count);
      std::vector<Items> operands(stack.end() - static_cast<std::ptrdiff_t>(count), stack.end());
      stack.resize(stack.size() - count);
      stack.push_back(combined(item, operands));
    }
    assert(stack.size() == 1);
    return std::move(stack.back());
  }

 private:
  Items combined(const PropertyItem& item, const std::vector<Items>& operands) const {
    if (item.kind == PropertyItem::counter) return counted(item, operands);
    Items all;
    for (const Items& operand : operands) all.insert(all.end(), operand.begin(), operand.end());
    all.push_back(leafOrOperator(item));
    return all;
  }

  PropertyItem leafOrOperator(const PropertyItem& item) const {
    switch (item.kind) {
      case PropertyItem::falsity:
        return itemOf(PropertyItem::proposition, never_);
      case PropertyItem::at:
        return itemOf(PropertyItem::proposition, propositionOf(item));
      case PropertyItem::notAt:
        return itemOf(PropertyItem::negated, propositionOf(item));
      case PropertyItem::deadlock:
      case PropertyItem::noDeadlock:
        throw std::runtime_error("no proposition says deadlock");
      case PropertyItem::unsafe:
        throw std::runtime_error("no proposition says that the net is not safe");
      default:
        return item;
    }
  }

  int propositionOf(const PropertyItem& item) const {
    const auto found = own_.find({item.process, item.number});
    if (found != own_.end()) return found->second;
    throw std::runtime_error(processName(net_, item.process) + "." +
                             locationName(net_, item.process, item.number) +
                             " has no proposition that labels it alone");
  }

  Items counted(const PropertyItem& item, const std::vector<Items>& operands) const {
    if (item.least > item.operands) return {itemOf(PropertyItem::proposition, never_)};
    Items all = Counter(operands).atLeast(0, operands.size(), static_cast<std::size_t>(item.least));
    if (item.most >= item.operands) return all;
    std::vector<Items> others;
    others.reserve(operands.size());
    for (const Items& operand : operands) others.push_back(negated(operand));
    const auto least = static_cast<std::size_t>(item.operands - item.most);
    const Items rest = Counter(others).atLeast(0, others.size(), least);
    all.insert(all.end(), rest.begin(), rest.end());
    all.push_back(itemOf(PropertyItem::conjunction));
    return all;
  }

  const Network& net_;
  std::map<Spot, int> own_;
  int never_;  // labels no location
};

}  // namespace

bool isPlain(const Property& property) {
  return std::all_of(property.items.begin(), property.items.end(), [](const PropertyItem& item) {
    return item.kind <= PropertyItem::disjunction;
  });
}

Property plain(const Network& net, const Property& property) {
  if (isPlain(property)) return property;
  Property result = property;
  result.items = Plainer(net, property).plain(property.items);
  return result;
}

Network labelledFor(const Network& net, const Property& property) {
  Network labelled = net;
  const std::map<Spot, int> own = ownPropositions(net);
  std::set<Spot> asked;
  for (const PropertyItem& item : property.items)
    if (asksSpot(item)) asked.insert({item.process, item.number});
  Unused unused(net, property);
  for (const auto& [process, location] : asked)
    if (!own.contains({process, location}))
      labelled.processes[process].labels[location].insert(unused.next());
  return labelled;
}

std::string postfixText(const Property& property) {
  std::string text;
  for (const PropertyItem& item : property.items) {
    assert(item.kind <= PropertyItem::disjunction);
    if (item.kind == PropertyItem::truth) text += "T";
    if (item.kind == PropertyItem::proposition) text += "p" + std::to_string(item.number);
    if (item.kind == PropertyItem::negated) text += "p-" + std::to_string(item.number);
    if (item.kind == PropertyItem::conjunction) text += "&";
    if (item.kind == PropertyItem::disjunction) text += "+";
  }
  return text;
}

}  // namespace tpn
