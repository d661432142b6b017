#include "boolformvect/boolformvect.hpp"

#include <bit>

namespace {

std::vector<BoolForm> allFalse(int len) {
  return std::vector<BoolForm>(static_cast<std::size_t>(len), BoolForm(false));
}

// The index of the highest set bit plus one, 0 for none.
int significantBits(const ConstBits& bs) {
  std::size_t missing = bs.count();
  std::size_t len = 0;
  while (missing > 0) missing -= bs[len++] ? 1 : 0;
  return static_cast<int>(len);
}

bool bitOf(unsigned k, int i) { return i < 32 && (k >> i & 1U) != 0; }

}  // namespace

BoolFormVect::BoolFormVect(int length, int first) : len(length) {
  bits.reserve(static_cast<std::size_t>(len));
  for (int i = 0; i < len; ++i) bits.emplace_back(first + i);
}

BoolFormVect::BoolFormVect(int length, const ConstBits& bs) : len(length), bits(allFalse(length)) {
  const int bsLen = significantBits(bs);
  assert(bsLen <= len);
  for (std::size_t i = 0; i < static_cast<std::size_t>(bsLen); ++i) bits[i] = BoolForm(bs[i]);
}

BoolFormVect::BoolFormVect(int length, const ConstBits& bs, int shift)
    : len(length), bits(allFalse(length)) {
  const int bsLen = significantBits(bs);
  assert(bsLen + shift <= len);
  for (std::size_t i = 0; i < static_cast<std::size_t>(bsLen); ++i)
    bits[i + static_cast<std::size_t>(shift)] = BoolForm(bs[i]);
}

BoolFormVect::BoolFormVect(const BoolFormVect& high, const BoolFormVect& low)
    : len(high.len + low.len) {
  bits.reserve(static_cast<std::size_t>(len));
  bits.insert(bits.end(), low.bits.begin(), low.bits.end());
  bits.insert(bits.end(), high.bits.begin(), high.bits.end());
}

void BoolFormVect::negAll() {
  for (BoolForm& b : bits) b = neg(b);
}

void BoolFormVect::reset() {
  for (BoolForm& b : bits) b = BoolForm(false);
}

BoolForm BoolFormVect::zero() const {
  BoolForm r(true);
  for (const BoolForm& b : bits) r = con(r, neg(b));
  return r;
}

BoolForm BoolFormVect::gez() const {
  BoolForm r(false);
  for (const BoolForm& b : bits) r = dis(r, b);
  return r;
}

BoolForm BoolFormVect::even() const { return neg(bits[0]); }

BoolForm BoolFormVect::odd() const { return bits[0]; }

BoolForm BoolFormVect::evenDiff(const BoolFormVect& y) const { return equ(bits[0], y.bits[0]); }

void BoolFormVect::show() const {
  for (const BoolForm& b : bits) b.show();
}

BoolForm eq(const BoolFormVect& a1, const BoolFormVect& a2) {
  assert(a1.len == a2.len);
  return eq(a1, a2, 0, a1.len);
}

BoolForm eq(const BoolFormVect& a1, const BoolFormVect& a2, int from, int count) {
  assert(a1.len == a2.len);
  BoolForm r(true);
  for (int i = from; i < from + count; ++i) {
    const BoolForm same = equ(a1[i], a2[i]);
    r = con(r, same);
  }
  return r;
}

// Some bit is 1 here and 0 there, and all higher bits agree. The higher bits are folded before the
// deciding bit is looked at, also where that one is false.
BoolForm ge(const BoolFormVect& a1, const BoolFormVect& a2) {
  assert(a1.len == a2.len);
  BoolForm r(false);
  for (int i = 0; i < a1.len; ++i) {
    const BoolForm higherAgree = eq(a1, a2, i + 1, a1.len - i - 1);
    const BoolForm decides = con(a1[i], neg(a2[i]));
    const BoolForm t = con(higherAgree, decides);
    r = dis(r, t);
  }
  return r;
}

BoolForm geq(const BoolFormVect& a1, const BoolFormVect& a2) {
  assert(a1.len == a2.len);
  const BoolForm greater = ge(a1, a2);
  const BoolForm equal = eq(a1, a2);
  return dis(equal, greater);
}

BoolForm le(const BoolFormVect& a1, const BoolFormVect& a2) {
  assert(a1.len == a2.len);
  return neg(geq(a1, a2));
}

BoolForm leq(const BoolFormVect& a1, const BoolFormVect& a2) {
  assert(a1.len == a2.len);
  return neg(ge(a1, a2));
}

BoolForm eq(const BoolFormVect& a, unsigned k) {
  BoolForm r(true);
  for (int i = 0; i < a.len; ++i) r = con(r, bitOf(k, i) ? a[i] : neg(a[i]));
  return r;
}

// From the least significant bit upwards, r says that the bits so far make a number below k's.
BoolForm le(const BoolFormVect& a, unsigned k) {
  if (k == 0) return BoolForm(false);
  const int lowest = std::countr_zero(k);
  BoolForm r = neg(a[lowest]);
  for (int i = lowest + 1; i < a.len; ++i) {
    if (bitOf(k, i)) {
      const BoolForm still = con(a[i], r);
      r = dis(neg(a[i]), still);
    } else {
      r = con(r, neg(a[i]));
    }
  }
  return r;
}

BoolForm leq(const BoolFormVect& a, unsigned k) {
  const BoolForm less = le(a, k);
  const BoolForm equal = eq(a, k);
  return dis(equal, less);
}

BoolForm geq(const BoolFormVect& a, unsigned k) { return neg(le(a, k)); }

BoolForm ge(const BoolFormVect& a, unsigned k) { return neg(leq(a, k)); }

bool operator==(const BoolFormVect& a1, const BoolFormVect& a2) {
  assert(a1.len == a2.len);
  return a1.bits == a2.bits;
}
