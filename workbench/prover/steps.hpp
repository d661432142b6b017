// The steps of the machine backwards, exactly: which states lead into a cube in one step, as
// literals that are assumed. No copy of the state for "after the step" is needed.
//
// - A transition leads into a cube if the cube's literals about the processes that it moves hold in
//   their targets with clocks at 0. Then the states from which it does are those where it may fire
//   and where the cube's other literals hold. A move that does not reset moves nothing: it is a
//   condition only.
// - A delay leaves locations alone and moves clocks up to their caps. What is at least v after it
// is
//   at least v less the delay before it, in a location whose cap is v or more: a few auxiliary
//   variables say so, and one that no deadline is in the way.
//
// That the state before is outside the cube, as relative induction asks, is one literal as well:
// a literal of the cube that the step makes true. Where several may be, they are asked in turn. So
// a query is assumptions alone, and leaves nothing behind.

#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "workbench/base/checkpoint.hpp"
#include "workbench/machine/sink.hpp"
#include "workbench/prover/cube.hpp"
#include "workbench/prover/interchange.hpp"

namespace tpn {

// One way into a cube: a transition, or a delay of so many units.
struct Way {
  std::size_t transition = 0;
  std::int64_t delay = 0;  // 0: the transition

  bool isDelay() const { return delay > 0; }
};

// What is assumed of the state before.
struct Query {
  Way way;
  std::vector<int> fixed;                     // the step's own conditions
  std::vector<std::pair<int, int>> literals;  // what is assumed, and the cube's literal it is for
  int outside = 0;  // holds before and says that the cube does not; 0: the step's conditions say so
};

// What a transition does to a process; null where it leaves it alone.
const Machine::Move* moveOf(const Machine::Transition& t, std::size_t process);

class Steps {
 public:
  // Adds the auxiliary definitions to the sink: now, but for those about clocks that are not
  // `narrow` (units), which are added when they are first needed. Borrows all.
  Steps(const Machine& machine, const StateLayout& layout, const Vocabulary& words,
        std::vector<std::int64_t> delays, Interchange interchange, ClauseSink& sink,
        const Checkpoint& checkpoint, int narrow = 16);

  // Calls `ask` for each query that a state outside the cube may satisfy and step into it, until it
  // returns false. `kept` gets, for each transition that cannot lead into the cube because of one
  // of its literals, such a literal. Of queries that are images of one another under symmetries
  // that leave the cube alone, it may make one.
  void forEach(const Cube& cube, std::vector<int>& kept,
               const std::function<bool(const Query&)>& ask);

  // What a literal after the step says of the state before: the literal to assume; none where the
  // step decides it.
  struct Carried {
    int assumed = 0;
    bool decided = false;
    bool value = true;  // where it is decided
  };
  Carried carried(int literal, const Way& way);

  // All states that step into the cube as this one does: `state` tells each variable's value.
  Cube before(const Cube& cube, const Way& way, const std::function<bool(int)>& state) const;

 private:
  struct Firing {  // of a transition that can fire at all
    std::size_t transition = 0;
    std::vector<int> guard;  // literals
    int inTime = 0;          // auxiliary: one clock is not past the latest; 0: always so
  };
  struct Waiting {  // of one delay
    std::int64_t delay = 0;
    int calm = 0;
    std::vector<int> up;    // [clock variable]: at least v after the delay; 0: not asked for yet
    std::vector<int> down;  // less than v
  };

  void addFiring(std::size_t transition);
  void addWaiting(std::int64_t delay, const Checkpoint& checkpoint);
  int carried(int literal, Waiting& waiting);
  int atLeastAfter(int variable, std::int64_t delay);
  int lessAfter(int variable, std::int64_t delay);
  Clause deadline(const Machine::Transition& t, std::int64_t delay) const;
  bool askTransition(std::size_t index, const Cube& cube, std::vector<int>& kept,
                     const std::function<bool(const Query&)>& ask);
  bool askDelay(Waiting& waiting, const Cube& cube, const std::function<bool(const Query&)>& ask);
  // preimages.cpp
  Cube beforeTransition(const Cube& cube, std::size_t transition,
                        const std::function<bool(int)>& state) const;
  Cube beforeDelay(const Cube& cube, std::int64_t delay,
                   const std::function<bool(int)>& state) const;
  int currentLocation(std::size_t process, const std::function<bool(int)>& state) const;
  void addReasons(std::int64_t delay, const std::function<bool(int)>& state, Cube& cube) const;
  int reasonFor(const Machine::Transition& t, std::int64_t delay,
                const std::function<bool(int)>& state, const std::vector<Cube>& known) const;
  bool implies(int known, int literal) const;

  const Machine& machine_;
  const StateLayout& layout_;
  const Vocabulary& words_;
  Interchange interchange_;
  ClauseSink& sink_;
  int narrow_;
  std::vector<Firing> firings_;
  std::vector<std::vector<std::size_t>> firingsOf_;  // [process]: indices into firings_
  std::vector<Waiting> waitings_;
  std::vector<std::size_t> seen_;  // [firing]: the round in which it was looked at
  std::size_t round_ = 0;
};

}  // namespace tpn
