#include "workbench/proof/checker.hpp"

#include <algorithm>
#include <memory>
#include <optional>

#include "workbench/network/shown.hpp"
#include "workbench/proof/orbits.hpp"
#include "workbench/proof/plainchecks.hpp"
#include "workbench/proof/scaled.hpp"
#include "workbench/proof/steps.hpp"
#include "workbench/proof/vacuity.hpp"

namespace tpn {

namespace {

// A transition that moves processes of a clause, as the clause sees it. A move that does not reset
// leaves all as it is.
class Touched {
 public:
  Touched(const AtomClause& clause, const Transition& t) {
    for (const Atom& atom : clause) {
      const auto move = std::find_if(t.moves.begin(), t.moves.end(), [&](const Move& m) {
        return m.process == atom.process && m.resets;
      });
      if (move == t.moves.end()) {
        untouched_.push_back(atom);
        continue;
      }
      any_ = true;
      falseBefore_ = falseBefore_ && atom.kind == Atom::location && !value(atom, move->source);
      trueAfter_ = trueAfter_ || value(atom, move->target);
    }
  }

  // Can it make the clause false? Not where it leaves it alone, makes one of its atoms true, or
  // finds and leaves all those that it touches false.
  bool threatens() const { return any_ && !trueAfter_ && !falseBefore_; }

  const AtomClause& untouched() const { return untouched_; }

 private:
  // Of an atom about a process that is in this location, its clock at 0.
  static bool value(const Atom& atom, int location) {
    return (atom.kind == Atom::location && atom.value == location) == atom.positive;
  }

  AtomClause untouched_;
  bool any_ = false;
  bool falseBefore_ = true;
  bool trueAfter_ = false;
};

class Checker {
 public:
  Checker(const Network& scaled, const Certificate& certificate, const std::vector<AtomClause>& all,
          const std::function<bool()>& stop, const Checkpoint& checkpoint)
      : net_(scaled),
        checkpoint_(checkpoint),
        solver_(makeCadical(Use::manyShortSearches)),
        state_(net_, thresholds(net_, all), *solver_),
        steps_(net_, state_) {
    solver_->stop(stop);
    for (std::size_t i = 0; i < all.size(); ++i) {
      checkpoint.at(i);
      state_.add(state_.literals(all[i]));
    }
    for (const LinearInvariant& invariant : certificate.linear) {
      checkpoint();
      state_.assertLinear(invariant);
    }
  }

  // What is wrong, or empty.
  std::string complaint(const Goal& goal, const std::vector<AtomClause>& representatives) {
    for (const AtomClause& clause : representatives) {
      std::string found = unitComplaint(clause);
      if (found.empty()) found = transitionComplaint(clause);
      if (!found.empty()) return found;
    }
    return possible({goalLiteral(net_, goal, state_)}) ? "a goal state is inside" : "";
  }

 private:
  bool possible(const std::vector<int>& assumptions) {
    checkpoint_();
    for (const int literal : assumptions) solver_->assume(literal);
    const Solver::Result result = solver_->solve();
    if (result == Solver::Result::undecided) throw Interrupted();
    return result == Solver::Result::satisfiable;
  }

  std::string unitComplaint(const AtomClause& clause) {
    if (std::none_of(clause.begin(), clause.end(),
                     [](const Atom& a) { return a.kind == Atom::clock && !a.positive; }))
      return "";  // time makes nothing else false
    std::vector<int> assumptions{steps_.unitPasses()};
    for (const Atom& atom : clause) assumptions.push_back(-state_.literalAfterUnit(atom));
    return possible(assumptions) ? "a unit of time leads outside: " + text(net_, clause) : "";
  }

  std::string transitionComplaint(const AtomClause& clause) {
    for (std::size_t t = 0; t < net_.transitions.size(); ++t) {
      const Touched touched(clause, net_.transitions[t]);
      if (!touched.threatens()) continue;
      std::vector<int> assumptions = steps_.firing(t);
      for (const Atom& atom : touched.untouched()) assumptions.push_back(-state_.literal(atom));
      if (possible(assumptions))
        return "transition " + shownTransition(net_, t) + " leads outside: " + text(net_, clause);
    }
    return "";
  }

  const Network& net_;
  const Checkpoint& checkpoint_;
  std::unique_ptr<Solver> solver_;
  StateClauses state_;
  StepConditions steps_;
};

std::string complaintAbout(const Network& net, const Goal& goal, const Certificate& certificate,
                           const std::function<bool()>& stop) {
  const Checkpoint checkpoint(stop);
  std::string complaint = shapeComplaint(net, certificate);
  if (complaint.empty()) complaint = symmetryComplaint(net, certificate.generators, checkpoint);
  if (complaint.empty()) complaint = linearComplaint(net, certificate.linear, checkpoint);
  if (!complaint.empty()) return complaint;
  const std::vector<AtomClause> all =
      closed(certificate.clauses, certificate.generators, checkpoint);
  complaint = initialComplaint(net, all);
  if (complaint.empty()) complaint = vacuityComplaint(net, all, checkpoint);
  if (!complaint.empty()) return complaint;
  const Network scaled = inUnits(net);
  Checker checker(scaled, certificate, all, stop, checkpoint);
  return checker.complaint(goal, certificate.clauses);
}

}  // namespace

Recheck recheck(const Network& net, const Goal& goal, const Certificate& certificate,
                const std::function<bool()>& stop) {
  try {
    const std::string complaint = complaintAbout(net, goal, certificate, stop);
    return {complaint.empty() ? Recheck::confirmed : Recheck::refuted, complaint};
  } catch (const Interrupted&) {
    return {Recheck::stopped, ""};
  }
}

Recheck recheck(const Network& net, const Goal& goal, const CertificateFile& file,
                const std::function<bool()>& stop) {
  const Statement about = statement(net, goal);
  if (file.about.network != about.network)
    return {Recheck::refuted, "the certificate is about another network"};
  if (file.about.goal != about.goal)
    return {Recheck::refuted, "the certificate is about another goal"};
  if (file.about.unit != about.unit)
    return {Recheck::refuted, "the unit of time is " + std::to_string(about.unit) + ", not " +
                                  std::to_string(file.about.unit)};
  return recheck(net, goal, file.proof, stop);
}

}  // namespace tpn
