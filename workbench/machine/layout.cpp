#include "workbench/machine/layout.hpp"

#include <cassert>

namespace tpn {

namespace {

// Of one state; solvers name about 2^31 variables, and there are many states.
constexpr std::int64_t mostVariables = 100'000'000;

void append(Clauses& clauses, Clauses more) {
  clauses.insert(clauses.end(), std::make_move_iterator(more.begin()),
                 std::make_move_iterator(more.end()));
}

}  // namespace

void addAt(Solver& solver, const Clauses& clauses, int base) {
  for (const Clause& clause : clauses) {
    for (const int literal : clause) solver.add(shifted(literal, base));
    solver.add(0);
  }
}

bool StateLayout::fits(const Machine& machine) {
  std::int64_t variables = 0;
  for (const Machine::Process& process : machine.processes) {
    if (process.cap > mostVariables) return false;
    variables += static_cast<std::int64_t>(process.locations.size()) + process.cap + 1;
    if (variables > mostVariables) return false;
  }
  return true;
}

StateLayout::StateLayout(const Machine& machine, Clocks clocks) {
  assert(fits(machine));
  for (const Machine::Process& process : machine.processes) {
    locations_.push_back(size_ + 1);
    size_ += static_cast<int>(process.locations.size());
    clocks_.push_back(size_ + 1);
    widths_.push_back(static_cast<int>(process.cap) + (clocks == Clocks::pastCap ? 1 : 0));
    size_ += widths_.back();
  }
}

Clauses oneLocation(const Machine& machine, const StateLayout& layout) {
  Clauses clauses;
  for (std::size_t p = 0; p < machine.processes.size(); ++p) {
    const std::size_t count = machine.processes[p].locations.size();
    Clause some;
    for (std::size_t l = 0; l < count; ++l) some.push_back(layout.location(p, l));
    clauses.push_back(some);
    for (std::size_t l = 0; l < count; ++l)
      for (std::size_t m = 0; m < l; ++m)
        clauses.push_back({-layout.location(p, m), -layout.location(p, l)});
  }
  return clauses;
}

Clauses clockOrder(const Machine& machine, const StateLayout& layout) {
  Clauses clauses;
  for (std::size_t p = 0; p < machine.processes.size(); ++p)
    for (int c = 1; c < layout.width(p); ++c)
      clauses.push_back({-layout.clock(p, c + 1), layout.clock(p, c)});
  return clauses;
}

Clauses clockCaps(const Machine& machine, const StateLayout& layout) {
  Clauses clauses;
  for (std::size_t p = 0; p < machine.processes.size(); ++p) {
    const auto& locations = machine.processes[p].locations;
    for (std::size_t l = 0; l < locations.size(); ++l) {
      if (locations[l].cap >= layout.width(p)) continue;
      const int past = static_cast<int>(locations[l].cap) + 1;
      clauses.push_back({-layout.location(p, l), -layout.clock(p, past)});
    }
  }
  return clauses;
}

Clauses facts(const Machine& machine, const StateLayout& layout) {
  Clauses clauses = oneLocation(machine, layout);
  append(clauses, clockOrder(machine, layout));
  append(clauses, clockCaps(machine, layout));
  return clauses;
}

std::vector<int> initialState(const Machine& machine, const StateLayout& layout) {
  std::vector<int> literals;
  for (std::size_t p = 0; p < machine.processes.size(); ++p) {
    const Machine::Process& process = machine.processes[p];
    for (std::size_t l = 0; l < process.locations.size(); ++l)
      literals.push_back(l == process.initial ? layout.location(p, l) : -layout.location(p, l));
    for (int c = 1; c <= layout.width(p); ++c) literals.push_back(-layout.clock(p, c));
  }
  return literals;
}

}  // namespace tpn
