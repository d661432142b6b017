// CaDiCaL behind the interface. Its names are used here and nowhere else.

#include <cadical.hpp>
#include <utility>

#include "workbench/solvers/solver.hpp"

namespace tpn {

namespace {

class Cadical final : public Solver, private CaDiCaL::Terminator {
 public:
  explicit Cadical(Use use) {
    solver_.set("quiet", 1);  // it would print a comment on standard output now and then
    if (use == Use::manyShortSearches) {
      for (const char* const option : {"inprocessing", "lucky", "walk"}) solver_.set(option, 0);
    }
  }

  void add(int literal) override { solver_.add(literal); }
  void assume(int literal) override { solver_.assume(literal); }
  void prefer(int literal) override { solver_.phase(literal); }
  Result solve() override {
    const int result = solver_.solve();
    if (result == 10) return Result::satisfiable;
    return result == 20 ? Result::unsatisfiable : Result::undecided;
  }
  bool value(int literal) override { return solver_.val(literal) > 0; }
  bool failed(int literal) override { return solver_.failed(literal); }
  void limit(int conflicts) override { solver_.limit("conflicts", conflicts); }
  void stop(const std::function<bool()>& whether) override {
    stop_ = whether;
    if (stop_) solver_.connect_terminator(this);
    if (!stop_) solver_.disconnect_terminator();
  }

 private:
  bool terminate() override { return stop_(); }

  CaDiCaL::Solver solver_;
  std::function<bool()> stop_;
};

}  // namespace

std::unique_ptr<Solver> makeCadical(Use use) { return std::make_unique<Cadical>(use); }

}  // namespace tpn
