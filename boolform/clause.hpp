// Clauses of at most three literals.

#pragma once

#include <compare>

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
