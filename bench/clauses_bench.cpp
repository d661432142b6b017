// The clauses of a formula in order: put into a tree, sorted as a list, or as definitions, which
// are ordered by counting. Each variant makes the clauses from the nodes and then looks at all of
// them in ascending order.

#include <algorithm>
#include <cstdlib>
#include <random>
#include <set>
#include <vector>

#include "bench/ratios.hpp"
#include "boolform/boolform.hpp"
#include "boolform/clauseset.hpp"

namespace {

constexpr int nodesPerVariable = 10;

// A new formula store with `count` nodes, each an operand of the next; the other operand is a
// recent node or variable. Returns the last.
int build(int count) {
  BoolForm::emptyStore();
  std::mt19937 random(1);
  const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  BoolForm last(1);
  for (int i = 1; i <= count; ++i) {
    const bool variable = i < 100 || below(4) == 0;
    const int nr = variable ? 2 + i / nodesPerVariable + below(30) : varNrLimit + i - 2 - below(90);
    const BoolForm other = BoolForm::ofNr(below(2) == 0 ? nr : -nr);
    last = below(3) == 0 ? equ(last, other) : con(last, other);
  }
  return std::abs(last.nr);
}

// collect(const Clause&) for each clause of each node.
template <class Collect>
void define(Collect collect) {
  for (std::size_t i = 0; i < BoolForm::tv.size(); ++i) {
    const auto [op, l, r] = BoolForm::tv[i];
    const int n = firstNodeNr + static_cast<int>(i);
    if (op == bfCon) {
      collect(Clause(-n, l, 0));
      collect(Clause(-n, r, 0));
    } else {
      collect(Clause(-n, -l, r));
      collect(Clause(-n, l, -r));
      collect(Clause(l, r, n));
    }
    collect(Clause(-l, -r, n));
  }
}

template <class Clauses>
void look(const Clauses& clauses) {
  for (const Clause& c : clauses) benchmark::DoNotOptimize(c.third);
}

void tree(benchmark::State& state) {
  build(static_cast<int>(state.range(0)));
  while (state.KeepRunning()) {
    std::set<Clause> set;
    define([&](const Clause& c) { set.insert(c); });
    look(set);
  }
}

void sorted(benchmark::State& state) {
  build(static_cast<int>(state.range(0)));
  while (state.KeepRunning()) {
    std::vector<Clause> list;
    define([&](const Clause& c) { list.push_back(c); });
    std::sort(list.begin(), list.end());
    list.erase(std::unique(list.begin(), list.end()), list.end());
    look(list);
  }
}

void definitions(benchmark::State& state) {
  const int root = build(static_cast<int>(state.range(0)));
  while (state.KeepRunning()) {
    ClauseSet set;
    set.insertDefinitions(root, BoolForm::tv);
    set.forEach([](const Clause& c) { benchmark::DoNotOptimize(c.third); });
  }
}

BENCHMARK(tree)->Name("order:tree")->Arg(1000)->Arg(100000)->Arg(1000000);
BENCHMARK(sorted)->Name("order:std sort")->Arg(1000)->Arg(100000)->Arg(1000000);
BENCHMARK(definitions)->Name("order:definitions")->Arg(1000)->Arg(100000)->Arg(1000000);

}  // namespace

int main(int argc, char** argv) { return runBenchmarks(argc, argv); }
