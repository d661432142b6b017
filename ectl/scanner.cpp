#include "ectl/scanner.hpp"

#include <cstdlib>
#include <string>

#include "ectl/refusal.hpp"

// The read of a volatile object keeps the loop from being optimised away.
void standStill() {
  volatile bool still = true;
  while (still) {
  }
  std::abort();
}

void missingOperand(std::string_view operatorText) {
  throw MissingOperand("property: operator \"" + std::string(operatorText) + "\" lacks an operand");
}
