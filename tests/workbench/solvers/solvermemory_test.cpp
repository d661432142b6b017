// The incremental solver where memory ends. Builds with the address sanitizer leave this file out:
// its shadow memory does not fit into the limit.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <initializer_list>
#include <new>

#include "workbench/solvers/solver.hpp"

namespace {

using tpn::Use;

// In a process with little memory: 0 where every call after the first failure fails alike.
int failingSolver() {
  const rlimit little{std::size_t{64} << 20, RLIM_INFINITY};
  if (setrlimit(RLIMIT_AS, &little) != 0) return 2;
  auto solver = tpn::makeCadical(Use::longSearches, [] {});
  solver->stop([] { return false; });
  try {
    for (int v = 1;; ++v)
      for (const int literal : {v, v + 1, -(v + 2), 0}) solver->add(literal);
  } catch (const std::bad_alloc&) {
  }
  int refused = 0;
  for (const std::function<void()>& call : std::initializer_list<std::function<void()>>{
           [&] { solver->add(1); }, [&] { solver->assume(1); }, [&] { solver->solve(); },
           [&] { solver->value(1); }, [&] { solver->failed(1); }, [&] { solver->limit(1); },
           [&] { solver->stop({}); }}) {
    try {
      call();
    } catch (const std::bad_alloc&) {
      ++refused;
    }
  }
  solver.reset();
  return refused == 7 ? 0 : 1;
}

TEST(CadicalWithoutMemory, IsNotCalledAgain) {
  const pid_t child = fork();
  if (child == 0) _exit(failingSolver());
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
  EXPECT_EQ(WEXITSTATUS(status), 0);
}

}  // namespace
