#include "workbench/search/greedy.hpp"

#include <algorithm>
#include <cassert>
#include <set>

namespace tpn {

namespace {

constexpr std::size_t mostBytes = 200'000'000;  // of the states; all else takes about as much again
constexpr std::size_t mostInPairs = 100;        // processes; of more, no two are looked at together
constexpr std::size_t known = std::size_t{1} << 22U;

}  // namespace

Greedy::Greedy(const Network& net, const Machine& machine, const Goal& goal,
               const Checkpoint& checkpoint)
    : net_(net),
      machine_(machine),
      goal_(goal),
      checkpoint_(checkpoint),
      distance_(net, machine, goal),
      states_(2 * machine.processes.size()),
      places_(machine.processes.size()),
      known_(known),
      hurried_(machine.processes.size()) {
  assert(!asksDeadlock(goal));
  for (const Machine::Process& process : machine.processes)
    startedBy_.emplace_back(process.locations.size());
  for (std::size_t t = 0; t < machine.transitions.size(); ++t) {
    const auto& moves = machine.transitions[t].moves;
    const auto first =
        std::find_if(moves.begin(), moves.end(), [](const Machine::Move& m) { return m.counts; });
    startedBy_[first->process][first->source].push_back(t);
  }
  std::vector<std::uint32_t> initial(2 * machine.processes.size(), 0);
  for (std::size_t p = 0; p < machine.processes.size(); ++p)
    initial[p] = static_cast<std::uint32_t>(machine.processes[p].initial);
  add(initial, {}, true);
}

std::optional<Greedy::Found> Greedy::goOn(long effort) {
  const long enough = this->effort() + effort;
  while (!goalState_ && !over_ && this->effort() < enough) {
    const std::optional<std::size_t> state = next();
    over_ = !state || states_.bytes() + places_.bytes() > mostBytes;
    if (state && !expanded_[*state]) expand(*state);
  }
  if (!goalState_) return std::nullopt;
  over_ = true;
  return run(*goalState_);
}

// The orders take turns; one that has nothing left is passed over.
std::optional<std::size_t> Greedy::next() {
  constexpr int orders = 4;
  Queue* const queues[orders] = {&nearest_, &novel_, nullptr, &all_};
  for (int i = 0; i < orders; ++i) {
    Queue* const queue = queues[turn_++ % orders];
    if (queue == nullptr && !open_.empty()) return anyOfSomeKind();
    if (queue == nullptr || queue->empty()) continue;
    const std::size_t state = queue->top().state;
    queue->pop();
    return state;
  }
  return std::nullopt;
}

std::optional<std::size_t> Greedy::anyOfSomeKind() {
  const auto takeAny = [this](std::vector<std::size_t>& from) {
    std::swap(from[random_() % from.size()], from.back());
    return from.back();
  };
  std::vector<std::size_t>& states = ofKind_[takeAny(open_)];
  const std::size_t state = takeAny(states);
  states.pop_back();
  if (states.empty()) open_.pop_back();
  return state;
}

void Greedy::expand(std::size_t state) {
  expanded_[state] = true;
  now_.assign(states_[state], states_[state] + 2 * machine_.processes.size());
  distance_.from(now_.data());
  findEnabled();
  helpful_.clear();
  for (const std::size_t t : enabled_) helpful_.push_back(distance_.helps(t) ? 1 : 0);
  const std::int64_t most = longestDelay();
  std::fill(hurried_.begin(), hurried_.end(), 0);
  if (most == 0) due();
  for (std::size_t i = 0; i < enabled_.size() && !goalState_; ++i)
    fire(state, enabled_[i], most, helpful_[i] != 0);
  if (most == 0 || goalState_) return;
  pass(1);
  add(then_, {state, aDelay, 1}, true);
}

// After the shortest delay, if that is none of more than `most`.
void Greedy::fire(std::size_t state, std::size_t transition, std::int64_t most, bool preferred) {
  const Machine::Transition& t = machine_.transitions[transition];
  const auto delay = ripeIn(t);
  if (!delay || *delay > most) return;
  pass(*delay);
  for (const Machine::Move& m : t.moves) {
    preferred = preferred || hurried_[m.process] != 0;
    if (!m.resets) continue;
    then_[m.process] = static_cast<std::uint32_t>(m.target);
    then_[machine_.processes.size() + m.process] = 0;
  }
  add(then_, {state, transition, *delay}, preferred);
}

void Greedy::add(const std::vector<std::uint32_t>& state, const Step& step, bool preferred) {
  checkpoint_();
  effort_ += 10 + static_cast<long>(state.size()) / 4;
  const auto [number, isNew] = states_.add(state.data());
  if (!isNew) return;
  steps_.push_back(step);
  depths_.push_back(number == 0 ? 0 : depths_[step.before] + 1);
  expanded_.push_back(false);
  const std::optional<int> distance = distanceOf(state);
  if (distance == 0 && isGoal(state.data())) goalState_ = number;
  if (distance) enqueue(number, *distance, preferred);
}

// Most states differ from others in their clocks alone.
std::optional<int> Greedy::distanceOf(const std::vector<std::uint32_t>& state) {
  const auto [place, isNew] = places_.add(state.data());
  if (isNew) distances_.push_back(distance_.from(state.data()));
  return distances_[place];
}

void Greedy::enqueue(std::size_t state, int distance, bool preferred) {
  all_.push({distance, state});
  if (!preferred) return;
  nearest_.push({distance, state});
  constexpr std::int64_t apart = std::int64_t{1} << 32U;
  novel_.push({novelty(state, distance) * apart + distance, state});
  const auto [kind, first] = kinds_.try_emplace({distance, depths_[state]}, ofKind_.size());
  if (first) ofKind_.emplace_back();
  std::vector<std::size_t>& states = ofKind_[kind->second];
  if (states.empty()) open_.push_back(kind->second);
  states.push_back(state);
}

// How many processes one has to look at together to see something for the first time at this
// distance: 1 or 2, or 3 for more.
int Greedy::novelty(std::size_t state, int distance) {
  const std::size_t count = machine_.processes.size();
  const auto one = [&](std::size_t p) {
    const std::uint32_t* const s = states_[state];
    return (static_cast<std::uint64_t>(s[p]) << 24U ^ s[count + p] ^
            static_cast<std::uint64_t>(p) << 44U) *
           0x9e3779b97f4a7c15ULL;
  };
  const std::uint64_t at = static_cast<std::uint64_t>(distance) * 0xd6e8feb86659fd93ULL;
  int result = 3;
  for (std::size_t p = 0; p < count; ++p) {
    const std::uint64_t first = one(p) ^ at;
    if (isNew(first)) result = 1;
    for (std::size_t q = 0; q < p && count <= mostInPairs; ++q)
      if (isNew((first + one(q)) * 0xff51afd7ed558ccdULL)) result = std::min(result, 2);
  }
  effort_ += static_cast<long>(count <= mostInPairs ? count * count : count) / 4;
  return result;
}

bool Greedy::isNew(std::uint64_t what) {
  const std::size_t bit = static_cast<std::size_t>(what >> 20U) % known;
  if (known_[bit]) return false;
  known_[bit] = true;
  return true;
}

bool Greedy::isGoal(const std::uint32_t* state) const {
  std::vector<int> locations;
  std::set<int> propositions;
  for (std::size_t p = 0; p < machine_.processes.size(); ++p) {
    locations.push_back(machine_.processes[p].locations[state[p]].number);
    const auto labels = net_.processes[p].labels.find(locations.back());
    if (labels != net_.processes[p].labels.end())
      propositions.insert(labels->second.begin(), labels->second.end());
  }
  return holds(goal_, {propositions, locations});
}

Greedy::Found Greedy::run(std::size_t state) const {
  std::vector<std::size_t> way;
  for (; state != 0; state = steps_[state].before) way.push_back(state);
  std::reverse(way.begin(), way.end());
  Found found{{}, {0}};
  for (const std::size_t on : way) {
    found.delays.back() += steps_[on].delay;
    if (steps_[on].transition == aDelay) continue;
    found.transitions.push_back(steps_[on].transition);
    found.delays.push_back(0);
  }
  return found;
}

}  // namespace tpn
