#include "workbench/search/programs.hpp"

#include <algorithm>
#include <cstring>
#include <iostream>
#include <list>
#include <memory>
#include <set>
#include <stdexcept>
#include <thread>

#include "workbench/base/child.hpp"
#include "workbench/base/files.hpp"
#include "workbench/encoding/decode.hpp"
#include "workbench/encoding/encode.hpp"
#include "workbench/search/questions.hpp"
#include "workbench/solvers/clausefile.hpp"
#include "workbench/solvers/solverprogram.hpp"

namespace tpn {

namespace {

// The last notes of a child that became the solver, and of one that needed none.
const std::string solving = "solving";
const std::string constant = "constant";

// One bound being asked: written down and solved in one child process.
struct Job {
  int k;
  std::unique_ptr<Child> child;
};

class ProgramCheck {
 public:
  ProgramCheck(const Network& net, const Property& property, const CheckOptions& options,
               Watch& watch)
      : net_(net),
        property_(property),
        options_(options),
        watch_(watch),
        program_(options.solver),
        questions_(options.keep) {
    encode(net, property, Layout::workbench, model_);
  }

  Verdict run() {
    try {
      askAll();
    } catch (const std::runtime_error& e) {
      // A run that was found is not lost because another bound failed.
      if (!found_) throw std::runtime_error(e.what() + knownUpTo(completed()));
      open_ = e.what();
    }
    return verdict();
  }

 private:
  void askAll() {
    for (startJobs(); !jobs_.empty(); startJobs()) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
      collect();
      if (!watch_.over()) continue;
      if (open_.empty()) open_ = watch_.reason();
      return jobs_.clear();
    }
  }

  bool mayStart() const {
    const bool within = options_.maxBound == 0 || next_ <= options_.maxBound;
    return within && !found_ && open_.empty() &&
           jobs_.size() < static_cast<std::size_t>(std::max(options_.jobs, 1));
  }

  void startJobs() {
    for (; mayStart(); next_ = boundAfter(next_)) {
      const int k = next_;
      if (!fitsClauseFile(model_, k)) {
        open_ = "a clause file for k = " + std::to_string(k) + " would need too many variables";
        return;
      }
      watch_.tell({k, 0, 0, -1, 0});
      jobs_.push_back({k, std::make_unique<Child>([this, k] { return ask(k); })});
    }
  }

  // In the child.
  int ask(int k) const {
    const std::string name = questions_.name(k);
    if (writeQuestion(model_, k, name))
      become(program_.command(name), solving, SolverProgram::outFile(name),
             SolverProgram::errFile(name));
    std::cerr << "\n" << constant << std::endl;
    return 0;
  }

  void collect() {
    for (auto job = jobs_.begin(); job != jobs_.end();) {
      if (job->child->running()) {
        ++job;
        continue;
      }
      const Job ended = std::move(*job);
      job = jobs_.erase(job);
      if (take(ended.k, answerOf(ended))) return dropAfter(ended.k);
    }
  }

  SolverAnswer answerOf(const Job& job) const {
    const std::string at = " at k = " + std::to_string(job.k);
    const std::string name = questions_.name(job.k);
    const std::string note = job.child->lastNote();
    if (job.child->signal() != 0)
      throw std::runtime_error((note == solving ? program_.name() : "writing the clause file") +
                               at + " was ended by a signal: " + strsignal(job.child->signal()));
    if (note == constant) return constantAnswer(readClauses(readFile(name + ".cnf")));
    if (note != solving) throw std::runtime_error(note);
    try {
      return program_.answer(name, job.child->exitStatus());
    } catch (const std::runtime_error& e) {
      throw std::runtime_error(e.what() + at);
    }
  }

  // True where larger bounds need not be asked any more.
  bool take(int k, const SolverAnswer& answer) {
    if (answer.status == SolverAnswer::unsatisfiable) {
      refuted_.insert(k);
      questions_.forget(k);
      return false;
    }
    if (answer.status == SolverAnswer::satisfiable) {
      found_ = k;
      path_ = pathOf(k, answer);
    } else {
      open_ = program_.name() + " gave up at k = " + std::to_string(k);
    }
    return true;
  }

  // A run of a larger bound is not asked for any more; one already found stays.
  void dropAfter(int k) {
    jobs_.remove_if([k](const Job& job) { return job.k > k; });
  }

  PathBits pathOf(int k, const SolverAnswer& answer) const {
    const auto length = static_cast<std::size_t>(model_.getSymStateLen());
    PathBits path(static_cast<std::size_t>(k) + 1);
    std::size_t variable = 0;
    for (std::vector<bool>& state : path)
      for (std::size_t j = 0; j < length; ++j) state.push_back(answer.value(++variable) > 0);
    return path;
  }

  // The last bound such that it and all before it have no run; 0 where there is none.
  int completed() const {
    int k = 0;
    while (refuted_.contains(boundAfter(k))) k = boundAfter(k);
    return k;
  }

  Verdict verdict() const {
    Verdict v;
    v.reason = open_;
    v.bound = completed();
    if (found_) {
      v.answer = Verdict::reachable;
      if (boundAfter(v.bound) == *found_) v.reason.clear();
      v.bound = *found_;
      v.run = decodeFound(net_, property_, model_, path_, *found_);
    } else if (open_.empty()) {
      v.answer = Verdict::unreached;
      v.bound = options_.maxBound;
    }
    return v;
  }

  const Network& net_;
  const Property& property_;
  const CheckOptions& options_;
  Watch& watch_;
  SolverProgram program_;
  Questions questions_;
  NetTimedModel model_;
  std::list<Job> jobs_;
  int next_ = 1;
  std::set<int> refuted_;
  std::optional<int> found_;  // the smallest satisfiable bound so far
  PathBits path_;             // its path
  std::string open_;          // why bounds remained unanswered; empty where none did
};

}  // namespace

Verdict checkWithProgram(const Network& net, const Property& property, const CheckOptions& options,
                         Watch& watch) {
  return ProgramCheck(net, property, options, watch).run();
}

}  // namespace tpn
