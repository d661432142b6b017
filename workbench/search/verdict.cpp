#include "workbench/search/verdict.hpp"

#include <utility>

#include "workbench/base/printable.hpp"

namespace tpn {

namespace {

std::string noRunUpTo(int k) {
  return "no run of up to " + std::to_string(k) + " steps reaches it";
}

std::string reachableText(const Verdict& v) {
  std::string text = "reachable (k = " + std::to_string(v.bound) + ")\n";
  for (const auto& [bound, reason] : v.unanswered)
    text += "k = " + std::to_string(bound) + " was not answered: " + printable(reason) + "\n";
  return v.shortest ? text : text + "a shorter run may exist\n";
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

std::string headline(const Verdict& v) {
  switch (v.answer) {
    case Verdict::reachable:
      return reachableText(v);
    case Verdict::unreached:
      return noRunUpTo(v.bound) + (v.reason.empty() ? "" : ": " + printable(v.reason)) + "\n";
    case Verdict::unreachable:
      return "unreachable" + (v.reason.empty() ? "" : ": " + printable(v.reason)) + "\n";
    case Verdict::unknown:
      break;
  }
  return "unknown: " + printable(v.reason) + "; " +
         (v.bound > 0 ? noRunUpTo(v.bound) : "no bound was completed") + "\n";
}

std::string knownUpTo(int k) { return k == 0 ? "" : "; " + noRunUpTo(k); }

}  // namespace tpn
