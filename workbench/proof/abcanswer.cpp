#include "workbench/proof/abcanswer.hpp"

#include <map>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "workbench/proof/statement.hpp"
#include "workbench/runs/run.hpp"

namespace tpn {

namespace {

// What a cube says of one clock in bits.
struct Bits {
  std::size_t process = 0;
  std::uint64_t fixed = 0;
  std::uint64_t ones = 0;  // among the fixed ones
};

// The values from .. to that have the bits: the free ones below the lowest fixed one run through
// an interval, each combination of the others has one of its own.
struct Range {
  std::uint64_t from = 0;
  std::uint64_t to = 0;
};

std::optional<std::vector<Range>> ranges(const Bits& bits, std::size_t width, std::size_t most) {
  const std::uint64_t low = (bits.fixed & (~bits.fixed + 1)) - 1;
  const std::uint64_t all = (std::uint64_t{1} << width) - 1;
  const std::uint64_t free = all & ~bits.fixed & ~low;
  std::vector<Range> found;
  for (std::uint64_t part = 0;;) {
    if (found.size() == most) return std::nullopt;
    found.push_back({bits.ones | part, bits.ones | part | low});
    part = (part - free) & free;  // the next subset of the free ones
    if (part == 0) return found;
  }
}

// One clause of each combination of ranges.
class Clauses {
 public:
  Clauses(const MachineCircuit& machine, std::size_t most) : machine_(machine), most_(most) {}

  // The negation of the cube; false where that would be too many.
  bool exclude(const AtomClause& atoms, const std::vector<Bits>& clocks) {
    std::vector<AtomClause> made{atoms};
    for (const Bits& bits : clocks) {
      const auto all = ranges(bits, machine_.state.clock(bits.process).size(), most_);
      if (!all || made.size() * all->size() + clauses_.size() > most_) return false;
      std::vector<AtomClause> more;
      for (const AtomClause& clause : made)
        for (const Range& range : *all) outside(clause, bits.process, range, more);
      made = std::move(more);
    }
    clauses_.insert(clauses_.end(), made.begin(), made.end());
    return clauses_.size() <= most_;
  }

  std::vector<AtomClause> take() { return std::move(clauses_); }

 private:
  // Or the clock is below the range, or above; no clock is above its cap.
  void outside(AtomClause clause, std::size_t process, const Range& range,
               std::vector<AtomClause>& into) const {
    const auto cap = static_cast<std::uint64_t>(machine_.machine.processes[process].cap);
    if (range.from > cap) return;
    if (range.from > 0)
      clause.push_back({Atom::clock, false, process, static_cast<std::int64_t>(range.from)});
    if (range.to < cap)
      clause.push_back({Atom::clock, true, process, static_cast<std::int64_t>(range.to) + 1});
    into.push_back(std::move(clause));
  }

  const MachineCircuit& machine_;
  std::size_t most_;
  std::vector<AtomClause> clauses_;
};

std::map<std::string, std::size_t> latchesByName(const Circuit& circuit) {
  std::map<std::string, std::size_t> found;
  for (std::size_t i = 0; i < circuit.latches().size(); ++i) found[circuit.latches()[i].name] = i;
  return found;
}

[[noreturn]] void refuse(const std::string& what) {
  throw std::runtime_error("berkeley-abc: " + what);
}

// One line of the dump, its latches by index.
class Cube {
 public:
  Cube(const MachineCircuit& machine, const std::vector<std::size_t>& latches,
       const std::string& row)
      : machine_(machine) {
    if (row.size() != latches.size()) refuse("a row of the invariant has another length");
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (row[i] != '0' && row[i] != '1' && row[i] != '-') refuse("no row of an invariant: " + row);
      if (row[i] != '-') fix(latches[i], row[i] == '1');
    }
  }

  const AtomClause& negated() const { return negated_; }
  std::vector<Bits> clocks() const {
    std::vector<Bits> all;
    for (const auto& [process, bits] : clocks_) all.push_back(bits);
    return all;
  }

 private:
  void fix(std::size_t latch, bool value) {
    if (const std::optional<Atom>& atom = machine_.state.atom(latch)) {
      negated_.push_back(value ? ~*atom : *atom);
      return;
    }
    const StateLiterals::Bit at = machine_.state.bit(latch);
    Bits& bits = clocks_[at.process];
    bits.process = at.process;
    bits.fixed |= std::uint64_t{1} << at.bit;
    if (value) bits.ones |= std::uint64_t{1} << at.bit;
  }

  const MachineCircuit& machine_;
  AtomClause negated_;
  std::map<std::size_t, Bits> clocks_;
};

std::vector<std::size_t> latchesOf(std::istringstream& names, const MachineCircuit& machine) {
  const std::map<std::string, std::size_t> known = latchesByName(machine.circuit);
  std::vector<std::size_t> latches;
  for (std::string name; names >> name;) {
    const auto latch = known.find(name);
    if (latch == known.end()) refuse("there is no latch " + name);
    latches.push_back(latch->second);
  }
  return latches;
}

}  // namespace

std::optional<Certificate> readInvariant(const std::string& text, const MachineCircuit& machine,
                                         std::size_t most) {
  std::istringstream in(text);
  std::vector<std::size_t> latches;
  Clauses clauses(machine, most);
  for (std::string line; std::getline(in, line);) {
    std::istringstream words(line);
    std::string first;
    words >> first;
    if (first == ".e") return Certificate{{}, {}, clauses.take()};
    if (first == ".ilb") latches = latchesOf(words, machine);
    if (first.empty() || first[0] == '#' || first[0] == '.') continue;
    const Cube cube(machine, latches, first);
    if (!clauses.exclude(cube.negated(), cube.clocks())) return std::nullopt;
  }
  refuse("the invariant ends too early");
}

std::vector<std::size_t> readChoices(const std::string& text, std::size_t inputs) {
  std::istringstream in(text);
  std::string line;
  if (!std::getline(in, line)) refuse("the counterexample is empty");
  std::vector<std::size_t> choices;
  while (std::getline(in, line)) {
    line = line.substr(0, line.find('#'));
    if (line.size() != inputs || line.find_first_not_of("01x") != std::string::npos)
      refuse("no line of a counterexample: " + line);
    std::size_t choice = 0;
    for (std::size_t bit = 0; bit < inputs; ++bit)
      if (line[bit] == '1') choice |= std::size_t{1} << bit;
    choices.push_back(choice);
  }
  return choices;
}

// Each delay is tried before it is believed: the state is kept as it was after the last transition,
// and how long it has lasted.
Run runOf(const Network& net, const std::vector<std::size_t>& choices) {
  const Rational unit = unitOfTime(net);
  TimedState state = initialState(net);
  Rational waited = 0;
  Run run;
  for (const std::size_t choice : choices) {
    if (choice == 0) {
      const std::optional<Rational> longest = longestDelay(net, state);
      if (!longest || waited + unit <= *longest) waited = waited + unit;
    } else if (choice <= net.transitions.size() &&
               advance(net, {waited, choice - 1}, state).empty()) {
      run.steps.push_back({waited, choice - 1});
      waited = 0;
    }
  }
  run.goal = run.steps.size();
  return run;
}

}  // namespace tpn
