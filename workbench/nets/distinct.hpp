// Names of which none may be given twice.

#pragma once

#include <string>
#include <unordered_set>

namespace tpn {

class DistinctNames {
 public:
  // The one that is wanted, with as many primes behind it as it takes.
  std::string name(std::string wanted) {
    while (!taken_.insert(wanted).second) wanted += "'";
    return wanted;
  }

 private:
  std::unordered_set<std::string> taken_;
};

}  // namespace tpn
