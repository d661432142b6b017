// The clause set against a tree and against std::sort: bringing the clauses of many nodes in order.

#include <algorithm>
#include <random>
#include <set>

#include "bench/ratios.hpp"
#include "boolform/clause.hpp"

namespace {

// Clauses as the conversion makes them, one conjunction after the other.
std::vector<Clause> clauses(int count) {
  std::mt19937 random(1);
  std::vector<Clause> result;
  for (int n = 1000100; static_cast<int>(result.size()) < count; ++n) {
    const auto operand = [&] {
      const int nr = random() % 4 == 0 ? 1 + n % 900000 : n - 1 - static_cast<int>(random() % 99);
      return (random() & 1U) != 0 ? nr : -nr;
    };
    const int left = operand();
    const int right = operand();
    result.emplace_back(-n, left, 0);
    result.emplace_back(-n, right, 0);
    result.emplace_back(-left, -right, n);
  }
  return result;
}

void tree(benchmark::State& state) {
  const std::vector<Clause> source = clauses(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const std::set<Clause> set(source.begin(), source.end());
    benchmark::DoNotOptimize(set.size());
  }
}

void sorted(benchmark::State& state) {
  const std::vector<Clause> source = clauses(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    std::vector<Clause> copy = source;
    std::sort(copy.begin(), copy.end());
    benchmark::DoNotOptimize(std::unique(copy.begin(), copy.end()));
  }
}

void clauseSet(benchmark::State& state) {
  const std::vector<Clause> source = clauses(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    ClauseSet set;
    set.reserve(source.size());
    for (const Clause& c : source) set.insert(c);
    benchmark::DoNotOptimize(set.size());
  }
}

BENCHMARK(tree)->Name("order:tree")->Arg(100000)->Arg(1000000);
BENCHMARK(sorted)->Name("order:std sort")->Arg(100000)->Arg(1000000)->Arg(10000000);
BENCHMARK(clauseSet)->Name("order:clause set")->Arg(100000)->Arg(1000000)->Arg(10000000);

}  // namespace

int main(int argc, char** argv) { return runBenchmarks(argc, argv); }
