// The tree view of a property and the measures over it. Trees are as deep as the property is long,
// so every walk keeps a stack of its own.

#include <algorithm>
#include <iostream>
#include <vector>

#include "ectl/ectlform.hpp"
#include "ectl/scanner.hpp"

namespace {

using Tree = std::unique_ptr<Node>;

// Releases left, right, then the node, at every level.
void release(Tree root) {
  std::vector<Tree> path;
  if (root) path.push_back(std::move(root));
  while (!path.empty()) {
    Node& node = *path.back();
    if (node.left)
      path.push_back(std::move(node.left));
    else if (node.right)
      path.push_back(std::move(node.right));
    else
      path.pop_back();
  }
}

// The nodes of the tree in the order node, left, right.
std::vector<const Node*> inPreOrder(const Node* root) {
  std::vector<const Node*> order;
  std::vector<const Node*> waiting{root};
  while (!waiting.empty()) {
    const Node* node = waiting.back();
    waiting.pop_back();
    if (node == nullptr) continue;
    order.push_back(node);
    waiting.push_back(node->right.get());
    waiting.push_back(node->left.get());
  }
  return order;
}

// One node's path count from its operands'.
unsigned pathCount(EctlOper op, unsigned k, unsigned left, unsigned right) {
  switch (op) {
    case EctlOper::conj:
      return left + right;
    case EctlOper::disj:
      return static_cast<unsigned>(std::max(static_cast<int>(left), static_cast<int>(right)));
    case EctlOper::existsNext:
      return left + 1;
    case EctlOper::existsGlobally:
    case EctlOper::existsFinally:  // the rule of "EG", not of "EX"
    case EctlOper::existsK:
      return (k + 1) * left + 1;
    case EctlOper::existsUntil:
      return k * left + right + 1;
    default:
      return 0;
  }
}

int countOf(const std::string& text, std::string_view letters) {
  const auto counts = [&](char c) { return letters.find(c) != std::string_view::npos; };
  return static_cast<int>(std::count_if(text.begin(), text.end(), counts));
}

}  // namespace

Node::~Node() {
  release(std::move(left));
  release(std::move(right));
}

std::unique_ptr<Node> EctlForm::buildTree() const {
  const std::string whole = text();
  std::vector<Tree> operands;
  Scanner scanner(whole, Spelling::tree);
  while (const std::optional<Token> token = scanner.next()) {
    Tree node(new Node{token->op, token->arg, nullptr, nullptr});
    if (arity(node->op) == 2) node->right = popOperand(operands, token->text);
    if (arity(node->op) > 0) node->left = popOperand(operands, token->text);
    operands.push_back(std::move(node));
  }
  return std::move(operands.back());
}

void EctlForm::destroyTree(std::unique_ptr<Node> node) { release(std::move(node)); }

void EctlForm::preOrder(const Node* node) {
  for (const Node* n : inPreOrder(node)) {
    std::cout << operStr(n->op);
    if (n->op == EctlOper::prop || n->op == EctlOper::negProp) std::cout << n->arg;
  }
}

void EctlForm::showPreOrder() const { preOrder(buildTree().get()); }

void EctlForm::show() const { std::cout << text() << std::endl << std::endl; }

int EctlForm::getSpecLen(int k) const { return specLen(k, buildTree().get()); }

// Backwards through the pre-order, operands come before their operator and the left operand's value
// lies on top of the stack.
int EctlForm::specLen(int k, const Node* node) {
  std::vector<const Node*> order = inPreOrder(node);
  std::reverse(order.begin(), order.end());
  std::vector<unsigned> values;
  const auto pop = [&](const std::unique_ptr<Node>& child) {
    if (!child) return 0U;
    const unsigned value = values.back();
    values.pop_back();
    return value;
  };
  for (const Node* n : order) {
    const unsigned first = pop(n->left);
    const unsigned second = pop(n->right);
    values.push_back(pathCount(n->op, static_cast<unsigned>(k), first, second));
  }
  return values.empty() ? 0 : static_cast<int>(values.back());
}

int EctlForm::length() const { return countOf(text(), "&+CDGXUFK"); }

int EctlForm::temporalLength() const { return countOf(text(), "GXUFK"); }

void EctlForm::createVarNumbers(std::set<int>& numbers) const {
  numbers.clear();
  const std::string whole = text();
  std::string_view rest = whole;
  for (std::size_t at = rest.find('p'); at != std::string_view::npos; at = rest.find('p')) {
    rest.remove_prefix(at + 1);
    if (rest.substr(0, 1) == "-") rest.remove_prefix(1);
    numbers.insert(leadingNumber(rest));
  }
}
