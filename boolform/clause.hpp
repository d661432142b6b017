// Clauses of at most three literals.

#pragma once

#include <compare>
#include <cstdint>
#include <span>

// Three literal slots. 0 marks an empty slot; empty slots stand in front.
struct Clause {
  int first;
  int second;
  int third;

  Clause() = default;  // slots unset

  // The normal form of (a or b or c): ordered by absolute value, a repeated literal dropped. A
  // literal beside its own negation stays, in the order given.
  Clause(int a, int b, int c);

  friend auto operator<=>(const Clause&, const Clause&) = default;  // lexicographic, signed
};

// The second and third literal of a clause as one number that is ordered as they are.
class ClauseTail {
 public:
  ClauseTail() = default;  // unset
  ClauseTail(int second, int third) : bits_(std::uint64_t{biased(second)} << 32 | biased(third)) {}
  int second() const { return static_cast<int>(biased(static_cast<int>(bits_ >> 32))); }
  int third() const { return static_cast<int>(biased(static_cast<int>(bits_))); }
  friend auto operator<=>(const ClauseTail&, const ClauseTail&) = default;

 private:
  static std::uint32_t biased(int literal) {
    return static_cast<std::uint32_t>(literal) ^ 1U << 31;
  }
  std::uint64_t bits_;
};

// The clause of this leading literal and what comes after it: of three literals, or of two, whose
// tail is the third slot.
inline Clause clauseOf(int leading, ClauseTail tail) {
  Clause c;
  c.first = leading;
  c.second = tail.second();
  c.third = tail.third();
  return c;
}

inline Clause clauseOf(int leading, int tail) {
  Clause c;
  c.first = 0;
  c.second = leading;
  c.third = tail;
  return c;
}

// Who takes clauses in runs: sink.one(clause), and sink.run(leading, tails) for some with the same
// leading literal, ascending. This one hands them on one by one, to take(const Clause&).
template <class Take>
struct OneByOne {
  Take& take;
  void one(const Clause& clause) { take(clause); }
  template <class Tail>
  void run(int leading, std::span<const Tail> tails) {
    for (const Tail tail : tails) take(clauseOf(leading, tail));
  }
};
