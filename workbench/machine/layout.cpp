#include "workbench/machine/layout.hpp"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <set>

namespace tpn {

namespace {

// Of one state; solvers name about 2^31 variables, and there are many states.
constexpr std::int64_t mostVariables = 100'000'000;

void append(Clauses& clauses, Clauses more) {
  clauses.insert(clauses.end(), std::make_move_iterator(more.begin()),
                 std::make_move_iterator(more.end()));
}

bool counts(const Machine::Transition& t, std::size_t process) {
  return std::any_of(t.moves.begin(), t.moves.end(), [process](const Machine::Move& move) {
    return move.process == process && move.counts;
  });
}

// What the clock of a process is compared with, ascending: earliest times, deadlines and what is
// past them.
std::vector<std::int64_t> compared(const Machine& machine, std::size_t process) {
  std::set<std::int64_t> values;
  for (const std::size_t t : machine.processes[process].movers) {
    const Machine::Transition& transition = machine.transitions[t];
    if (!counts(transition, process)) continue;
    values.insert(transition.earliest);
    if (transition.latest) values.insert({*transition.latest, *transition.latest + 1});
  }
  values.erase(0);
  return {values.begin(), values.end()};
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

StateLayout StateLayout::capped(const Machine& machine) {
  assert(fits(machine));
  StateLayout layout;
  for (const Machine::Process& process : machine.processes) layout.add(process, process.cap, {});
  return layout;
}

StateLayout StateLayout::delayed(const Machine& machine, std::int64_t limit) {
  StateLayout layout;
  for (std::size_t p = 0; p < machine.processes.size(); ++p) {
    const Machine::Process& process = machine.processes[p];
    const bool dense = process.reach <= limit;
    std::vector<std::int64_t> sparse = dense ? std::vector<std::int64_t>{} : compared(machine, p);
    const auto width = dense ? process.reach : static_cast<std::int64_t>(sparse.size());
    layout.add(process, width, std::move(sparse));
  }
  return layout;
}

void StateLayout::add(const Machine::Process& process, std::int64_t width,
                      std::vector<std::int64_t> sparse) {
  const int location = size_ + 1;
  size_ += static_cast<int>(process.locations.size());
  processes_.push_back({location, size_ + 1, static_cast<int>(width), std::move(sparse)});
  size_ += static_cast<int>(width);
}

int StateLayout::clock(std::size_t process, std::int64_t least) const {
  const Process& p = processes_[process];
  std::int64_t index = least - 1;
  if (!p.sparse.empty())
    index = std::lower_bound(p.sparse.begin(), p.sparse.end(), least) - p.sparse.begin();
  assert(index >= 0 && index < p.width && value(process, static_cast<int>(index)) == least);
  return p.clock + static_cast<int>(index);
}

std::int64_t StateLayout::value(std::size_t process, int index) const {
  const Process& p = processes_[process];
  return p.sparse.empty() ? index + 1 : p.sparse[static_cast<std::size_t>(index)];
}

Clause locationsOf(const Machine& machine, const StateLayout& layout, std::size_t process) {
  Clause some;
  for (std::size_t l = 0; l < machine.processes[process].locations.size(); ++l)
    some.push_back(layout.location(process, l));
  return some;
}

void addOneLocation(Clauses& clauses, const Machine& machine, const StateLayout& layout,
                    std::size_t process) {
  const Clause some = locationsOf(machine, layout, process);
  clauses.push_back(some);
  for (std::size_t l = 0; l < some.size(); ++l)
    for (std::size_t m = 0; m < l; ++m) clauses.push_back({-some[m], -some[l]});
}

Clauses oneLocation(const Machine& machine, const StateLayout& layout) {
  Clauses clauses;
  for (std::size_t p = 0; p < machine.processes.size(); ++p)
    addOneLocation(clauses, machine, layout, p);
  return clauses;
}

Clauses clockOrder(const Machine& machine, const StateLayout& layout) {
  Clauses clauses;
  for (std::size_t p = 0; p < machine.processes.size(); ++p)
    for (int i = 1; i < layout.width(p); ++i)
      clauses.push_back({-layout.clockAt(p, i), layout.clockAt(p, i - 1)});
  return clauses;
}

Clauses clockCaps(const Machine& machine, const StateLayout& layout) {
  Clauses clauses;
  for (std::size_t p = 0; p < machine.processes.size(); ++p) {
    const auto& locations = machine.processes[p].locations;
    for (std::size_t l = 0; l < locations.size(); ++l) {
      if (locations[l].cap >= layout.width(p)) continue;
      clauses.push_back({-layout.location(p, l), -layout.clock(p, locations[l].cap + 1)});
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
    for (int i = 0; i < layout.width(p); ++i) literals.push_back(-layout.clockAt(p, i));
  }
  return literals;
}

}  // namespace tpn
