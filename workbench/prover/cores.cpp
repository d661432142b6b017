#include "workbench/prover/cores.hpp"

namespace tpn {

bool Cores::block(const Cube& cube, const Processes& about, std::size_t level) {
  constexpr int rounds = 3;  // each with more processes
  Processes near = about;
  for (int round = 0; round < rounds; ++round) {
    const Cube core = nearness_.part(cube, near);
    if (core.size() == cube.size()) return false;
    Attempt made = attempt(core, near, level);
    if (made.blocked) return true;
    if (made.met == near) return false;
    near = std::move(made.met);
  }
  return false;
}

Cores::Attempt Cores::attempt(const Cube& core, const Processes& about, std::size_t level) {
  if (level == 0 || words_.holdsInitially(core)) return {false, about};
  const auto known = reached_.find(core);
  if (known != reached_.end() && known->second.first <= level) return {false, known->second.second};
  checkpoint_();
  for (;;) {
    Cube cube = core;
    const auto before = blocking_.intoFrom(cube, level);
    if (!before) {
      blocking_.exclude(cube, level, nearness_.distances(core, about));
      return {true, {}};
    }
    const Processes further = nearness_.with(about, before->way);
    Attempt made = attempt(nearness_.part(before->cube, further), further, level - 1);
    if (made.blocked) continue;
    reached_[core] = {level, made.met};
    return made;
  }
}

}  // namespace tpn
