// At most one of some literals: each of them alone, none of them, and no two.

#include "workbench/machine/atmostone.hpp"

#include <gtest/gtest.h>

#include "workbench/machine/sink.hpp"

namespace tpn {
namespace {

TEST(AtMostOne, LeavesEachAloneAndNone) {
  for (const int count : {1, 2, 5, 6, 7, 30, 200}) {
    const auto solver = makeCadical(Use::manyShortSearches);
    ClauseSink sink(*solver);
    std::vector<int> literals;
    for (int v = sink.fresh(count), i = 0; i < count; ++i) literals.push_back(v + i);
    addAtMostOne(sink, literals);
    for (int a = 0; a < count; ++a)
      for (int b = 0; b <= a; b += 1 + count / 20) {
        solver->assume(literals[static_cast<std::size_t>(a)]);
        solver->assume(literals[static_cast<std::size_t>(b)]);
        EXPECT_EQ(solver->solve() == Solver::Result::satisfiable, a == b) << a << " " << b;
      }
    for (const int literal : literals) solver->assume(-literal);
    EXPECT_EQ(solver->solve(), Solver::Result::satisfiable);
  }
}

}  // namespace
}  // namespace tpn
