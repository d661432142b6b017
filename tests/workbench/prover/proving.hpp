// A question to the prover with everything that helps it, and what its answer is worth.

#pragma once

#include <string>

#include "tests/workbench/proof/randomproofs.hpp"
#include "workbench/machine/linearclauses.hpp"
#include "workbench/proof/checker.hpp"
#include "workbench/proof/statement.hpp"
#include "workbench/prover/certify.hpp"
#include "workbench/runs/replay.hpp"
#include "workbench/runs/schedule.hpp"

namespace tpn {

struct Proving {
  bool symmetric = true;
  bool invariants = true;
  std::vector<std::int64_t> delays{1};
  std::size_t mostImages = 200000;
  std::function<bool()> stop = [] { return false; };
};

struct Proved {
  ProverResult result;
  Certificate certificate;  // where the answer is "unreachable"
};

inline Proved proved(const Network& net, const Goal& goal, const Proving& how) {
  const Machine machine = makeMachine(net);
  const StateLayout layout = StateLayout::capped(machine);
  const StateFormula formula = propertyFormula(net, machine, layout, goal);
  std::vector<Symmetry> symmetric;
  if (how.symmetric) symmetric = symmetries(machine);
  std::vector<Orbits::Permutation> permutations;
  for (const Symmetry& s : symmetric) permutations.push_back(permutationOf(machine, layout, s));
  std::vector<PlaceInvariant> invariants;
  if (how.invariants) invariants = placeInvariants(machine);
  LinearClauses linear = linearClauses(machine, layout, invariants);
  ProverOptions options{how.delays, std::move(linear.clauses), linear.helpers, how.mostImages};
  Proved answer{prove(machine, layout, formula, Orbits(permutations), options, how.stop, {}), {}};
  if (answer.result.answer == ProverResult::unreachable)
    answer.certificate = certificateOf(machine, layout, answer.result, invariants, symmetric);
  return answer;
}

// What is wrong with an answer, or empty.
inline std::string wrong(const Sample& s, const Proved& answer) {
  const ProverResult& result = answer.result;
  if (result.answer == ProverResult::undecided) return "undecided";
  if ((result.answer == ProverResult::unreachable) != s.never) return "another answer";
  if (s.never) return recheck(s.net, s.goal, answer.certificate, {}).complaint;
  Run run{{}, result.transitions.size()};
  for (std::size_t i = 0; i < run.goal; ++i)
    run.steps.push_back({Rational(result.delays[i] * unitOfTime(s.net)), result.transitions[i]});
  const std::string complaint = replay(s.net, s.goal, run).complaint;
  if (!complaint.empty() || asksWhatComes(s.goal)) return complaint;
  const auto earliest = schedule(s.net, result.transitions, run.goal);
  return earliest ? replay(s.net, s.goal, *earliest).complaint
                  : "transitions that cannot fire one after the other";
}

}  // namespace tpn
