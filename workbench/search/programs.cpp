// A search with solver programs: each bound is a clause file, solved in a process of its own.
//
// A bound that gets no answer ends the asking, not what is under way: a run may be found there. It
// is then told which smaller bounds have no answer, and so whether the run is a shortest one.

#include <algorithm>
#include <cstring>
#include <list>
#include <map>
#include <memory>
#include <new>
#include <set>
#include <stdexcept>
#include <thread>

#include "workbench/base/child.hpp"
#include "workbench/base/files.hpp"
#include "workbench/encoding/decode.hpp"
#include "workbench/encoding/encode.hpp"
#include "workbench/search/keptfiles.hpp"
#include "workbench/search/strategy.hpp"
#include "workbench/solvers/boundfiles.hpp"
#include "workbench/solvers/clausefile.hpp"
#include "workbench/solvers/solverprogram.hpp"

namespace tpn {

namespace {

std::string at(int k) { return " at k = " + std::to_string(k); }

// One bound being asked.
struct Job {
  int k;
  std::unique_ptr<Child> child;
};

class ProgramCheck {
 public:
  ProgramCheck(const Question& question, const CheckOptions& options, Watch& watch)
      : question_(question),
        options_(options),
        watch_(watch),
        program_(options.solver),
        kept_(options.keep) {
    model_.checkpoint = checkpoint_;
  }

  Verdict run() {
    try {
      encode(question_.net, question_.property, LocationCoding::workbench, model_, checkpoint_);
      askAll();
    } catch (const Interrupted&) {
      giveUpAll();
    }
    if (found_) return reachable();
    // A failure is told where nothing was found.
    if (failure_) throw std::runtime_error(*failure_ + knownUpTo(completed()));
    Verdict v;
    v.answer = end_.empty() ? Verdict::unreached : Verdict::unknown;
    v.bound = end_.empty() ? options_.maxBound : completed();
    v.reason = end_;
    return v;
  }

 private:
  void askAll() {
    while (true) {
      startJobs();
      if (jobs_.empty() && !mayStart()) return;
      if (watch_.over()) return giveUpAll();
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
      collect();
    }
  }

  bool mayStart() const {
    const bool within = options_.maxBound == 0 || next_ <= options_.maxBound;
    return within && !found_ && end_.empty() &&
           jobs_.size() < static_cast<std::size_t>(std::max(options_.jobs, 1));
  }

  void startJobs() {
    for (; mayStart(); next_ = boundAfter(next_)) {
      if (!fitsClauseFile(model_, next_)) {
        end_ = "a clause file for k = " + std::to_string(next_) + " would need too many variables";
        return;
      }
      if (watch_.over()) return;
      watch_.tell({next_, 0, 0, -1, 0});
      attempt(next_, [this] { start(next_); });
    }
  }

  void start(int k) {
    kept_.begin(k);
    const std::string name = kept_.name(k);
    if (!writeClauses(model_, k, name))
      return take(k, constantAnswer(readClauses(readFile(clauseFile(name)))));
    jobs_.push_back({k, std::make_unique<Child>([&]() -> int {
                       become(program_.command(name), outFile(name), errFile(name));
                     })});
  }

  void collect() {
    for (auto job = jobs_.begin(); job != jobs_.end();)
      job = stillOpen(*job) ? std::next(job) : jobs_.erase(job);
  }

  // Ends what is under way for a larger bound than one with a run.
  bool stillOpen(const Job& job) {
    const int k = job.k;
    if (found_ && k > *found_) return false;
    bool ended = false;
    attempt(k, [&] {
      ended = !job.child->running();
      if (ended) take(k, answerOf(job));
    });
    return !ended && !unanswered_.contains(k);
  }

  // What fails about bound k leaves it without an answer.
  template <class Action>
  void attempt(int k, Action action) {
    try {
      action();
    } catch (const std::bad_alloc&) {
      fail(k, "the memory ran out");
    } catch (const std::runtime_error& e) {
      fail(k, e.what());
    }
  }

  void fail(int k, const std::string& reason) {
    leave(k, reason);
    if (!failure_) failure_ = reason + at(k);
  }

  void leave(int k, const std::string& reason) {
    unanswered_.emplace(k, reason);
    if (end_.empty()) end_ = reason + at(k);
  }

  void giveUpAll() {
    if (end_.empty()) end_ = watch_.reason();
    for (const Job& job : jobs_) leave(job.k, watch_.reason());
    jobs_.clear();
  }

  SolverAnswer answerOf(const Job& job) const {
    const Child& child = *job.child;
    if (child.signal() != 0)
      throw std::runtime_error(program_.name() +
                               " was ended by a signal: " + strsignal(child.signal()));
    const std::string note = child.lastNote();  // it did not become the program
    if (!note.empty()) throw std::runtime_error(note);
    return program_.answer(kept_.name(job.k), child.exitStatus());
  }

  void take(int k, const SolverAnswer& answer) {
    switch (answer.status) {
      case SolverAnswer::unsatisfiable:
        refuted_.insert(k);
        return kept_.forget(k);
      case SolverAnswer::satisfiable:
        found_ = k;
        path_ = pathBits(firstVariables(model_, k), static_cast<int>(model_.getSymStateLen()),
                         [&](int v) { return answer.value(static_cast<std::size_t>(v)) > 0; });
        return;
      case SolverAnswer::unknown:
        leave(k, program_.name() + " gave up");
    }
  }

  // The last bound such that it and all before it have no run; 0 where there is none.
  int completed() const {
    int k = 0;
    while (refuted_.contains(boundAfter(k))) k = boundAfter(k);
    return k;
  }

  // The run may reach its goal sooner than at its end: then it is of a smaller bound.
  Verdict reachable() const {
    Run run = decodeFound(question_.net, question_.property, model_, path_, *found_);
    Verdict v = reachableBy(std::move(run), false);
    v.shortest = v.bound <= boundAfter(completed());
    for (const auto& [k, reason] : unanswered_)
      if (k < *found_) v.unanswered.push_back({k, reason});
    return v;
  }

  const Question& question_;
  const CheckOptions& options_;
  Watch& watch_;
  Checkpoint checkpoint_{[this] { return watch_.over(); }};
  SolverProgram program_;
  KeptFiles kept_;
  NetTimedModel model_;
  std::list<Job> jobs_;
  int next_ = 1;
  std::set<int> refuted_;
  std::map<int, std::string> unanswered_;  // bound -> why
  std::optional<int> found_;               // the smallest satisfiable bound so far
  PathBits path_;                          // its path
  std::string end_;                     // why no further bound is asked; empty where none is open
  std::optional<std::string> failure_;  // the first
};

}  // namespace

Verdict checkWithProgram(const Question& question, const CheckOptions& options, Watch& watch) {
  return ProgramCheck(question, options, watch).run();
}

}  // namespace tpn
