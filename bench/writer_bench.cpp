// Clause lines out, all into a file: a stream flushed after every line, a stream left to its
// buffer, std::to_chars into a block of 64 KiB, and the line writer with its own conversion of
// numbers.

#include <charconv>
#include <cstdio>
#include <fstream>
#include <memory>

#include "bench/ratios.hpp"
#include "boolform/linewriter.hpp"

namespace {

constexpr const char* file = "writer_bench.out";

// Three literals for each line, of three to seven digits.
template <class WriteLine>
void lines(benchmark::State& state, WriteLine writeLine) {
  for (int i = 0; i < static_cast<int>(state.range(0)); ++i)
    writeLine(-i - 100, i + 400, i + 77000);
}

void flushed(benchmark::State& state) {
  while (state.KeepRunning()) {
    std::ofstream out(file);
    lines(state,
          [&](int a, int b, int c) { out << a << ' ' << b << ' ' << c << " 0" << std::endl; });
  }
}

void streamed(benchmark::State& state) {
  while (state.KeepRunning()) {
    std::ofstream out(file);
    lines(state, [&](int a, int b, int c) { out << a << ' ' << b << ' ' << c << " 0\n"; });
  }
}

void openUnbuffered(std::ofstream& out) {
  out.rdbuf()->pubsetbuf(nullptr, 0);
  out.open(file);
}

void blocks(benchmark::State& state) {
  constexpr std::size_t blockSize = std::size_t{64} << 10;
  constexpr std::size_t longestLine = 40;
  const auto block = std::make_unique<char[]>(blockSize + longestLine);
  while (state.KeepRunning()) {
    std::ofstream out;
    openUnbuffered(out);
    char* to = block.get();
    lines(state, [&](int a, int b, int c) {
      for (const int literal : {a, b, c}) {
        to = std::to_chars(to, to + 11, literal).ptr;
        *to++ = ' ';
      }
      *to++ = '0';
      *to++ = '\n';
      if (to < block.get() + blockSize) return;
      out.write(block.get(), to - block.get());
      to = block.get();
    });
    out.write(block.get(), to - block.get());
  }
}

void lineWriter(benchmark::State& state) {
  while (state.KeepRunning()) {
    std::ofstream out;
    LineWriter writer(out);
    openUnbuffered(out);
    lines(state, [&](int a, int b, int c) {
      char* to = writer.line();
      for (const int literal : {a, b, c}) {
        to = putNumber(to, literal);
        *to++ = ' ';
      }
      *to++ = '0';
      writer.endLine(to);
    });
  }
}

BENCHMARK(flushed)->Name("write:flush every line")->Arg(1000)->Arg(1000000);
BENCHMARK(streamed)->Name("write:buffered stream")->Arg(1000)->Arg(1000000);
BENCHMARK(blocks)->Name("write:to_chars, 64 KiB")->Arg(1000)->Arg(1000000);
BENCHMARK(lineWriter)->Name("write:line writer")->Arg(1000)->Arg(1000000);

}  // namespace

int main(int argc, char** argv) {
  const int status = runBenchmarks(argc, argv);
  std::remove(file);
  return status;
}
