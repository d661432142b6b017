// A search for any run to the goal, not for a shortest one: state by state, those first that seem
// to be near. It never says "never", and where runs are long and processes have little to do with
// one another it finds one in a small part of the time that the others take.
//
// A step is a unit of time, or a transition after the shortest delay that makes it ripe. Most of
// what could be done next is put off: of the steps from a state those are preferred that are on the
// way that the estimate has found, a unit of time, and where time cannot pass the transitions of
// the processes of one that is due. So processes that do not matter move when they have to, and in
// one order. Four orders take turns in choosing the next state:
//   - of the preferred ones, the nearest, and of these the newest;
//   - of the preferred ones, those in which a process, or two together, are as never before at this
//     distance from the goal;
//   - of the preferred ones, any, so that each distance and each number of steps has its turn;
//   - of all, the nearest and newest: so that nothing is lost.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <queue>
#include <random>
#include <utility>
#include <vector>

#include "workbench/base/checkpoint.hpp"
#include "workbench/machine/machine.hpp"
#include "workbench/network/goal.hpp"
#include "workbench/network/network.hpp"
#include "workbench/search/distance.hpp"
#include "workbench/search/statestore.hpp"

namespace tpn {

class Greedy {
 public:
  // Borrows all. REQUIRES: the goal asks for no dead end.
  Greedy(const Network& net, const Machine& machine, const Goal& goal,
         const Checkpoint& checkpoint);

  struct Found {
    std::vector<std::size_t> transitions;
    std::vector<std::int64_t> delays;  // before each and after the last, units
  };
  // Goes on until it has found something or has spent so much more (a unit is some nanoseconds).
  // Throws Interrupted, and must not go on then.
  std::optional<Found> goOn(long effort);

  // Has it looked at all there is, or at as much as it has memory for?
  bool over() const { return over_; }
  long effort() const { return effort_ + distance_.effort(); }  // so far

 private:
  static constexpr std::size_t aDelay = static_cast<std::size_t>(-1);  // in place of a transition
  struct Step {
    std::size_t before = 0;
    std::size_t transition = aDelay;
    std::int64_t delay = 0;  // units, before the transition
  };
  struct Entry {
    std::int64_t key = 0;
    std::size_t state = 0;
    // Smallest key first, then the newest.
    bool operator<(const Entry& o) const { return key != o.key ? key > o.key : state < o.state; }
  };
  using Queue = std::priority_queue<Entry>;

  // greedy.cpp
  std::optional<std::size_t> next();
  std::optional<std::size_t> anyOfSomeKind();
  void expand(std::size_t state);
  void fire(std::size_t state, std::size_t transition, std::int64_t most, bool preferred);
  void add(const std::vector<std::uint32_t>& state, const Step& step, bool preferred);
  std::optional<int> distanceOf(const std::vector<std::uint32_t>& state);
  void enqueue(std::size_t state, int distance, bool preferred);
  int novelty(std::size_t state, int distance);
  bool isNew(std::uint64_t what);
  bool isGoal(const std::uint32_t* state) const;
  Found run(std::size_t state) const;

  // greedysteps.cpp
  void findEnabled();
  bool isEnabled(const Machine::Transition& t) const;
  std::int64_t rest(const Machine::Transition& t) const;
  std::int64_t longestDelay() const;
  std::optional<std::int64_t> ripeIn(const Machine::Transition& t) const;
  void pass(std::int64_t units);
  void due();

  const Network& net_;
  const Machine& machine_;
  const Goal& goal_;
  const Checkpoint& checkpoint_;
  Distance distance_;
  std::vector<std::vector<std::vector<std::size_t>>> startedBy_;  // [process][rank]: transitions of
                                                                  // which it is the first to count
  StateStore states_;                          // of each process the rank, then of each the clock
  StateStore places_;                          // the ranks alone
  std::vector<std::optional<int>> distances_;  // [place]
  std::vector<Step> steps_;                    // [state]
  std::vector<int> depths_;                    // [state]: steps to it
  std::vector<bool> expanded_;                 // [state]
  Queue nearest_, novel_, all_;
  std::map<std::pair<int, int>, std::size_t> kinds_;  // distance and depth -> which
  std::vector<std::vector<std::size_t>> ofKind_;      // [kind]: states that have not been taken
  std::vector<std::size_t> open_;                     // kinds with any
  std::vector<bool> known_;                           // what novelty() has seen
  std::minstd_rand random_;
  int turn_ = 0;
  long effort_ = 0;
  bool over_ = false;
  std::optional<std::size_t> goalState_;
  // Of the state being expanded:
  std::vector<std::uint32_t> now_, then_;
  std::vector<std::size_t> enabled_;
  std::vector<char> hurried_;  // [process]: has to move before time can pass
  std::vector<char> helpful_;  // [index of enabled_]
};

}  // namespace tpn
