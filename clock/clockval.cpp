#include "clock/clockval.hpp"

#include <iostream>

namespace {

// c + 1 as the unsigned constant that the comparisons take.
unsigned above(int c) { return static_cast<unsigned>(c) + 1U; }

// Clock i as one fixed-point number, the fractional part in the low bits.
BoolFormVect fixedPoint(const ClockVal& v, int i) {
  return BoolFormVect(v.intPart(i), v.frPart(i));
}

// v's integer part is u's, or c + 1 where u's is above c.
BoolForm collapsed(const ClockVal& u, const ClockVal& v, int i, int c) {
  const BoolForm within = le(u.intPart(i), above(c));
  const BoolForm becomesTop = eq(v.intPart(i), above(c));
  const BoolForm collapses = con(neg(within), becomesTop);
  const BoolForm same = eq(v.intPart(i), u.intPart(i));
  const BoolForm stays = con(within, same);
  return dis(collapses, stays);
}

// Fractional part i moves towards the even number on its side of the split.
BoolForm evened(const ClockVal& u, const ClockVal& v, int i, const BoolFormVect& unit) {
  const BoolFormVect& from = u.frPart(i);
  const BoolFormVect& to = v.frPart(i);

  const BoolForm belowSplit = le(from, u.frSplit);
  const BoolForm positive = from.gez();
  const BoolForm low = con(positive, belowSplit);
  const BoolFormVect next = from + unit;
  const BoolForm grown = eq(to, next);
  const BoolForm grows = con(low, grown);

  const BoolForm shrunk = isEvenPred(to, from);
  const BoolForm aboveSplit = ge(from, u.frSplit);
  const BoolForm shrinks = con(aboveSplit, shrunk);

  const BoolForm moves = dis(grows, shrinks);
  const BoolForm toZero = to.zero();
  const BoolForm fromZero = from.zero();
  const BoolForm staysZero = con(fromZero, toZero);
  return dis(staysZero, moves);
}

}  // namespace

ClockVal::ClockVal(int nrOfClocks, int intBits, int frBits, int first)
    : n(nrOfClocks),
      intPLen(intBits),
      frPLen(frBits),
      frSplit(frBits, first + intBits * (nrOfClocks + 1)) {
  const int firstFraction = first + intPLen * (n + 1) + frPLen;
  intParts.reserve(static_cast<std::size_t>(n) + 1);
  frParts.reserve(static_cast<std::size_t>(n) + 1);
  for (int i = 0; i <= n; ++i) {
    intParts.emplace_back(intPLen, first + intPLen * i);
    frParts.emplace_back(frPLen, firstFraction + frPLen * i);
  }
}

BoolForm ClockVal::inOpen(int i, int c) const {
  assert(i > 0 && i <= n);
  const auto k = static_cast<unsigned>(c);
  const BoolForm fraction = frPart(i).gez();
  const BoolForm equal = eq(intPart(i), k);
  const BoolForm justAbove = con(equal, fraction);
  const BoolForm greater = ge(intPart(i), k);
  return dis(greater, justAbove);
}

BoolForm ClockVal::evenDiff(int /*k*/) const {
  BoolForm allOdd(true);
  for (int i = 1; i <= n; ++i) allOdd = con(allOdd, frPart(i).odd());
  BoolForm allEven(true);
  for (int i = 1; i <= n; ++i) allEven = con(allEven, frPart(i).even());
  return dis(allEven, allOdd);
}

BoolForm ClockVal::allProper(int k) const {
  BoolForm r(true);
  for (int i = 1; i <= n; ++i) {
    const BoolForm noFraction = eq(frPart(i), 0U);
    const BoolForm equal = eq(intPart(i), above(k));
    const BoolForm atTop = con(equal, noFraction);
    const BoolForm below = le(intPart(i), above(k));
    const BoolForm proper = dis(below, atTop);
    r = con(r, proper);
  }
  return r;
}

void ClockVal::show() const {
  for (int i = 1; i <= n; ++i) {
    intPart(i).show();
    frPart(i).show();
  }
  std::cout << std::endl;
}

BoolForm zeroClock(const ClockVal& v, int i) {
  const BoolForm fraction = v.frPart(i).zero();
  const BoolForm integer = v.intPart(i).zero();
  return con(integer, fraction);
}

BoolForm sameClock(const ClockVal& v1, const ClockVal& v2, int i) {
  const BoolForm fraction = eq(v1.frPart(i), v2.frPart(i));
  const BoolForm integer = eq(v1.intPart(i), v2.intPart(i));
  return con(integer, fraction);
}

BoolForm reset(const ClockVal& v1, const ClockVal& v2, const NumSet& x) {
  assert(v1.n == v2.n);
  BoolForm r(true);
  for (int i = 1; i <= v1.n; ++i) {
    const bool isReset = x.count(static_cast<unsigned>(i)) != 0;
    const BoolForm term = isReset ? zeroClock(v2, i) : sameClock(v1, v2, i);
    r = con(r, term);
  }
  return r;
}

BoolForm allZero(const ClockVal& v) {
  BoolForm r(true);
  for (int i = 1; i <= v.n; ++i) {
    const BoolForm term = zeroClock(v, i);
    r = con(r, term);
  }
  return r;
}

BoolForm eq(const ClockVal& v1, const ClockVal& v2) {
  assert(v1.n == v2.n);
  return reset(v2, v1, {});
}

BoolForm frPartsEq(const ClockVal& v1, const ClockVal& v2) {
  assert(v1.n == v2.n);
  BoolForm r(true);
  for (int i = 1; i <= v1.n; ++i) {
    const BoolForm same = eq(v1.frPart(i), v2.frPart(i));
    r = con(r, same);
  }
  return r;
}

BoolForm veryCleverJump(const ClockVal& u, const ClockVal& v, int c) {
  assert(u.n == v.n);
  const BoolFormVect delay = fixedPoint(u, 0);
  const BoolForm bounded = le(u.intPart(0), above(c));
  BoolForm advanced(true);
  for (int i = 1; i <= u.n; ++i) {
    const BoolFormVect sum = fixedPoint(u, i) + delay;
    const BoolForm reached = eq(fixedPoint(v, i), sum);
    advanced = con(advanced, reached);
  }
  return con(bounded, advanced);
}

BoolForm cleverAdjust(const ClockVal& u, const ClockVal& v, int c) {
  assert(u.n == v.n);
  assert(u.intPLen == v.intPLen);
  assert(u.frPLen == v.frPLen);
  if (u.n == 0) return BoolForm(true);  // nothing to adjust, and no fractional bit to look at

  BoolForm integers(true);
  for (int i = 1; i <= u.n; ++i) {
    const BoolForm term = collapsed(u, v, i, c);
    integers = con(integers, term);
  }
  const BoolFormVect unit(u.frPLen, ConstBits(1));
  BoolForm mixed = u.frSplit.odd();
  for (int i = 1; i <= u.n; ++i) {
    const BoolForm term = evened(u, v, i, unit);
    mixed = con(mixed, term);
  }
  const BoolForm uniform = u.evenDiff(c);
  const BoolForm whenMixed = con(neg(uniform), mixed);
  const BoolForm copied = frPartsEq(u, v);
  const BoolForm whenUniform = con(uniform, copied);
  const BoolForm fractions = dis(whenUniform, whenMixed);
  return con(integers, fractions);
}
