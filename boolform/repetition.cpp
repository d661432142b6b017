#include "boolform/repetition.hpp"

#include <cassert>

Repetition::Repetition(const Distance& distance, int times, const std::vector<Triple>& nodes,
                       int rest)
    : times_(times), rest_(rest), distance_(distance), begin_(nodes.size()) {
  assert(distance.variables > 0);
  assert(distance.nodes > 0);
  assert(rest >= 0);
  assert(rest <= distance.nodes);
  assert(static_cast<std::size_t>(distance.nodes) <= nodes.size());
  for (auto node = nodes.end() - distance.nodes; node != nodes.end(); ++node) {
    const auto [small, large] = std::minmax({std::abs(node->left), std::abs(node->right)});
    for (const int operand : {small, large}) {
      Range& range = isNodeNr(operand) ? nodes_ : variables_;
      range.least = std::min(range.least, operand);
    }
    Range& range = isNodeNr(large) ? nodes_ : variables_;
    range.greatest = std::max(range.greatest, large);
  }
}
