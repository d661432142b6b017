#include "ectl/operator.hpp"

#include <array>
#include <cstddef>

std::string operStr(EctlOper op) {
  constexpr std::array texts{"T", "p", "p-", "&", "+", "EG", "EX", "EU", "EF", "EK"};
  const auto i = static_cast<std::size_t>(op);
  return i < texts.size() ? texts[i] : "$";
}
