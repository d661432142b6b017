// The tree view of a property, and what is printed of it.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "ectl/ectlform.hpp"
#include "tests/ectl/standstill.hpp"

namespace {

using Tree = std::unique_ptr<Node>;

template <class Print>
std::string printed(Print print) {
  testing::internal::CaptureStdout();
  print();
  return testing::internal::GetCapturedStdout();
}

std::string preOrderOf(const std::string& text) {
  return printed([&] { EctlForm(text).showPreOrder(); });
}

TEST(Tree, UnaryOperatorHasALeftChildOnly) {
  const Tree root = EctlForm("p3EF").buildTree();
  EXPECT_EQ(root->op, EctlOper::existsFinally);
  EXPECT_EQ(root->left->op, EctlOper::prop);
  EXPECT_EQ(root->left->arg, 3);
  EXPECT_EQ(root->right, nullptr);
}

TEST(Tree, BinaryOperatorHasItsOperandsInOrder) {
  const Tree root = EctlForm("p1p-2EU").buildTree();
  EXPECT_EQ(root->op, EctlOper::existsUntil);
  EXPECT_EQ(root->arg, 0);
  EXPECT_EQ(root->left->arg, 1);
  EXPECT_EQ(root->right->op, EctlOper::negProp);
  EXPECT_EQ(root->right->arg, 2);
}

TEST(Tree, AtomHasNoChildren) {
  const Tree root = EctlForm("Tp1&").buildTree();
  EXPECT_EQ(root->left->op, EctlOper::truth);
  EXPECT_EQ(root->left->left, nullptr);
  EXPECT_EQ(root->left->right, nullptr);
}

// The text that is scanned ends with the operator's own, here a second, number-less atom.
TEST(Tree, AtomOnTopLosesItsNumber) {
  const Tree root = EctlForm("p3").buildTree();
  EXPECT_EQ(root->op, EctlOper::prop);
  EXPECT_EQ(root->arg, 0);
  EXPECT_EQ(EctlForm("p-3").buildTree()->op, EctlOper::negProp);
}

TEST(Tree, SecondSpellingsAreTaken) {
  EctlForm f("p0EF");
  f.left = "p1p2Cp3D";
  const Tree root = f.buildTree();
  EXPECT_EQ(root->left->op, EctlOper::disj);
  EXPECT_EQ(root->left->left->op, EctlOper::conj);
  EXPECT_EQ(root->left->right->arg, 3);
}

TEST(Tree, StrayEIsSkipped) {
  EctlForm f("p0EF");
  f.left = "Ep1";
  EXPECT_EQ(f.buildTree()->left->arg, 1);
}

TEST(TreeDeathTest, UnknownCharacterIsNeverPassed) {
  EctlForm f("p0EF");
  f.left = "p1 ";
  expectStandstill([&] { return f.buildTree(); });
}

// Its text is the "$" of no operator.
TEST(TreeDeathTest, EmptyFormulaIsNeverPassed) {
  expectStandstill([] { return EctlForm("").buildTree(); });
}

TEST(Tree, MissingOperandIsRefused) {
  EctlForm f("p0EF");
  f.left = "";
  EXPECT_THROW(f.buildTree(), MissingOperand);
}

TEST(Tree, NothingIsReleasedWhereThereIsNoTree) { EctlForm::destroyTree(nullptr); }

TEST(Tree, DeepTreesAreBuiltWalkedAndReleased) {
  std::string text = "p1";
  for (int i = 0; i < 300000; ++i) text += "EX";
  const EctlForm f(text);
  EXPECT_EQ(f.getSpecLen(5), 300000);
  EctlForm::destroyTree(f.buildTree());
}

TEST(Tree, DeepTreesToTheRightAreReleased) {
  std::string text;
  for (int i = 0; i < 300000; ++i) text += "T";
  for (int i = 1; i < 300000; ++i) text += "&";
  const Tree root = EctlForm(text).buildTree();
  EXPECT_EQ(EctlForm::specLen(1, root.get()), 0);
}

// --- Printing. ---

TEST(TreePrint, OperatorsComeBeforeTheirOperands) {
  EXPECT_EQ(preOrderOf("p1p-2&EF"), "EF&p1p-2");
  EXPECT_EQ(preOrderOf("Tp3EU"), "EUTp3");
  EXPECT_EQ(preOrderOf("p1p2+p3EGEKEX&"), "&+p1p2EXEKEGp3");
}

TEST(TreePrint, NumbersArePrintedInDecimal) { EXPECT_EQ(preOrderOf("p007pEU"), "EUp7p0"); }

TEST(TreePrint, NullPrintsNothing) {
  EXPECT_EQ(printed([] { EctlForm::preOrder(nullptr); }), "");
}

TEST(TreePrint, SubtreeIsPrintedFromItsNode) {
  const Tree root = EctlForm("p1EXp2&").buildTree();
  EXPECT_EQ(printed([&] { EctlForm::preOrder(root->left.get()); }), "EXp1");
}

TEST(TreePrint, ShowPrintsTheTextAndAnEmptyLine) {
  EXPECT_EQ(printed([] { EctlForm("p1p2&EF").show(); }), "p1p2&EF\n\n");
  EXPECT_EQ(printed([] { EctlForm("p1p007EU").show(); }), "p1p007EU\n\n");
}

TEST(TreePrint, ShowOfAnAtomRepeatsItsLetter) {
  EXPECT_EQ(printed([] { EctlForm("p3").show(); }), "p3p\n\n");
  EXPECT_EQ(printed([] { EctlForm("").show(); }), "$\n\n");
}

}  // namespace
