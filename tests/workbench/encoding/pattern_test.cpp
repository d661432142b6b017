// Formulas taken out of the store.

#include "workbench/encoding/pattern.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace {

// A pattern's values against the formula's, by enumeration.
TEST(Pattern, MeansWhatItsFormulasMean) {
  BoolForm::emptyStore();
  const BoolForm a(1);
  const BoolForm b(2);
  const BoolForm c(3);
  const BoolForm unused = con(a, neg(c));
  const BoolForm both = con(a, b);
  const BoolForm same = equ(neg(both), c);
  const BoolForm any = dis(same, neg(a));
  const tpn::Pattern pattern(3, {any, neg(both), BoolForm(true), BoolForm(false), neg(c), unused});
  BoolForm::emptyStore();
  for (int bits = 0; bits < 8; ++bits) {
    const bool x = (bits & 1) != 0;
    const bool y = (bits & 2) != 0;
    const bool z = (bits & 4) != 0;
    const std::vector<bool> expected{(!(x && y) == z) || !x, !(x && y), true, false, !z, x && !z};
    EXPECT_EQ(pattern.evaluate({false, x, y, z}), expected);
  }
}

TEST(Pattern, HasNoNodesButThoseOfItsFormulas) {
  BoolForm::emptyStore();
  const BoolForm first = con(BoolForm(1), BoolForm(2));
  con(BoolForm(1), BoolForm(3));
  EXPECT_EQ(tpn::Pattern(3, {first}).nodes.size(), 1U);
  BoolForm::emptyStore();
}

TEST(Pattern, EndsAtACheckpoint) {
  BoolForm::emptyStore();
  const BoolForm formula = con(BoolForm(1), BoolForm(2));
  const tpn::Checkpoint over([] { return true; });
  EXPECT_THROW(tpn::Pattern(2, {formula}, over), tpn::Interrupted);
  BoolForm::emptyStore();
}

}  // namespace
