// Bottom up, the fewest facts that each item takes; then top down, the leaves that are chosen.
// Nothing recurses.

#include "workbench/network/account.hpp"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <set>

#include "workbench/base/printable.hpp"
#include "workbench/network/shown.hpp"

namespace tpn {

namespace {

class Account {
 public:
  Account(const Network& net, const Property& property, const StateFacts& state)
      : net_(net), property_(property), holds_(values(property, state)) {
    assert(holds_.back());
    for (std::size_t i = 0; i < property_.items.size(); ++i) add(i);
    chooseAll();
  }

  std::vector<std::string> facts() { return std::move(facts_); }
  std::vector<std::size_t> items() { return std::move(items_); }

 private:
  const PropertyItem& item(std::size_t i) const { return property_.items[i]; }

  // The operands of an item, by where they end.
  std::size_t operand(std::size_t i, std::size_t k) const { return operands_[begins_[i] + k]; }
  std::size_t operandCount(std::size_t i) const {
    return static_cast<std::size_t>(operandsOf(item(i)));
  }

  void add(std::size_t i) {
    begins_.push_back(operands_.size());
    const auto first = stack_.end() - operandsOf(item(i));
    operands_.insert(operands_.end(), first, stack_.end());
    stack_.erase(first, stack_.end());
    stack_.push_back(i);
    costs_.push_back(cost(i));
  }

  // Of those that hold.
  std::size_t cost(std::size_t i) const {
    if (isLeaf(item(i))) return item(i).kind == PropertyItem::truth ? 0 : 1;
    if (item(i).kind == PropertyItem::disjunction) return holds_[i] ? costs_[cheapest(i)] : 0;
    std::size_t all = 0;
    for (std::size_t k = 0; k < operandCount(i); ++k)
      if (holds_[operand(i, k)]) all += costs_[operand(i, k)];
    return all;
  }

  std::size_t cheapest(std::size_t i) const {
    const std::size_t left = operand(i, 0);
    const std::size_t right = operand(i, 1);
    if (!holds_[left] || !holds_[right]) return holds_[left] ? left : right;
    return costs_[right] < costs_[left] ? right : left;
  }

  void chooseAll() {
    std::vector<std::size_t> chosen{property_.items.size() - 1};
    while (!chosen.empty()) {
      const std::size_t item = chosen.back();
      chosen.pop_back();
      choose(item, chosen);
    }
    std::sort(items_.begin(), items_.end());
  }

  void choose(std::size_t i, std::vector<std::size_t>& chosen) {
    if (isLeaf(item(i))) return say(i, leafText(item(i)));
    if (item(i).kind == PropertyItem::disjunction) return chosen.push_back(cheapest(i));
    if (item(i).kind == PropertyItem::counter && item(i).most < item(i).operands)
      say(i, countText(i));
    for (std::size_t k = operandCount(i); k-- > 0;)
      if (holds_[operand(i, k)]) chosen.push_back(operand(i, k));
  }

  void say(std::size_t item, const std::string& fact) {
    if (fact.empty()) return;
    items_.push_back(item);
    if (said_.insert(fact).second) facts_.push_back(fact);
  }

  std::string leafText(const PropertyItem& leaf) const {
    switch (leaf.kind) {
      case PropertyItem::proposition:
        return shownProposition(net_, leaf.number);
      case PropertyItem::negated:
        return "!" + shownProposition(net_, leaf.number);
      case PropertyItem::at:
        return shownSpot(net_, leaf.process, leaf.number);
      case PropertyItem::notAt:
        return "!" + shownSpot(net_, leaf.process, leaf.number);
      case PropertyItem::deadlock:
        return "deadlock";
      case PropertyItem::noDeadlock:
        return "!deadlock";
      default:
        return "";  // true
    }
  }

  // "2 of 20 in atmost(3, *.critical)"
  std::string countText(std::size_t i) const {
    std::size_t holding = 0;
    for (std::size_t k = 0; k < operandCount(i); ++k) holding += holds_[operand(i, k)] ? 1 : 0;
    const std::string written = property_.text.substr(item(i).begin, item(i).end - item(i).begin);
    return (holding == 0 ? "none" : std::to_string(holding)) + " of " +
           std::to_string(operandCount(i)) + " in " + printable(written);
  }

  const Network& net_;
  const Property& property_;
  std::vector<bool> holds_;            // by item
  std::vector<std::size_t> begins_;    // by item: of its operands
  std::vector<std::size_t> operands_;  // items
  std::vector<std::size_t> costs_;     // by item: the fewest facts
  std::vector<std::size_t> stack_;
  std::vector<std::string> facts_;
  std::vector<std::size_t> items_;
  std::set<std::string> said_;
};

}  // namespace

std::vector<std::string> account(const Network& net, const Property& property,
                                 const StateFacts& state) {
  return Account(net, property, state).facts();
}

std::vector<std::size_t> accountItems(const Network& net, const Property& property,
                                      const StateFacts& state) {
  return Account(net, property, state).items();
}

bool leavesOpen(const Property& property) {
  return std::any_of(property.items.begin(), property.items.end(), [](const PropertyItem& item) {
    return item.kind == PropertyItem::disjunction || item.kind == PropertyItem::counter;
  });
}

}  // namespace tpn
