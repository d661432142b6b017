// Adder, subtraction and the two successor relations.

#include "boolformvect/boolformvect.hpp"

// A ripple-carry adder. Carry and sum alternate bit by bit; no carry leaves the top bit.
BoolFormVect operator+(const BoolFormVect& x, const BoolFormVect& y) {
  assert(x.len == y.len);
  BoolFormVect r(x.len, ConstBits());
  if (x.len == 0) return r;
  r.bits[0] = notequ(x[0], y[0]);
  BoolForm carry(false);  // into the position below i
  for (int i = 1; i < x.len; ++i) {
    const BoolForm yAndCarry = con(y[i - 1], carry);
    const BoolForm xAndCarry = con(x[i - 1], carry);
    const BoolForm both = con(x[i - 1], y[i - 1]);
    const BoolForm throughX = dis(both, xAndCarry);
    carry = dis(throughX, yAndCarry);
    const BoolForm halfSum = notequ(x[i], y[i]);
    r.bits[static_cast<std::size_t>(i)] = notequ(halfSum, carry);
  }
  return r;
}

BoolFormVect succ(const BoolFormVect& x) {
  const BoolFormVect one(x.len, ConstBits(1));
  return x + one;
}

// Two's complement: x + (not y) + 1.
BoolFormVect operator-(const BoolFormVect& x, const BoolFormVect& y) {
  assert(x.len == y.len);
  BoolFormVect t = y;
  t.negAll();
  return x + succ(t);
}

// At some position i, y ends in 0 1..1 and x in 1 0..0, and all higher bits agree.
BoolForm isSucc(const BoolFormVect& x, const BoolFormVect& y) {
  assert(x.len == y.len);
  BoolForm r(false);
  for (int i = 0; i < y.len; ++i) {
    BoolForm yEnd = neg(y[i]);
    for (int j = 0; j < i; ++j) yEnd = con(yEnd, y[j]);
    BoolForm xEnd = x[i];
    for (int j = 0; j < i; ++j) xEnd = con(xEnd, neg(x[j]));
    const BoolForm higherAgree = eq(x, y, i + 1, y.len - i - 1);
    const BoolForm ends = con(yEnd, xEnd);
    const BoolForm here = con(ends, higherAgree);
    r = dis(r, here);
  }
  return r;
}

BoolForm isEvenPred(const BoolFormVect& x, const BoolFormVect& y) {
  assert(x.len == y.len);
  BoolForm r = con(x.even(), y.odd());  // neither creates a node
  for (int i = 1; i < y.len; ++i) {
    const BoolForm same = equ(x[i], y[i]);
    r = con(r, same);
  }
  return r;
}
