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

// Whether transitions can still fire.
class Prospects {
 public:
  Prospects(const Machine& machine, const StateLayout& layout, Builder& builder)
      : machine_(machine), layout_(layout), builder_(builder) {
    for (const Machine::Transition& t : machine.transitions) {
      const int enabled = builder_.all(sources(t));
      if (t.hopeless()) {
        stopping_.push_back(builder_.all(joined(enabled, allAtLeast(t, *t.latest))));
      } else {
        hopeful_.push_back(enabled);
        ready_.push_back(builder_.all(joined(enabled, allAtLeast(t, t.earliest))));
        readied_.push_back(&t);
      }
    }
  }

  int deadEnd() {
    const int over = -builder_.any(hopeful_);
    if (stopping_.empty()) return over;
    const int stopped = builder_.any(stopping_);
    const int stuck = builder_.all({stopped, -builder_.any(ready_)});
    return builder_.any({over, stuck});
  }

  int oneFires() { return builder_.any(ready_); }

  // One may fire now, but for a move that does not count.
  int oneCollides() {
    std::vector<int> some;
    for (std::size_t i = 0; i < ready_.size(); ++i)
      for (const Machine::Move& move : readied_[i]->moves) {
        if (move.counts) continue;
        std::vector<int> all{ready_[i], -layout_.location(move.process, move.source)};
        if (mayBeLate(*readied_[i]))
          all.push_back(-builder_.all(allAtLeast(*readied_[i], *readied_[i]->latest + 1)));
        some.push_back(builder_.all(all));
      }
    return builder_.any(some);
  }

 private:
  // Can clocks tell that it is late? It never is, but an invariant would have to say so.
  bool mayBeLate(const Machine::Transition& t) const {
    return t.latest && std::all_of(t.moves.begin(), t.moves.end(), [&](const auto& move) {
             return !move.counts || machine_.processes[move.process].cap > *t.latest;
           });
  }
  std::vector<int> sources(const Machine::Transition& t) const {
    std::vector<int> result;
    for (const Machine::Move& move : t.moves)
      if (move.counts) result.push_back(layout_.location(move.process, move.source));
    return result;
  }
  std::vector<int> allAtLeast(const Machine::Transition& t, std::int64_t least) const {
    std::vector<int> result;
    if (least == 0) return result;
    for (const Machine::Move& move : t.moves)
      if (move.counts) result.push_back(layout_.clock(move.process, least));
    return result;
  }
  static std::vector<int> joined(int first, std::vector<int> rest) {
    rest.insert(rest.begin(), first);
    return rest;
  }

  const Machine& machine_;
  const StateLayout& layout_;
  Builder& builder_;
  std::vector<int> hopeful_;                         // enabled, and may fire some time
  std::vector<int> ready_;                           // ... now
  std::vector<const Machine::Transition*> readied_;  // of ready_
  std::vector<int> stopping_;
};

// The literals of a property's items, operands before operators.
class PropertyLiterals {
 public:
  PropertyLiterals(const Network& net, const Machine& machine, const StateLayout& layout)
      : machine_(machine),
        layout_(layout),
        where_(labelled(net, machine, layout)),
        builder_(layout.size()) {}

  StateFormula formula(const Property& property) {
    std::vector<int> stack;
    for (const PropertyItem& item : property.items) {
      const auto operands = static_cast<std::ptrdiff_t>(operandsOf(item));
      assert(static_cast<std::ptrdiff_t>(stack.size()) >= operands);
      const std::vector<int> parts(stack.end() - operands, stack.end());
      stack.resize(stack.size() - parts.size());
      stack.push_back(isLeaf(item) ? leaf(item) : combined(item, parts));
    }
    assert(stack.size() == 1);
    return builder_.done(stack.back());
  }

 private:
  int leaf(const PropertyItem& item) {
    switch (item.kind) {
      case PropertyItem::truth:
        return builder_.all({});
      case PropertyItem::proposition:
        return proposition(item.number);
      case PropertyItem::negated:
        return -proposition(item.number);
      case PropertyItem::at:
        return spot(item);
      case PropertyItem::notAt:
        return -spot(item);
      case PropertyItem::deadlock:
        return Prospects(machine_, layout_, builder_).deadEnd();
      case PropertyItem::noDeadlock:
        return Prospects(machine_, layout_, builder_).oneFires();
      case PropertyItem::unsafe:
        return Prospects(machine_, layout_, builder_).oneCollides();
      default:
        return builder_.any({});
    }
  }

  int proposition(int number) {
    const auto found = where_.find(number);
    return builder_.any(found == where_.end() ? std::vector<int>{} : found->second);
  }
  int spot(const PropertyItem& item) const {
    return layout_.location(item.process, machine_.processes[item.process].rank(item.number));
  }

  int combined(const PropertyItem& item, const std::vector<int>& parts) {
    if (item.kind == PropertyItem::conjunction) return builder_.all(parts);
    if (item.kind == PropertyItem::disjunction) return builder_.any(parts);
    if (item.least > std::min(item.most, item.operands)) return builder_.any({});
    const auto counts = countsOf(parts, std::min(item.most + 1, item.operands));
    std::vector<int> limits;
    if (item.least > 0) limits.push_back(counts[static_cast<std::size_t>(item.least)]);
    if (item.most < item.operands)
      limits.push_back(-counts[static_cast<std::size_t>(item.most) + 1]);
    return builder_.all(limits);
  }

  // A sequential counter, up to `most`: [n] says that n or more of the parts hold; [0] is not used.
  std::vector<int> countsOf(const std::vector<int>& parts, int most) {
    std::vector<int> counts{0};
    for (const int part : parts) {
      std::vector<int> next = counts;
      for (std::size_t n = 1; n <= counts.size() && n <= static_cast<std::size_t>(most); ++n) {
        const int reaches = n == 1 ? part : builder_.all({part, counts[n - 1]});
        if (n == counts.size())
          next.push_back(reaches);
        else
          next[n] = builder_.any({counts[n], reaches});
      }
      counts = std::move(next);
    }
    return counts;
  }

  const Machine& machine_;
  const StateLayout& layout_;
  std::map<int, std::vector<int>> where_;
  Builder builder_;
};

}  // namespace

StateFormula propertyFormula(const Network& net, const Machine& machine, const StateLayout& layout,
                             const Property& property) {
  return PropertyLiterals(net, machine, layout).formula(property);
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
