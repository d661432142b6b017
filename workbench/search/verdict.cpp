#include "workbench/search/verdict.hpp"

#include <utility>

#include "workbench/base/printable.hpp"

namespace tpn {

namespace {

std::string noRunUpTo(int k) {
  return "no run of up to " + std::to_string(transitionsWithin(k)) +
         " transitions (k = " + std::to_string(k) + ") does it";
}

}  // namespace

Run cutAtGoal(Run run) {
  run.steps.resize(run.goal);
  return run;
}

Verdict reachableBy(Run run, bool shortest) {
  Verdict v;
  v.answer = Verdict::reachable;
  v.bound = boundOf(run.goal);
  v.run = cutAtGoal(std::move(run));
  v.shortest = shortest;
  return v;
}

std::string knownUpTo(int k) { return k == 0 ? "" : "; " + noRunUpTo(k); }

}  // namespace tpn
