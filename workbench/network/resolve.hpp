// What names in a property mean in a network: numbers and names to processes, locations,
// propositions; patterns to all that they fit.

#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "workbench/network/expression.hpp"
#include "workbench/network/network.hpp"

namespace tpn {

// Does a text fit a pattern, in which * stands for any run of characters?
bool fitsPattern(const std::string& text, const WrittenPart& pattern);

class Resolver {
 public:
  // Borrows the network.
  explicit Resolver(const Network& net);

  // Each throws ExpressionError with what would fit.
  int proposition(const WrittenPart& part) const;
  std::size_t process(const WrittenPart& part) const;
  int location(std::size_t process, const WrittenPart& part) const;

  // At least one each, or ExpressionError.
  std::vector<int> propositions(const WrittenPart& pattern) const;
  struct Spots {
    std::size_t process = 0;
    std::vector<int> locations;  // not empty
  };
  std::vector<Spots> spots(const WrittenPart& process, const WrittenPart& location) const;

 private:
  const Network& net_;
  std::map<std::string, std::size_t> processes_;
  std::map<std::string, int> propositions_;
  std::vector<std::map<std::string, int>> locations_;  // [process]
};

}  // namespace tpn
