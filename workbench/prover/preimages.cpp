// Which states step into a cube as one of them does: all of them, as a cube.

#include <algorithm>
#include <cassert>

#include "workbench/prover/steps.hpp"

namespace tpn {

Cube Steps::before(const Cube& cube, const Way& way, const std::function<bool(int)>& state) const {
  return words_.normal(way.isDelay() ? beforeDelay(cube, way.delay, state)
                                     : beforeTransition(cube, way.transition, state));
}

Cube Steps::beforeTransition(const Cube& cube, std::size_t transition,
                             const std::function<bool(int)>& state) const {
  const Machine::Transition& t = machine_.transitions[transition];
  Cube result;
  for (const int literal : cube)
    if (moveOf(t, words_.meaning(literal).process) == nullptr) result.push_back(literal);
  int inTime = 0;
  bool always = !t.latest;
  for (const auto& [process, source, target, counts, resets] : t.moves) {
    result.push_back(layout_.location(process, source));
    if (!counts) continue;
    if (t.earliest > 0) result.push_back(layout_.clock(process, t.earliest));
    if (!t.latest) continue;
    if (machine_.processes[process].locations[source].cap <= *t.latest) {
      always = true;
    } else if (state(-layout_.clock(process, *t.latest + 1))) {
      inTime = -layout_.clock(process, *t.latest + 1);
    }
  }
  assert(always || inTime != 0);
  if (!always) result.push_back(inTime);
  return result;
}

int Steps::currentLocation(std::size_t process, const std::function<bool(int)>& state) const {
  for (std::size_t l = 0; l < machine_.processes[process].locations.size(); ++l)
    if (state(layout_.location(process, l))) return layout_.location(process, l);
  assert(false && "a process is somewhere");
  return 0;
}

Cube Steps::beforeDelay(const Cube& cube, std::int64_t delay,
                        const std::function<bool(int)>& state) const {
  Cube result;
  for (const int literal : cube) {
    const Meaning& m = words_.meaning(literal);
    const bool shifts = m.value > delay;
    if (!m.isClock) {
      result.push_back(literal);
    } else if (literal > 0) {
      if (shifts) result.push_back(layout_.clock(m.process, m.value - delay));
      const auto& locations = machine_.processes[m.process].locations;
      for (std::size_t l = 0; l < locations.size(); ++l)
        if (locations[l].cap < m.value && locations[l].cap >= m.value - delay)
          result.push_back(-layout_.location(m.process, l));
    } else if (shifts && state(-layout_.clock(m.process, m.value - delay))) {
      result.push_back(-layout_.clock(m.process, m.value - delay));
    } else {
      result.push_back(currentLocation(m.process, state));
    }
  }
  addReasons(delay, state, result);
  return result;
}

// Why each deadline does not stop the delay: a literal that is there already, or one more.
void Steps::addReasons(std::int64_t delay, const std::function<bool(int)>& state,
                       Cube& cube) const {
  std::vector<Cube> known(machine_.processes.size());
  for (const int literal : cube) known[words_.meaning(literal).process].push_back(literal);
  for (const Machine::Transition& t : machine_.transitions) {
    if (!t.latest) continue;
    const int reason = reasonFor(t, delay, state, known);
    if (reason == 0) continue;
    cube.push_back(reason);
    known[words_.meaning(reason).process].push_back(reason);
  }
}

// 0 where something known says so. Otherwise a literal that is true at first rather than not, for
// what keeps the cube out should not be found in processes that have nothing to do with it; that a
// process is elsewhere rather than something of its clock.
int Steps::reasonFor(const Machine::Transition& t, std::int64_t delay,
                     const std::function<bool(int)>& state, const std::vector<Cube>& known) const {
  int reason = 0;
  const auto worth = [this](int literal) {
    return literal == 0 ? 0
                        : 1 + (words_.initially(literal) ? 2 : 0) +
                              (words_.meaning(literal).isClock ? 0 : 1);
  };
  for (const int literal : deadline(t, delay)) {
    if (!state(literal)) continue;
    const Cube& there = known[words_.meaning(literal).process];
    if (std::any_of(there.begin(), there.end(), [&](int other) { return implies(other, literal); }))
      return 0;
    if (worth(literal) > worth(reason)) reason = literal;
  }
  assert(reason != 0);
  return reason;
}

// Of two literals about a process, the second negative: the same, another location, or a lower
// bound from above.
bool Steps::implies(int known, int literal) const {
  const Meaning& m = words_.meaning(literal);
  const Meaning& n = words_.meaning(known);
  if (known == literal) return true;
  if (n.isClock != m.isClock) return false;
  return m.isClock ? known < 0 && n.value <= m.value : known > 0 && n.value != m.value;
}

}  // namespace tpn
