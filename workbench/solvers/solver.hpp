// An incremental SAT solver, as the searches see it: eight functions. Clauses and assumptions are
// given literal by literal, as in DIMACS: v or -v, v >= 1.
//
// A solver whose memory ran out has thrown std::bad_alloc, and does so in every later call; its
// memory is not given back.

#pragma once

#include <functional>
#include <memory>

namespace tpn {

class Solver {
 public:
  enum class Result { satisfiable, unsatisfiable, undecided };

  virtual ~Solver() = default;

  virtual void add(int literal) = 0;     // to the clause at hand; 0 ends it
  virtual void assume(int literal) = 0;  // holds in the next solve(), and in no other
  virtual void prefer(int literal) = 0;  // true, where models are free to choose
  virtual Result solve() = 0;
  virtual bool value(int literal) = 0;    // after satisfiable: in the model
  virtual bool failed(int literal) = 0;   // after unsatisfiable: an assumption that was needed
  virtual void limit(int conflicts) = 0;  // of the next solve()
  virtual void stop(const std::function<bool()>& whether) = 0;  // asked now and then in solve()

 protected:
  Solver() = default;
  Solver(const Solver&) = default;
  Solver& operator=(const Solver&) = default;
};

// What the solver is used for decides on its settings: a few long searches that pay for
// preprocessing, or thousands of short ones that do not.
enum class Use { longSearches, manyShortSearches };

// `learnt` is called for each clause it learns, about one a conflict.
std::unique_ptr<Solver> makeCadical(Use use, std::function<void()> learnt = {});

}  // namespace tpn
