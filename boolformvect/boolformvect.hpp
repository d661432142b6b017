// Unsigned binary numbers whose bits are formulas.
//
// Bit 0 is the least significant one throughout. Constants come as ConstBits (bit i weighs 2^i) or,
// in comparisons, as a plain 32-bit number. Every function here creates its nodes in a fixed order:
// folds run from bit 0 upwards with the running result as the left operand, and inside one written
// expression f(A, B) the operand B with all its sub-formulas comes before A.

#pragma once

#include <bitset>
#include <vector>

#include "boolform/boolform.hpp"

using ConstBits = std::bitset<2048>;

class BoolFormVect {
 public:
  int len = 0;                 // number of bits
  std::vector<BoolForm> bits;  // len formulas

  BoolFormVect() = default;

  // The variables first .. first + length - 1; asserts "nr > 0" of each.
  BoolFormVect(int length, int first);

  // The constant bs; asserts that its significant bits fit into the length.
  BoolFormVect(int length, const ConstBits& bs);

  // The constant bs * 2^shift; asserts that it fits into the length.
  BoolFormVect(int length, const ConstBits& bs, int shift);

  // The concatenation: low's bits first, high's above them; high.len + low.len bits.
  BoolFormVect(const BoolFormVect& high, const BoolFormVect& low);

  int size() const { return len; }

  // Bit i; asserts 0 <= i < len.
  BoolForm operator[](int i) const {
    assert(i >= 0 && i < len);
    return bits[static_cast<std::size_t>(i)];
  }

  void negAll();  // replaces every bit by its negation
  void reset();   // sets every bit to false

  BoolForm zero() const;  // the value is 0
  BoolForm gez() const;   // the value is greater than 0

  // The parity of the value, of the difference to y. They read bit 0: len >= 1.
  BoolForm even() const;
  BoolForm odd() const;
  BoolForm evenDiff(const BoolFormVect& y) const;

  void show() const;  // BoolForm::show of each bit
};

// --- Comparisons. ge and le are strict: greater than, less than. ---

// Two vectors; all assert equal lengths. ge is quadratic in the length, and leq, geq, le with it.
BoolForm eq(const BoolFormVect& a1, const BoolFormVect& a2);
BoolForm ge(const BoolFormVect& a1, const BoolFormVect& a2);
BoolForm geq(const BoolFormVect& a1, const BoolFormVect& a2);
BoolForm le(const BoolFormVect& a1, const BoolFormVect& a2);
BoolForm leq(const BoolFormVect& a1, const BoolFormVect& a2);

// Bits from .. from + count - 1 agree.
BoolForm eq(const BoolFormVect& a1, const BoolFormVect& a2, int from, int count);

// A vector and a constant; linear. Bits of k at positions a.len and above are ignored, so le and
// its relatives speak truly of k < 2^len only; le asserts that the lowest set bit lies inside a.
BoolForm eq(const BoolFormVect& a, unsigned k);
BoolForm ge(const BoolFormVect& a, unsigned k);
BoolForm geq(const BoolFormVect& a, unsigned k);
BoolForm le(const BoolFormVect& a, unsigned k);
BoolForm leq(const BoolFormVect& a, unsigned k);

// Are the two bit for bit the same formulas? Asserts equal lengths.
bool operator==(const BoolFormVect& a1, const BoolFormVect& a2);

// --- Arithmetic modulo 2^len; all assert equal lengths. ---

BoolFormVect operator+(const BoolFormVect& x, const BoolFormVect& y);
BoolFormVect operator-(const BoolFormVect& x, const BoolFormVect& y);
BoolFormVect succ(const BoolFormVect& x);  // x + 1

// x = y + 1 without wrap-around: false where y is all ones. Quadratic.
BoolForm isSucc(const BoolFormVect& x, const BoolFormVect& y);

// x is even and y = x + 1: only bit 0 differs.
BoolForm isEvenPred(const BoolFormVect& x, const BoolFormVect& y);
