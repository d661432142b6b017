// Classes of interchangeable processes, and which exchanges leave a property as it is.

#include <algorithm>
#include <cassert>
#include <iterator>
#include <set>

#include "workbench/machine/exchange.hpp"

namespace tpn {

namespace {

using Labelled = std::vector<std::pair<std::size_t, std::size_t>>;  // (process, rank), sorted

// What a leaf that speaks of locations asks about: a proposition, or a location of a process.
using Asked = std::pair<std::size_t, int>;  // (process, location), (no process, proposition)
constexpr auto noProcess = static_cast<std::size_t>(-1);

bool asksPlaces(const PropertyItem& item) {
  return item.kind == PropertyItem::proposition || item.kind == PropertyItem::negated ||
         item.kind == PropertyItem::at || item.kind == PropertyItem::notAt;
}

Asked askedBy(const PropertyItem& item) {
  const bool isSpot = item.kind == PropertyItem::at || item.kind == PropertyItem::notAt;
  return {isSpot ? item.process : noProcess, item.number};
}

// Properties in a form in which the order of parts and their repetition do not show: formulas are
// numbered as they come up, equal ones alike.
class Forms {
 public:
  // place(asked) numbers what a leaf asks about.
  template <class Numbering>
  int number(const Property& property, const Numbering& place) {
    std::vector<Form> stack;
    for (const PropertyItem& item : property.items) {
      const auto count = static_cast<std::size_t>(operandsOf(item));
      assert(stack.size() >= count);
      std::vector<Form> operands(
          std::make_move_iterator(stack.end() - static_cast<std::ptrdiff_t>(count)),
          std::make_move_iterator(stack.end()));
      stack.resize(stack.size() - count);
      if (item.kind == PropertyItem::counter)
        stack.push_back(counted(item, std::move(operands)));
      else if (count > 0)
        stack.push_back(joined(item.kind, std::move(operands[0]), operands[1]));
      else
        stack.push_back({item.kind, {asksPlaces(item) ? place(askedBy(item)) : 0}, 0, 0});
    }
    assert(stack.size() == 1);
    return numberOf(std::move(stack.back()));
  }

 private:
  struct Form {
    PropertyItem::Kind kind = PropertyItem::truth;
    std::vector<int> parts;  // numbers of formulas; of a leaf, its place
    int least = 0;           // counter
    int most = 0;            // counter

    friend auto operator<=>(const Form&, const Form&) = default;
  };

  Form joined(PropertyItem::Kind kind, Form left, const Form& right) {
    Form result{kind, {}, 0, 0};
    if (left.kind == kind)
      result.parts = std::move(left.parts);
    else
      result.parts.push_back(numberOf(std::move(left)));
    if (right.kind == kind)
      result.parts.insert(result.parts.end(), right.parts.begin(), right.parts.end());
    else
      result.parts.push_back(numberOf(right));
    return result;
  }
  Form counted(const PropertyItem& item, std::vector<Form> operands) {
    Form result{item.kind, {}, item.least, item.most};
    for (Form& operand : operands) result.parts.push_back(numberOf(std::move(operand)));
    return result;
  }
  int numberOf(Form form) {
    std::sort(form.parts.begin(), form.parts.end());
    if (form.kind != PropertyItem::counter)  // which counts a part twice that is there twice
      form.parts.erase(std::unique(form.parts.begin(), form.parts.end()), form.parts.end());
    return numbers_.emplace(std::move(form), static_cast<int>(numbers_.size())).first->second;
  }

  std::map<Form, int> numbers_;
};

// Where what the property asks about is.
std::map<Asked, Labelled> placesOf(const Network& net, const Machine& machine,
                                   const Property& property) {
  std::map<Asked, Labelled> result;
  for (const PropertyItem& item : property.items) {
    if (!asksPlaces(item)) continue;
    const Asked asked = askedBy(item);
    result[asked];
    if (asked.first != noProcess)
      result[asked] = {{item.process, machine.processes[item.process].rank(item.number)}};
  }
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    for (const auto& [location, propositions] : net.processes[p].labels)
      for (const int proposition : propositions)
        if (const auto found = result.find({noProcess, proposition}); found != result.end())
          found->second.emplace_back(p, machine.processes[p].rank(location));
  for (auto& [asked, spots] : result) std::sort(spots.begin(), spots.end());
  return result;
}

// Whether exchanges leave one property as it is.
class Judge {
 public:
  Judge(const Network& net, const Machine& machine, const Property& property)
      : property_(property), where_(placesOf(net, machine, property)) {
    for (const auto& [asked, spots] : where_)
      numbers_.emplace(spots, static_cast<int>(numbers_.size()));
    own_ = forms_.number(property, [&](Asked asked) { return numbers_.at(where_.at(asked)); });
  }

  bool respected(const Exchange& exchange) {
    std::map<Asked, int> renamed;
    for (const auto& [asked, spots] : where_) {
      const auto number = numbers_.find(image(exchange, spots));
      if (number == numbers_.end()) return false;
      renamed[asked] = number->second;
    }
    return forms_.number(property_, [&](Asked asked) { return renamed.at(asked); }) == own_;
  }

 private:
  static Labelled image(const Exchange& exchange, Labelled spots) {
    for (auto& [process, rank] : spots) {
      rank = exchange.rank(process, rank);
      process = exchange.process(process);
    }
    std::sort(spots.begin(), spots.end());
    return spots;
  }

  const Property& property_;
  std::map<Asked, Labelled> where_;
  std::map<Labelled, int> numbers_;  // of sets of places
  Forms forms_;
  int own_ = 0;
};

// Exchanges of neighbours among processes that look alike, until one fails.
class Classes {
 public:
  Classes(const Network& net, const Machine& machine, const Property* property,
          const Checkpoint& checkpoint)
      : machine_(machine), checkpoint_(checkpoint) {
    if (property != nullptr) judge_.emplace(net, machine, *property);
  }

  std::vector<std::vector<std::size_t>> all() {
    for (std::size_t p = 0; p < machine_.processes.size(); ++p)
      if (!fixed_.contains(p)) grow(p);
    return std::move(classes_);
  }

 private:
  void grow(std::size_t first) {
    std::vector<std::size_t> members{first};
    for (std::size_t p = first + 1; p < machine_.processes.size(); ++p)
      if (!fixed_.contains(p) && patience_ > 0 && exchanges(members, p)) members.push_back(p);
    if (members.size() < 2) return;
    fixed_.insert(members.begin(), members.end());
    classes_.push_back(std::move(members));
  }

  // The newest member and the next one, no other member, and none of an earlier class.
  bool exchanges(const std::vector<std::size_t>& members, std::size_t next) {
    if (!alike(machine_.processes[members.back()], machine_.processes[next])) return false;
    checkpoint_();
    const auto found = exchange(machine_, members.back(), next);
    const bool good =
        found && leavesOthers(*found, members) && (!judge_ || judge_->respected(*found));
    if (!good) --patience_;
    return good;
  }

  bool leavesOthers(const Exchange& exchange, const std::vector<std::size_t>& members) const {
    return std::all_of(exchange.processes.begin(), exchange.processes.end(), [&](const auto& pair) {
      const bool other = pair.first != members.back() &&
                         std::find(members.begin(), members.end(), pair.first) != members.end();
      return !other && !fixed_.contains(pair.first);
    });
  }

  const Machine& machine_;
  const Checkpoint& checkpoint_;
  std::optional<Judge> judge_;
  int patience_ = 1000;  // with processes that look alike and are of no class
  std::set<std::size_t> fixed_;
  std::vector<std::vector<std::size_t>> classes_;
};

}  // namespace

bool respects(const Exchange& exchange, const Network& net, const Machine& machine,
              const Property& property) {
  return Judge(net, machine, property).respected(exchange);
}

std::vector<std::vector<std::size_t>> interchangeable(const Network& net, const Machine& machine,
                                                      const Property* property,
                                                      const Checkpoint& checkpoint) {
  // The property is put in form again for each exchange: with hundreds of processes and all pairs
  // of them in a property that would take longer than the search.
  constexpr std::size_t most = 20'000'000;
  if (property != nullptr && property->items.size() * machine.processes.size() > most) return {};
  return Classes(net, machine, property, checkpoint).all();
}

}  // namespace tpn
