#include "boolform/clause.hpp"

#include <cstdlib>
#include <utility>

Clause::Clause(int a, int b, int c) : first(a), second(b), third(c) {
  // Only strictly smaller values move: x and its negation keep their order.
  if (std::abs(second) < std::abs(first)) std::swap(first, second);
  if (std::abs(third) < std::abs(first)) std::swap(first, third);
  if (std::abs(third) < std::abs(second)) std::swap(second, third);
  if (third == first || third == second) third = 0;
  if (second == first) second = 0;
}
