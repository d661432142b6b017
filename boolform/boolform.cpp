#include "boolform/boolform.hpp"

#include <algorithm>
#include <cstdlib>

#ifdef NDEBUG
#error "assertions are part of the program's behaviour and stay on"
#endif

namespace {

bool isFalse(const BoolForm& a) { return a.nr == BoolForm::falseNr; }
bool isTrue(const BoolForm& a) { return a.nr == BoolForm::trueNr; }

}  // namespace

BoolForm::BoolForm(const BoolForm& l, const BoolForm& r, int op) : nr(falseNr) {
  assert(op == bfCon || op == bfEqu);
  const Triple key{op, l.nr, r.nr};
  int& slot = mti.slot(key, tv);
  if (slot == 0) {
    if (maxNr == lastNr) throw NodeNumbersExhausted();
    tv.push_back(key);
    slot = ++maxNr;
  }
  nr = slot;
}

void BoolForm::reserve(std::size_t nodes) {
  tv.reserve(nodes);
  mti.reserve(nodes, tv);
}

BoolForm con(const BoolForm& a, const BoolForm& b) {
  if (isTrue(a)) return b;
  if (isFalse(a) || isFalse(b)) return BoolForm(false);
  if (isTrue(b)) return a;
  if (a == b) return a;
  if (a.isNeg(b)) return BoolForm(false);
  return a.nr < b.nr ? BoolForm(a, b, bfCon) : BoolForm(b, a, bfCon);
}

// No rules of its own: folding the negated operands as a conjunction decides every case the same.
BoolForm dis(const BoolForm& a, const BoolForm& b) { return neg(con(neg(a), neg(b))); }

BoolForm equ(const BoolForm& a, const BoolForm& b) {
  if (isTrue(a)) return b;
  if (isFalse(a)) return neg(b);
  if (isFalse(b)) return neg(a);
  if (isTrue(b)) return a;
  if (a == b) return BoolForm(true);
  if (a.isNeg(b)) return BoolForm(false);
  const auto [low, high] = std::minmax({std::abs(a.nr), std::abs(b.nr)});
  const BoolForm node(BoolForm::ofNr(low), BoolForm::ofNr(high), bfEqu);
  const bool signsDiffer = (a.nr < 0) != (b.nr < 0);
  return signsDiffer ? neg(node) : node;
}

BoolForm imp(const BoolForm& a, const BoolForm& b) {
  if (isTrue(a)) return b;
  if (isFalse(a)) return BoolForm(true);
  if (isFalse(b)) return neg(a);
  if (isTrue(b)) return BoolForm(true);
  if (a == b) return BoolForm(true);
  if (a.isNeg(b)) return BoolForm(false);
  return dis(neg(a), b);
}

BoolForm notequ(const BoolForm& a, const BoolForm& b) { return neg(equ(a, b)); }

BoolForm value(const BoolForm& f, int n, bool v) {
  if (isTrue(f) || isFalse(f)) return f;
  assert(f.nr <= varNrLimit);
  return f.nr == n ? BoolForm(v) : f;
}
