#include "workbench/machine/goal.hpp"

#include <algorithm>
#include <cassert>
#include <map>

namespace tpn {

namespace {

// Builds a formula from below: literals in, a literal out.
class Builder {
 public:
  explicit Builder(int stateSize) : size_(stateSize) {}

  int all(const std::vector<int>& parts) { return -any(negated(parts)); }

  int any(const std::vector<int>& parts) {
    if (parts.size() == 1) return parts.front();
    const int result = fresh();
    Clause some{-result};
    for (const int part : parts) {
      some.push_back(part);
      formula_.clauses.push_back({result, -part});
    }
    formula_.clauses.push_back(some);
    return result;
  }

  StateFormula done(int root) {
    formula_.root = root;
    return std::move(formula_);
  }

 private:
  static std::vector<int> negated(std::vector<int> literals) {
    for (int& literal : literals) literal = -literal;
    return literals;
  }
  int fresh() { return size_ + ++formula_.helpers; }

  int size_;
  StateFormula formula_;
};

// proposition -> the locations that it labels
std::map<int, std::vector<int>> labelled(const Network& net, const Machine& machine,
                                         const StateLayout& layout) {
  std::map<int, std::vector<int>> result;
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    for (const auto& [location, propositions] : net.processes[p].labels)
      for (const int proposition : propositions)
        result[proposition].push_back(layout.location(p, machine.processes[p].rank(location)));
  return result;
}

int popped(std::vector<int>& stack) {
  assert(!stack.empty());
  const int top = stack.back();
  stack.pop_back();
  return top;
}

class DeadEnds {
 public:
  DeadEnds(const Machine& machine, const StateLayout& layout)
      : machine_(machine), layout_(layout), builder_(layout.size()) {}

  StateFormula formula() {
    std::vector<int> hopeful;  // transitions that are enabled and may fire some time
    std::vector<int> ready;    // ... now
    std::vector<int> stopping;
    for (const Machine::Transition& t : machine_.transitions) {
      const int enabled = builder_.all(sources(t));
      if (t.hopeless()) {
        stopping.push_back(builder_.all(joined(enabled, allAtLeast(t, *t.latest))));
      } else {
        hopeful.push_back(enabled);
        ready.push_back(builder_.all(joined(enabled, allAtLeast(t, t.earliest))));
      }
    }
    const int over = -builder_.any(hopeful);
    if (stopping.empty()) return builder_.done(over);
    const int stopped = builder_.any(stopping);
    const int stuck = builder_.all({stopped, -builder_.any(ready)});
    return builder_.done(builder_.any({over, stuck}));
  }

 private:
  std::vector<int> sources(const Machine::Transition& t) const {
    std::vector<int> result;
    for (const Machine::Move& move : t.moves)
      result.push_back(layout_.location(move.process, move.source));
    return result;
  }
  std::vector<int> allAtLeast(const Machine::Transition& t, std::int64_t least) const {
    std::vector<int> result;
    if (least == 0) return result;
    for (const Machine::Move& move : t.moves) result.push_back(layout_.clock(move.process, least));
    return result;
  }
  static std::vector<int> joined(int first, std::vector<int> rest) {
    rest.insert(rest.begin(), first);
    return rest;
  }

  const Machine& machine_;
  const StateLayout& layout_;
  Builder builder_;
};

}  // namespace

StateFormula propertyFormula(const Network& net, const Machine& machine, const StateLayout& layout,
                             const Property& property) {
  const auto where = labelled(net, machine, layout);
  Builder builder(layout.size());
  const auto literal = [&](int proposition) {
    const auto found = where.find(proposition);
    return builder.any(found == where.end() ? std::vector<int>{} : found->second);
  };
  std::vector<int> stack;
  for (const PropertyItem& item : property.items) {
    if (item.kind == PropertyItem::truth) {
      stack.push_back(builder.all({}));
    } else if (item.kind == PropertyItem::proposition) {
      stack.push_back(literal(item.number));
    } else if (item.kind == PropertyItem::negated) {
      stack.push_back(-literal(item.number));
    } else {
      const int right = popped(stack);
      const int left = popped(stack);
      const bool both = item.kind == PropertyItem::conjunction;
      stack.push_back(both ? builder.all({left, right}) : builder.any({left, right}));
    }
  }
  assert(stack.size() == 1);
  return builder.done(stack.back());
}

StateFormula deadEndFormula(const Machine& machine, const StateLayout& layout) {
  return DeadEnds(machine, layout).formula();
}

int addFormula(Solver& solver, const StateFormula& formula, int stateSize, int state, int helpers) {
  const auto placed = [&](int literal) {
    return shifted(literal, std::abs(literal) <= stateSize ? state : helpers - stateSize);
  };
  for (const Clause& clause : formula.clauses) {
    for (const int literal : clause) solver.add(placed(literal));
    solver.add(0);
  }
  return placed(formula.root);
}

}  // namespace tpn
