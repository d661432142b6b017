// A node of the formula store: its key, the numbers that tell nodes from variables, and the clauses
// that define it. boolform.hpp tells the numbers' meaning.

#pragma once

#include <compare>

enum BoolOp : int { bfCon = 1, bfEqu = 2 };

// Every variable number lies below this, every node number above.
constexpr int varNrLimit = 1000000;
constexpr int firstNodeNr = varNrLimit + 1;

constexpr bool isNodeNr(int nr) { return nr >= firstNodeNr || nr <= -firstNodeNr; }

// The key of an internal node: operator and the two operands' numbers (negative: negated).
struct Triple {
  int op;
  int left;
  int right;

  friend auto operator<=>(const Triple&, const Triple&) = default;  // lexicographic
};

// The clauses of n <-> (l op r), the same for store nodes, solver variables and whatever else
// stands for a literal and has a negation: sink(a, b) for those of two literals and sink(a, b, c)
// for those of three. a is n or its negation, b of l or r, c of r.
template <class Literal, class Sink>
constexpr void define(int op, Literal l, Literal r, Literal n, Sink&& sink) {
  if (op == bfCon) {
    sink(-n, l);
    sink(-n, r);
    sink(n, -l, -r);
  } else {
    sink(-n, -l, r);
    sink(-n, l, -r);
    sink(n, l, r);
    sink(n, -l, -r);
  }
}
