// What can be done in the state that is being expanded: the machine's steps, said once more and
// plainly. Runs that are found so are replayed like all others.

#include <algorithm>
#include <limits>

#include "workbench/search/greedy.hpp"

namespace tpn {

bool Greedy::isEnabled(const Machine::Transition& t) const {
  return std::all_of(t.moves.begin(), t.moves.end(), [this](const Machine::Move& m) {
    return !m.counts || now_[m.process] == m.source;
  });
}

void Greedy::findEnabled() {
  enabled_.clear();
  for (std::size_t p = 0; p < machine_.processes.size(); ++p)
    for (const std::size_t t : startedBy_[p][now_[p]]) {
      if (isEnabled(machine_.transitions[t])) enabled_.push_back(t);
      ++effort_;
    }
  std::sort(enabled_.begin(), enabled_.end());
}

// How long until an enabled transition is due.
std::int64_t Greedy::rest(const Machine::Transition& t) const {
  std::int64_t most = std::numeric_limits<std::int64_t>::max();
  if (!t.latest) return most;
  most = 0;
  for (const Machine::Move& m : t.moves)
    if (m.counts) most = std::max(most, *t.latest - now_[machine_.processes.size() + m.process]);
  return most;
}

std::int64_t Greedy::longestDelay() const {
  std::int64_t longest = std::numeric_limits<std::int64_t>::max();
  for (const std::size_t t : enabled_) longest = std::min(longest, rest(machine_.transitions[t]));
  return longest;
}

// The shortest delay after which an enabled transition may fire; none where it never does, or where
// something is in its way.
std::optional<std::int64_t> Greedy::ripeIn(const Machine::Transition& t) const {
  std::int64_t delay = 0;
  if (t.hopeless()) return std::nullopt;
  for (const Machine::Move& m : t.moves) {
    if (now_[m.process] != m.source) return std::nullopt;
    if (m.counts) delay = std::max(delay, t.earliest - now_[machine_.processes.size() + m.process]);
  }
  return delay;
}

// `then_`: the state so many units later.
void Greedy::pass(std::int64_t units) {
  then_ = now_;
  const std::size_t count = machine_.processes.size();
  for (std::size_t p = 0; p < count && units > 0; ++p) {
    const std::int64_t cap = machine_.processes[p].locations[now_[p]].cap;
    then_[count + p] = static_cast<std::uint32_t>(std::min(cap, now_[count + p] + units));
  }
}

// The processes of one transition that is due.
void Greedy::due() {
  std::fill(hurried_.begin(), hurried_.end(), 0);
  for (const std::size_t t : enabled_) {
    if (machine_.transitions[t].hopeless() || rest(machine_.transitions[t]) > 0) continue;
    for (const Machine::Move& m : machine_.transitions[t].moves) hurried_[m.process] = 1;
    return;
  }
}

}  // namespace tpn
