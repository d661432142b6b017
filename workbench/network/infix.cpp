// From a tree to postfix items in negation normal form. The stack holds nodes still to be written,
// each with its sign; an operator comes back after its operands. Nothing recurses.

#include "workbench/network/infix.hpp"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "workbench/network/resolve.hpp"

namespace tpn {

namespace {

class Writer {
 public:
  Writer(const Expression& tree, const Network& net) : tree_(tree), resolver_(net) {}

  std::vector<PropertyItem> write() {
    stack_.push_back({tree_.nodes.size() - 1, true, false});
    while (!stack_.empty()) {
      const Task task = stack_.back();
      stack_.pop_back();
      take(task, tree_.nodes[task.node]);
    }
    return std::move(items_);
  }

 private:
  struct Task {
    std::size_t node = 0;
    bool positive = true;
    bool operandsDone = false;
  };

  void take(const Task& task, const Expression::Node& node) {
    switch (node.kind) {
      case Expression::negation:
        stack_.push_back({node.left, !task.positive, false});
        break;
      case Expression::conjunction:
      case Expression::disjunction:
      case Expression::implication:
        takeBinary(task, node);
        break;
      case Expression::counter:
        takeCounter(task.positive, node);
        break;
      default:
        leaf(task.positive, node);
    }
  }

  void takeBinary(const Task& task, const Expression::Node& node) {
    if (task.operandsDone) {
      const bool isAnd = (node.kind == Expression::conjunction) == task.positive;
      add(isAnd ? PropertyItem::conjunction : PropertyItem::disjunction, 0, node);
      return;
    }
    const bool left = (node.kind == Expression::implication) != task.positive;
    stack_.push_back({task.node, task.positive, true});
    stack_.push_back({node.right, task.positive, false});
    stack_.push_back({node.left, left, false});
  }

  void leaf(bool positive, const Expression::Node& node) {
    switch (node.kind) {
      case Expression::truth:
      case Expression::falsity:
        add((node.kind == Expression::truth) == positive ? PropertyItem::truth
                                                         : PropertyItem::falsity,
            0, node);
        break;
      case Expression::deadlock:
        add(positive ? PropertyItem::deadlock : PropertyItem::noDeadlock, 0, node);
        break;
      case Expression::named:
        add(positive ? PropertyItem::proposition : PropertyItem::negated,
            resolver_.proposition(node.parts[0]), node);
        break;
      default:
        addSpot(positive, node);
    }
  }

  void addSpot(bool positive, const Expression::Node& node) {
    const std::size_t process = resolver_.process(node.parts[0]);
    const int location = resolver_.location(process, node.parts[1]);
    add(positive ? PropertyItem::at : PropertyItem::notAt, location, node);
    items_.back().process = process;
  }

  // least .. most of the operands before it; its negation is below or above, and with both of
  // these possible the operands are written twice.
  void takeCounter(bool positive, const Expression::Node& node) {
    if (positive) return count(node, node.least, node.most);
    const bool below = node.least > 0;
    const bool above = node.most >= 0;
    if (below) count(node, 0, node.least - 1);
    if (above) count(node, node.most + 1, -1);
    if (below && above) add(PropertyItem::disjunction, 0, node);
    if (!below && !above) add(PropertyItem::falsity, 0, node);
  }

  void count(const Expression::Node& node, std::int64_t least, std::int64_t most) {
    const int operands = node.parts.size() == 1 ? countPropositions(node) : countSpots(node);
    add(PropertyItem::counter, 0, node);
    items_.back().operands = operands;
    // More than there are is as good as one more than there are.
    items_.back().least = static_cast<int>(std::min<std::int64_t>(least, operands + 1));
    items_.back().most =
        most < 0 ? operands : static_cast<int>(std::min<std::int64_t>(most, operands));
  }

  int countPropositions(const Expression::Node& node) {
    const std::vector<int> found = resolver_.propositions(node.parts[0]);
    for (const int proposition : found) add(PropertyItem::proposition, proposition, node);
    return static_cast<int>(found.size());
  }

  int countSpots(const Expression::Node& node) {
    const std::vector<Resolver::Spots> found = resolver_.spots(node.parts[0], node.parts[1]);
    for (const auto& [process, locations] : found)
      for (std::size_t i = 0; i < locations.size(); ++i) {
        add(PropertyItem::at, locations[i], node);
        items_.back().process = process;
        if (i > 0) add(PropertyItem::disjunction, 0, node);
      }
    return static_cast<int>(found.size());
  }

  void add(PropertyItem::Kind kind, int number, const Expression::Node& node) {
    PropertyItem item{kind, number};
    item.begin = node.begin;
    item.end = node.end;
    items_.push_back(item);
  }

  const Expression& tree_;
  Resolver resolver_;
  std::vector<Task> stack_;
  std::vector<PropertyItem> items_;
};

}  // namespace

Property readInfix(std::string_view text, const Network& net) {
  const Expression tree = parseExpression(text);
  Property property;
  property.text = text;
  property.infix = true;
  property.items = Writer(tree, net).write();
  return property;
}

}  // namespace tpn
