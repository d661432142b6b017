// A formula together with the nodes that building it leaves in an empty store.

#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "boolform/boolform.hpp"
#include "tests/model/evaluate.hpp"

struct Built {
  BoolForm formula;
  std::vector<Triple> nodes;
};

inline Built built(const std::function<BoolForm()>& build) {
  BoolForm::emptyStore();
  const BoolForm formula = build();
  return {formula, BoolForm::tv};
}

// The same formula, from the same nodes in the same order of creation.
inline void expectSameNodes(const std::function<BoolForm()>& build,
                            const std::function<BoolForm()>& again) {
  const Built first = built(build);
  const Built second = built(again);
  EXPECT_EQ(first.formula, second.formula);
  EXPECT_EQ(first.nodes, second.nodes);
}
