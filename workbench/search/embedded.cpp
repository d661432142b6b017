#include "workbench/search/embedded.hpp"

#include <bit>
#include <cadical.hpp>
#include <stdexcept>
#include <thread>

#include "workbench/base/child.hpp"
#include "workbench/base/files.hpp"
#include "workbench/encoding/decode.hpp"
#include "workbench/encoding/encode.hpp"
#include "workbench/encoding/unrolling.hpp"
#include "workbench/search/questions.hpp"

namespace tpn {

namespace {

constexpr int satisfiable = 10;
constexpr int unsatisfiable = 20;

// Near what the solver's 32-bit numbers can name.
constexpr long mostVariables = 2000000000;

// Looks at the watch whenever the solver asks whether to go on, and counts what it learns: about
// one clause a conflict.
class Observer : public CaDiCaL::Terminator, public CaDiCaL::Learner {
 public:
  Observer(Watch& watch, Progress& progress) : watch_(watch), progress_(progress) {}

  bool terminate() override {
    watch_.tellAgain(progress_);
    return watch_.over();
  }
  bool learning(int /*size*/) override {
    ++progress_.conflicts;
    return false;
  }
  void learn(int /*literal*/) override {}

 private:
  Watch& watch_;
  Progress& progress_;
};

// The question of one bound in files, beside the one that the solver gets.
void writeInChild(const NetTimedModel& model, int k, const std::string& name, const Watch& watch) {
  Child writer([&] {
    writeQuestion(model, k, name);
    return 0;
  });
  while (writer.running()) {
    if (watch.over()) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  if (writer.exitStatus() != 0 && !watch.over()) throw std::runtime_error(writer.lastNote());
}

std::string answerText(const PathBits& path) {
  std::string text = "s SATISFIABLE\n";
  int variable = 0;
  for (const std::vector<bool>& state : path) {
    text += "v";
    for (const bool bit : state) {
      text += bit ? " " : " -";
      text += std::to_string(++variable);
    }
    text += "\n";
  }
  return text + "v 0\n";
}

class EmbeddedCheck {
 public:
  EmbeddedCheck(const Network& net, const Property& property, const CheckOptions& options,
                Watch& watch)
      : net_(net), property_(property), options_(options), watch_(watch) {
    if (!options.keep.empty()) questions_.emplace(options.keep);
    model_.checkpoint = checkpoint_;
    solver_.set("quiet", 1);  // it would print a comment on standard output now and then
    solver_.connect_terminator(&observer_);
    solver_.connect_learner(&observer_);
  }
  ~EmbeddedCheck() {
    solver_.disconnect_learner();
    solver_.disconnect_terminator();
  }
  EmbeddedCheck(const EmbeddedCheck&) = delete;
  EmbeddedCheck& operator=(const EmbeddedCheck&) = delete;

  Verdict run() {
    try {
      encode(net_, property_, Layout::workbench, model_, checkpoint_);
      return ask();
    } catch (const Interrupted&) {
      return unknown(watch_.reason());
    } catch (const std::runtime_error& e) {
      throw std::runtime_error(e.what() + knownUpTo(completed_));
    }
  }

 private:
  Verdict ask() {
    for (int k = 1;; k = boundAfter(k)) {
      if (options_.maxBound != 0 && k > options_.maxBound)
        return {Verdict::unreached, options_.maxBound, {}, ""};
      if (watch_.over()) return unknown(watch_.reason());
      if (unrolling_ && unrolling_->variables() > mostVariables)
        return unknown("no solver has more variables");
      progress_.bound = k;
      keepQuestion(k);
      const Outcome outcome = k == 1 ? askInitial() : askNext();
      if (outcome == found) return reachable(k);
      if (outcome == stuck) return allStuck(k);
      if (outcome == gaveUp) return unknown(watch_.reason());
      keepAnswer(k, "s UNSATISFIABLE\n");
      completed_ = k;
    }
  }

  enum Outcome { found, refuted, stuck, gaveUp };

  // Time may always stand still for a while at the start, so the first bound is about the initial
  // locations alone.
  Outcome askInitial() {
    watch_.tell(progress_);
    const auto length = static_cast<std::size_t>(model_.getSymStateLen());
    path_.assign(2, std::vector<bool>(length, false));
    return holds(property_, propositionsAt(net_, initialLocations(net_))) ? found : refuted;
  }

  Outcome askNext() {
    if (!unrolling_) unrolling_.emplace(model_, solver_, checkpoint_);
    const int goal = unrolling_->extend();
    progress_.variables = unrolling_->variables();
    progress_.clauses = unrolling_->clauses();
    watch_.tell(progress_);
    solver_.assume(goal);
    const int result = solver_.solve();
    if (result == satisfiable) {
      path_ = solverPath();
      return found;
    }
    if (result != unsatisfiable) return gaveUp;
    if (!solver_.failed(goal)) return stuck;
    // Every longer run begins with one of this length.
    solver_.add(-goal);
    solver_.add(0);
    return isStuck() ? stuck : refuted;
  }

  // Is there no run of this length at all? That the property is refuted need not tell, so it is
  // asked now and then, and not insisted on.
  bool isStuck() {
    constexpr int patience = 10000;  // conflicts
    if (!std::has_single_bit(unrolling_->states().size() / 3)) return false;
    solver_.limit("conflicts", patience);
    return solver_.solve() == unsatisfiable;
  }

  PathBits solverPath() {
    const auto length = static_cast<int>(model_.getSymStateLen());
    PathBits path;
    for (const int first : unrolling_->states()) {
      path.emplace_back();
      for (int j = 0; j < length; ++j) path.back().push_back(solver_.val(first + j) > 0);
    }
    return path;
  }

  void keepQuestion(int k) const {
    if (!questions_) return;
    if (!fitsClauseFile(model_, k))
      throw std::runtime_error("a clause file for k = " + std::to_string(k) +
                               " would need too many variables: it cannot be kept");
    writeInChild(model_, k, questions_->name(k), watch_);
  }
  void keepAnswer(int k, const std::string& text) const {
    if (questions_) writeFile(questions_->name(k) + ".out", text);
  }

  Verdict reachable(int k) const {
    keepAnswer(k, answerText(path_));
    return {Verdict::reachable, k, decodeFound(net_, property_, model_, path_, k), ""};
  }
  Verdict unknown(const std::string& reason) const {
    return {Verdict::unknown, completed_, {}, reason};
  }
  Verdict allStuck(int k) const {
    const std::size_t actions = unrolling_->states().size() / 3 - 1;
    keepAnswer(k, "s UNSATISFIABLE\n");
    return {Verdict::unreached,
            options_.maxBound != 0 ? options_.maxBound : k,
            {},
            "no run has more than " + std::to_string(actions) + " transitions"};
  }

  const Network& net_;
  const Property& property_;
  const CheckOptions& options_;
  Watch& watch_;
  Checkpoint checkpoint_{[this] { return watch_.over(); }};
  NetTimedModel model_;
  std::optional<Questions> questions_;
  Progress progress_{0, 0, 0, 0, 0};
  Observer observer_{watch_, progress_};
  CaDiCaL::Solver solver_;
  std::optional<Unrolling> unrolling_;
  PathBits path_;
  int completed_ = 0;
};

}  // namespace

Verdict checkEmbedded(const Network& net, const Property& property, const CheckOptions& options,
                      Watch& watch) {
  return EmbeddedCheck(net, property, options, watch).run();
}

}  // namespace tpn
