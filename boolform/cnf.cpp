// Conversion to clauses: every reachable node is named by its own number and defined by three or
// four clauses; the root is asserted. Equisatisfiable, linear, and free of recursion.

#include <cstdint>
#include <cstdlib>
#include <vector>

#include "boolform/boolform.hpp"
#include "boolform/clause.hpp"

namespace {

bool isNode(int nr) { return std::abs(nr) > varNrLimit; }

std::size_t indexOf(int nr) { return static_cast<std::size_t>(std::abs(nr) - NodeIndex::firstNr); }

// The nodes reachable from `root` as one byte a node, up to the root. Operands are always older
// than their node, so one scan downwards meets every node after all its users: no queue is needed,
// and the order of the visits does not show in a set of clauses.
std::vector<std::uint8_t> reachableFrom(int root) {
  std::vector<std::uint8_t> marked(indexOf(root) + 1, 0);
  marked.back() = 1;
  for (std::size_t i = marked.size(); i-- > 0;) {
    if (marked[i] == 0) continue;
    const Triple& node = BoolForm::tv[i];
    if (isNode(node.left)) marked[indexOf(node.left)] = 1;
    if (isNode(node.right)) marked[indexOf(node.right)] = 1;
  }
  return marked;
}

std::size_t countClauses(const std::vector<std::uint8_t>& marked) {
  std::size_t clauses = 1;
  for (std::size_t i = 0; i < marked.size(); ++i)
    if (marked[i] != 0) clauses += BoolForm::tv[i].op == bfCon ? 3 : 4;
  return clauses;
}

// The two halves of a definition: n implies the node, and the node implies n.

void addNecessary(ClauseSet& cnf, const Triple& node, int n) {
  const auto [op, l, r] = node;
  if (op == bfCon) {
    cnf.insert(Clause(-n, l, 0));
    cnf.insert(Clause(-n, r, 0));
  }
  if (op == bfEqu) {
    cnf.insert(Clause(-n, -l, r));
    cnf.insert(Clause(-n, -r, l));
  }
}

void addSufficient(ClauseSet& cnf, const Triple& node, int n) {
  const auto [op, l, r] = node;
  if (op == bfEqu) cnf.insert(Clause(l, r, n));
  cnf.insert(Clause(-l, -r, n));
}

// Halves apart, the one from the last node down and the other from the first node up: a node's own
// literal is the third of all its clauses, so the set's array comes out sorted by that column.
void addDefinitions(ClauseSet& cnf, const std::vector<std::uint8_t>& marked) {
  cnf.reserve(countClauses(marked));
  const auto number = [](std::size_t i) { return NodeIndex::firstNr + static_cast<int>(i); };
  for (std::size_t i = marked.size(); i-- > 0;)
    if (marked[i] != 0) addNecessary(cnf, BoolForm::tv[i], number(i));
  for (std::size_t i = 0; i < marked.size(); ++i)
    if (marked[i] != 0) addSufficient(cnf, BoolForm::tv[i], number(i));
}

}  // namespace

void BoolForm::addVar(ClauseSet& cnf, int x) const { cnf.insert(Clause(x, 0, 0)); }

void BoolForm::addCon(ClauseSet& cnf, int l, int r, int n) const {
  addNecessary(cnf, {bfCon, l, r}, n);
  addSufficient(cnf, {bfCon, l, r}, n);
}

void BoolForm::addEqu(ClauseSet& cnf, int l, int r, int n) const {
  addNecessary(cnf, {bfEqu, l, r}, n);
  addSufficient(cnf, {bfEqu, l, r}, n);
}

void BoolForm::addNeg(ClauseSet& cnf, int a, int b) const {
  cnf.insert(Clause(a, b, 0));
  cnf.insert(Clause(-a, -b, 0));
}

void BoolForm::toCNF(ClauseSet& cnf) const {
  if (nr == falseNr || nr == trueNr) {
    cnf.clear();
    if (nr == falseNr) cnf.insert(Clause(0, 0, 0));
    return;
  }
  if (nr < 0) addVar(cnf, nr);
  if (isNode(nr)) addDefinitions(cnf, reachableFrom(nr));
  if (nr > 0) addVar(cnf, nr);
}
