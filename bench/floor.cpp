// The least that writing a clause file can cost: with the clauses in memory, in order, only numbers
// are turned into text and text is handed to the system. Reads a DIMACS file, writes floor.cnf in
// the current folder N times, a new file each time, and prints one line:
//
//     CPU CLAUSES     seconds of user and system time that the best of the writings took
//
// usage: floor FILE N

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr const char* file = "floor.cnf";

using Literals = std::array<int, 3>;  // 0 from the end of the clause on

struct Dimacs {
  std::string header;
  std::vector<Literals> clauses;
};

[[noreturn]] void fail(const std::string& why) {
  std::fprintf(stderr, "floor: %s\n", why.c_str());
  std::exit(1);
}

Dimacs read(const char* name) {
  std::ifstream in(name);
  Dimacs result;
  if (!std::getline(in, result.header)) fail(std::string("cannot read ") + name);
  result.header += '\n';
  std::ostringstream rest;
  rest << in.rdbuf();
  const std::string text = rest.str();
  Literals clause{};
  std::size_t literals = 0;
  const char* const end = text.data() + text.size();
  for (const char* at = text.data(); at != end;) {
    int literal = 0;
    const auto [next, error] = std::from_chars(at, end, literal);
    if (error != std::errc() || next == end) fail("no number where one should be");
    at = next + 1;
    if (literal == 0) {
      result.clauses.push_back(std::exchange(clause, Literals{}));
      literals = 0;
    } else {
      if (literals == clause.size()) fail("a clause of more than three literals");
      clause[literals++] = literal;
    }
  }
  return result;
}

void handOver(int out, const char* begin, const char* end) {
  while (begin != end) {
    const ssize_t written = ::write(out, begin, static_cast<std::size_t>(end - begin));
    if (written <= 0) fail("cannot write");
    begin += written;
  }
}

void write(const Dimacs& dimacs) {
  constexpr std::size_t blockSize = std::size_t{64} << 10;
  constexpr std::size_t longestLine = 40;
  static char block[blockSize];
  const int out = open(file, O_WRONLY | O_CREAT | O_TRUNC, 0666);
  if (out < 0) fail("cannot write");
  handOver(out, dimacs.header.data(), dimacs.header.data() + dimacs.header.size());
  char* to = block;
  for (const Literals& clause : dimacs.clauses) {
    for (const int literal : clause) {
      if (literal == 0) break;
      to = std::to_chars(to, block + blockSize, literal).ptr;
      *to++ = ' ';
    }
    *to++ = '0';
    *to++ = '\n';
    if (to > block + blockSize - longestLine) {
      handOver(out, block, to);
      to = block;
    }
  }
  handOver(out, block, to);
  if (close(out) != 0) fail("cannot write");
}

}  // namespace

int main(int argc, char** argv) {
  const long times = argc == 3 ? std::strtol(argv[2], nullptr, 10) : 0;
  if (times < 1) {
    std::fputs("usage: floor FILE N\n", stderr);
    return 2;
  }
  const Dimacs dimacs = read(argv[1]);
  std::clock_t best = 0;
  for (long i = 0; i < times; ++i) {
    unlink(file);
    const std::clock_t start = std::clock();
    write(dimacs);
    const std::clock_t took = std::clock() - start;
    best = i == 0 ? took : std::min(best, took);
  }
  std::printf("%.6f %zu\n", static_cast<double>(best) / CLOCKS_PER_SEC, dimacs.clauses.size());
}
