#include "boolform/boolform.hpp"

#include <algorithm>
#include <cstdlib>
#include <span>

#ifdef NDEBUG
#error "assertions are part of the program's behaviour and stay on"
#endif

namespace {

bool isFalse(const BoolForm& a) { return a.nr == BoolForm::falseNr; }
bool isTrue(const BoolForm& a) { return a.nr == BoolForm::trueNr; }

// The highest variable among the operands.
int maxVariable(std::span<const Triple> nodes) {
  int result = 0;
  for (const Triple& node : nodes)
    for (const int operand : {node.left, node.right})
      if (!isNodeNr(operand)) result = std::max(result, std::abs(operand));
  return result;
}

// The least variable of each node's formula.
std::vector<int> leastVariables(std::span<const Triple> nodes) {
  std::vector<int> least;
  least.reserve(nodes.size());
  const auto leastOf = [&](int operand) {
    const int size = std::abs(operand);
    return isNodeNr(size) ? least[static_cast<std::size_t>(size - firstNodeNr)] : size;
  };
  for (const Triple& node : nodes)
    least.push_back(std::min(leastOf(node.left), leastOf(node.right)));
  return least;
}

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

int BoolForm::newNode(const Triple& key) {
  if (maxNr == lastNr) throw NodeNumbersExhausted();
  tv.push_back(key);
  return ++maxNr;
}

void BoolForm::emptyStore() {
  std::vector<Triple>().swap(tv);
  mti = NodeIndex();
  maxNr = varNrLimit;
}

bool BoolForm::lastRepeat(const Distance& distance) {
  const auto count = static_cast<std::size_t>(distance.nodes);
  if (count == 0 || tv.size() < 2 * count || mti.copies().size() > 0) return false;
  const std::span<const Triple> later = std::span(tv).last(count);
  const std::span<const Triple> earlier = std::span(tv).last(2 * count).first(count);
  const int oldest = maxNr + 1 - 2 * distance.nodes;
  const auto tooOld = [=](int operand) { return isNodeNr(operand) && std::abs(operand) < oldest; };
  for (std::size_t i = 0; i < count; ++i)
    if (later[i] != distance.moved(earlier[i]) || tooOld(later[i].left) || tooOld(later[i].right))
      return false;
  return maxVariable(tv) == maxVariable(later);
}

// What the block has found in the store, rather than made, is about variables from `shared` on;
// what the next one will find, but for its own nodes, about variables from shared +
// distance.variables on. Where the nodes about the latter are those about the former, moved up as
// the block is, both find the same: by induction over what is asked for, each answer is the one
// before, moved up.
bool BoolForm::lastWillRepeat(const Distance& distance, int shared) {
  const auto count = static_cast<std::size_t>(distance.nodes);
  if (count == 0 || tv.size() <= count || mti.copies().size() > 0) return false;
  const std::size_t begin = tv.size() - count;
  const int nextShared = shared + distance.variables;
  if (maxVariable(std::span(tv).first(begin)) >= nextShared) return false;
  if (maxVariable(tv) != maxVariable(std::span(tv).last(count))) return false;

  const std::vector<int> least = leastVariables(tv);
  if (least[begin - 1] >= shared) return false;
  for (std::size_t i = begin; i < tv.size(); ++i)
    if (least[i] >= nextShared && (i < count || least[i - count] < shared)) return false;
  for (std::size_t i = 0; i < begin; ++i)
    if (least[i] >= shared && (i + count < begin || tv[i + count] != distance.moved(tv[i])))
      return false;
  return true;
}

void BoolForm::repeatLast(const Distance& distance, int times, int rest) {
  const Repetition copies(distance, times, tv, rest);
  if (copies.size() > static_cast<std::size_t>(lastNr - maxNr)) throw NodeNumbersExhausted();
  mti.know(copies);
  // Room for a sixteenth more: what follows is less, and growing costs as much as all of this.
  tv.reserve((tv.size() + copies.size()) / 16 * 17);
  std::size_t source = tv.size() - static_cast<std::size_t>(distance.nodes);
  for (std::size_t i = 0; i < copies.size(); ++i) tv.push_back(distance.moved(tv[source++]));
  maxNr += static_cast<int>(copies.size());
}

BoolForm con(const BoolForm& a, const BoolForm& b) {
  return BoolForm::ofNr(conjunction(a.nr, b.nr, [](const Triple& key) {
    return BoolForm(BoolForm::ofNr(key.left), BoolForm::ofNr(key.right), key.op).nr;
  }));
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
