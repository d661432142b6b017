// Formulas that repeat: random relations along a path.

#pragma once

#include <random>
#include <vector>

#include "boolform/boolform.hpp"
#include "tests/boolform/store.hpp"

constexpr int perState = 4;

// A chain of random relations between state i and state i + 1, the same ones at every step.
class Chain {
 public:
  explicit Chain(unsigned seed) : seed_(seed) {}

  BoolForm path{true};
  int steps = 0;

  void step() {
    std::mt19937 random(seed_);
    const int from = steps++ * perState;
    std::vector<BoolForm> pool;
    for (int v = 1; v <= 2 * perState; ++v) pool.push_back(lit(from + v));
    const auto pick = [&] {
      const BoolForm f = pool[random() % pool.size()];
      return random() % 2 == 0 ? f : neg(f);
    };
    for (int i = 0; i < 12; ++i) {
      const BoolForm a = pick();
      const BoolForm b = pick();
      const BoolForm f = random() % 3 == 0 ? equ(a, b) : con(a, b);
      if (f.nr != BoolForm::trueNr && isNodeNr(f.nr)) pool.push_back(f);
    }
    path = con(path, pool.back());
  }

  void stepsTo(int count) {
    while (steps < count) step();
  }

 private:
  unsigned seed_;
};

// The nodes of step nr `step` as a block; the chain is there then.
inline Distance lastBlock(Chain& chain, int step) {
  chain.stepsTo(step - 1);
  const std::size_t before = BoolForm::tv.size();
  chain.stepsTo(step);
  return {perState, static_cast<int>(BoolForm::tv.size() - before)};
}

// The chain that step by step gives, for `steps` steps, with all but the first `built` copied where
// steps repeat; they may not.
inline Chain copiedChain(unsigned seed, int steps, int built = 4) {
  Chain chain(seed);
  const Distance up = lastBlock(chain, built);
  if (!BoolForm::lastRepeat(up)) return chain;
  BoolForm::repeatLast(up, steps - built);
  chain.path = moved(chain.path, (steps - built) * up);
  chain.steps = steps;
  return chain;
}
