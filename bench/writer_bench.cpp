// Clause lines out: a stream flushed after every line, a stream left to its buffer, and the line
// writer's blocks, all into one file.

#include <fstream>

#include "bench/ratios.hpp"
#include "boolform/linewriter.hpp"

namespace {

constexpr const char* file = "writer_bench.out";

template <class WriteLine>
void lines(benchmark::State& state, WriteLine writeLine) {
  for (int i = 0; i < static_cast<int>(state.range(0)); ++i) writeLine(-i - 1, i + 400, i + 77000);
}

void flushed(benchmark::State& state) {
  for (auto _ : state) {
    std::ofstream out(file);
    lines(state,
          [&](int a, int b, int c) { out << a << ' ' << b << ' ' << c << " 0" << std::endl; });
  }
}

void streamed(benchmark::State& state) {
  for (auto _ : state) {
    std::ofstream out(file);
    lines(state, [&](int a, int b, int c) { out << a << ' ' << b << ' ' << c << " 0\n"; });
  }
}

void blocks(benchmark::State& state) {
  for (auto _ : state) {
    std::ofstream out;
    out.rdbuf()->pubsetbuf(nullptr, 0);
    out.open(file);
    LineWriter writer(out);
    lines(state, [&](int a, int b, int c) {
      for (const int literal : {a, b, c}) {
        writer.number(literal);
        writer.character(' ');
      }
      writer.character('0');
      writer.endLine();
    });
  }
}

BENCHMARK(flushed)->Name("write:flush every line")->Arg(1000000);
BENCHMARK(streamed)->Name("write:buffered stream")->Arg(1000000);
BENCHMARK(blocks)->Name("write:line writer")->Arg(1000000);

}  // namespace

int main(int argc, char** argv) {
  const int status = runBenchmarks(argc, argv);
  std::remove(file);
  return status;
}
