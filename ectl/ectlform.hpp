// Properties in postfix notation: p1p-2&EF says "exists finally (p1 and not p2)".
//
// The text is a run of tokens without separators:
//
//   T        true                      &  +        conjunction, disjunction
//   p N      proposition N             EU          exists until
//   p- N     its negation              EG EX EF EK exists globally, next, finally, K
//
// Parsing keeps three things: the items in postfix order, which the translation reads, and the top
// operator with the texts of its operands, which the tree view and the measures read.

#pragma once

#include <cstddef>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "ectl/operator.hpp"
#include "ectl/refusal.hpp"

// A node of the tree view.
struct Node {
  EctlOper op;
  int arg;                      // proposition number, 0 for operators
  std::unique_ptr<Node> left;   // the left or only operand
  std::unique_ptr<Node> right;  // the right operand of a binary operator

  ~Node();  // releases children before parents, without recursion
};

class EctlForm {
 public:
  EctlOper op = EctlOper::none;  // the last operator of the text, none for an empty text
  std::string left;              // its left or only operand's text; an atom's own text
  std::string right;             // the right operand's text of "&", "+" and "EU"
  int varNr = 0;
  std::vector<OnpNode> onp;  // the whole formula, one item a token

  // Parses `text`. A character that begins no token is never passed: the scan does not end. An
  // operator that lacks an operand throws MissingOperand.
  explicit EctlForm(const std::string& formulaText);

  // The same of items that were read elsewhere. A proposition's text is its number, without leading
  // zeros. No item may be of EctlOper::none.
  explicit EctlForm(const std::vector<OnpNode>& items);

  EctlOper getOp() const { return op; }
  EctlForm getLeft() const { return EctlForm(left); }
  EctlForm getRight() const { return EctlForm(right); }
  int getVarNr() const;  // the proposition number where the formula is an atom, else 0

  // --- Tree view (ectltree.cpp). It is meant for formulas with an operator on top. ---

  std::unique_ptr<Node> buildTree() const;              // the caller owns the tree
  static void destroyTree(std::unique_ptr<Node> node);  // null is fine
  static void preOrder(const Node* node);               // on standard output; null prints nothing
  void showPreOrder() const;
  void show() const;  // the text on standard output, an end of line, an empty line

  // --- Measures. ---

  int getSpecLen(int k) const;  // symbolic paths needed for path length k; wraps at 32 bits
  static int specLen(int k, const Node* node);
  int length() const;                                   // operators in the text
  int temporalLength() const;                           // temporal operators in the text
  void createVarNumbers(std::set<int>& numbers) const;  // replaced by the propositions mentioned

  // This formula or g; the postfix items and varNr are left as they were.
  void dis(const EctlForm& g);

 private:
  class Builder;
  std::string text() const { return left + right + operStr(op); }
};

EctlForm dis(const EctlForm& f, const EctlForm& g);

// Equal operators and operand texts; the postfix items are not compared.
bool operator==(const EctlForm& f, const EctlForm& g);
