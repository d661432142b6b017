// CaDiCaL behind the interface. Its names are used here and nowhere else.
//
// Where its memory runs out, it is in the middle of something, and nothing but a call to it tells
// that it can no longer be used: it aborts the process then, from its destructor, too. So it is
// left alone from the first exception on, its memory included.

#include <cadical.hpp>
#include <cstdlib>
#include <new>
#include <utility>

#include "workbench/solvers/solver.hpp"

namespace tpn {

namespace {

class Cadical final : public Solver, private CaDiCaL::Terminator, private CaDiCaL::Learner {
 public:
  Cadical(Use use, std::function<void()> learnt)
      : solver_(std::make_unique<CaDiCaL::Solver>()), learnt_(std::move(learnt)) {
    solver_->set("quiet", 1);  // it would print a comment on standard output now and then
    // It reads the process's time around each phase of each search, by system calls that take the
    // longer the more threads there are: a third of a proof of ten thousands of searches. Nobody
    // asks for them, so few are taken, and from a clock that needs no call.
    solver_->set("profile", 0);
    solver_->set("realtime", 1);
    if (use == Use::manyShortSearches) {
      for (const char* const option : {"inprocessing", "lucky", "walk"}) solver_->set(option, 0);
    }
    if (learnt_) solver_->connect_learner(this);
  }

  ~Cadical() override {
    if (solver_ == nullptr) return;
    if (learnt_) solver_->disconnect_learner();
    if (stop_) solver_->disconnect_terminator();
  }
  Cadical(const Cadical&) = delete;
  Cadical& operator=(const Cadical&) = delete;

  void add(int literal) override {
    call([&] { solver_->add(literal); });
  }
  void assume(int literal) override {
    call([&] { solver_->assume(literal); });
  }
  void prefer(int literal) override {
    call([&] { solver_->phase(literal); });
  }
  Result solve() override {
    int result = 0;
    call([&] { result = solver_->solve(); });
    if (result == 10) return Result::satisfiable;
    return result == 20 ? Result::unsatisfiable : Result::undecided;
  }
  bool value(int literal) override {
    // Of the variable: what the sign of a negative literal's value means differs between releases.
    int value = 0;
    call([&] { value = solver_->val(std::abs(literal)); });
    return (value > 0) == (literal > 0);
  }
  bool failed(int literal) override {
    bool failed = false;
    call([&] { failed = solver_->failed(literal); });
    return failed;
  }
  void limit(int conflicts) override {
    call([&] { solver_->limit("conflicts", conflicts); });
  }
  void stop(const std::function<bool()>& whether) override {
    stop_ = whether;
    call([&] {
      if (stop_)
        solver_->connect_terminator(this);
      else
        solver_->disconnect_terminator();
    });
  }

 private:
  template <class Call>
  void call(Call made) {
    if (solver_ == nullptr) throw std::bad_alloc();
    try {
      made();
    } catch (...) {
      static_cast<void>(solver_.release());  // on purpose never freed
      throw;
    }
  }

  bool terminate() override { return stop_(); }
  bool learning(int /*size*/) override {
    learnt_();
    return false;
  }
  void learn(int /*literal*/) override {}

  std::unique_ptr<CaDiCaL::Solver> solver_;  // none once it has thrown
  std::function<bool()> stop_;
  std::function<void()> learnt_;
};

}  // namespace

std::unique_ptr<Solver> makeCadical(Use use, std::function<void()> learnt) {
  return std::make_unique<Cadical>(use, std::move(learnt));
}

}  // namespace tpn
