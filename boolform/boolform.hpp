// Propositional formulas: the handle, the process-wide store behind it, the constructors.
//
// A formula is one signed 32-bit number:
//
//             0        false
//   -2147483648        true
//        v,  -v        problem variable v and its negation, 1 <= v <= 999999
//        n,  -n        store node n and its negation, n >= 1000001
//
// Negation is the sign; there is no negation node. A node is a conjunction or an equivalence of two
// operands and equal nodes exist once, so equal formulas share one number. The constructors below
// bring operands into canonical order before they ask the store. Nodes are numbered in the order of
// their creation and the numbers reach the written clause file: two sub-formulas are therefore
// never built inside one argument list (C++ leaves the order of arguments open) but as named
// locals, in the order that counts. That rule holds in every folder.
//
// The store grows until it is emptied: a number, once given, stays valid until then. One thread
// only.

#pragma once

#include <algorithm>
#include <cassert>
#include <limits>
#include <stdexcept>
#include <vector>

#include "boolform/node.hpp"
#include "boolform/nodeindex.hpp"

class ClauseSet;

// Thrown where a formula needs more nodes than a signed 32-bit number can name.
struct NodeNumbersExhausted : std::length_error {
  NodeNumbersExhausted() : std::length_error("node numbers exhausted") {}
};

class BoolForm {
 public:
  int nr;

  explicit BoolForm(bool b) : nr(b ? trueNr : falseNr) {}
  explicit BoolForm(int variable) : nr(variable) { assert(nr > 0); }

  // The node (op, l, r), found or created; the key is taken as it stands. con and equ below are the
  // callers that give it canonical operands.
  BoolForm(const BoolForm& l, const BoolForm& r, int op);

  // A new node with this key, which no node may have yet; its number. The caller tells the index:
  // NodeIndex::leaveOut.
  static int newNode(const Triple& key);

  // The formula with this number; a node number must have been given out.
  static BoolForm ofNr(int number) {
    BoolForm f(false);
    f.nr = number;
    return f;
  }

  friend bool operator==(const BoolForm& a, const BoolForm& b) { return a.nr == b.nr; }

  // Is this the negation of `other`? Also true for (false, false) and (true, true), whose numbers
  // are their own negatives; the constructors rule constants out before they ask.
  bool isNeg(const BoolForm& other) const;

  // The highest node number given out so far, by any formula.
  int maxVarNr() const { return maxNr; }

  // Prints nothing: a hook for debugging.
  void show() const {}

  // Replaces nothing in `cnf` and adds the clauses that say "this formula holds", one node variable
  // for each reachable node. A constant clears `cnf` first: false leaves the empty clause, true
  // leaves nothing.
  void toCNF(ClauseSet& cnf) const;

  // The clauses of one definition; none depends on the formula it is called on.
  void addVar(ClauseSet& cnf, int x) const;                // x
  void addCon(ClauseSet& cnf, int l, int r, int n) const;  // n <-> (l and r)
  void addEqu(ClauseSet& cnf, int l, int r, int n) const;  // n <-> (l <-> r)
  void addNeg(ClauseSet& cnf, int a, int b) const;         // a <-> not b

  // Repetition: the last distance.nodes nodes are a block that occurs again and again, moved up by
  // `distance` each time. lastRepeat tells whether they are such a block: the same as the block
  // before, moved up; with no operand older than these two, and no variable in the store above
  // theirs. repeatLast appends `times` copies, and `rest` nodes of one more. The store knows one
  // repetition at most; after that lastRepeat is false.
  //
  // lastWillRepeat tells it of a block that nothing has repeated yet, where the caller is going to
  // ask for the same formulas once more, with all variables moved up: formulas about variables from
  // `shared` on, and conjunctions of the newest node, asked for when it was that, with such
  // formulas. The next block then is this one moved up, node by node. It is false where that cannot
  // be told from the nodes.
  static bool lastRepeat(const Distance& distance);
  static bool lastWillRepeat(const Distance& distance, int shared);
  static void repeatLast(const Distance& distance, int times, int rest = 0);

  // Gives all nodes and their memory back: of the formulas built before, only constants and
  // literals stay valid.
  static void emptyStore();

  static constexpr int falseNr = 0;
  static constexpr int trueNr = std::numeric_limits<int>::min();

  // The store. tv has maxNr - 1000000 elements; node n is described by tv[n - 1000001], and mti
  // maps that key to n.
  static inline int maxNr = varNrLimit;  // last node number given out
  static inline std::vector<Triple> tv;
  static inline NodeIndex mti;
  // The last number a node may get; lowered by tests only.
  static inline int lastNr = std::numeric_limits<int>::max();
};

inline bool BoolForm::isNeg(const BoolForm& other) const {
  if (other.nr == falseNr && nr == trueNr) return true;
  if (other.nr == trueNr && nr == falseNr) return true;
  return static_cast<unsigned>(nr) + static_cast<unsigned>(other.nr) == 0;
}

// --- Constructors. The rules are tried in the order given; at most one store lookup each. ---

inline BoolForm neg(const BoolForm& a) {
  if (a.nr == BoolForm::falseNr) return BoolForm(true);
  if (a.nr == BoolForm::trueNr) return BoolForm(false);
  return BoolForm::ofNr(-a.nr);
}

// The conjunction of the formulas or signals a and b; nodeWith(key) names a node.
template <class NodeWith>
int conjunction(int a, int b, NodeWith nodeWith) {
  if (a == BoolForm::trueNr) return b;
  if (a == BoolForm::falseNr || b == BoolForm::falseNr) return BoolForm::falseNr;
  if (b == BoolForm::trueNr) return a;
  if (a == b) return a;
  if (a == -b) return BoolForm::falseNr;
  return nodeWith(Triple{bfCon, std::min(a, b), std::max(a, b)});
}

BoolForm con(const BoolForm& a, const BoolForm& b);
BoolForm dis(const BoolForm& a, const BoolForm& b);
BoolForm equ(const BoolForm& a, const BoolForm& b);

// imp(x, neg(x)) is false, not neg(x): kept on purpose.
BoolForm imp(const BoolForm& a, const BoolForm& b);

inline BoolForm moved(const BoolForm& a, const Distance& up) {
  const bool constant = a.nr == BoolForm::falseNr || a.nr == BoolForm::trueNr;
  return constant ? a : BoolForm::ofNr(up.moved(a.nr));
}

BoolForm notequ(const BoolForm& a, const BoolForm& b);

// f with variable n replaced by the constant v, for constants and literals; asserts that f is no
// unnegated node. A negated occurrence of n is left unchanged.
BoolForm value(const BoolForm& f, int n, bool v);
