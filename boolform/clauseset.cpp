#include "boolform/clauseset.hpp"

#include <algorithm>
#include <cstdlib>

namespace {

// The largest absolute value of a literal that does not exceed `limit`.
int largest(const std::vector<Clause>& clauses, int limit) {
  int result = 0;
  for (const Clause& c : clauses)
    for (const int literal : {c.first, c.second, c.third})
      if (std::abs(literal) <= limit) result = std::max(result, std::abs(literal));
  return result;
}

}  // namespace

void ClauseSet::insert(const Clause& clause) {
  others_.push_back(clause);
  ordered_ = false;
}

void ClauseSet::insertDefinitions(int root, const std::vector<Triple>& nodes,
                                  const Repetition& copies) {
  definitions_.add(root, nodes, copies);
  ordered_ = false;
}

int ClauseSet::maxLiteral() const {
  return std::max(largest(others_, std::numeric_limits<int>::max()), definitions_.maxLiteral());
}

int ClauseSet::maxVariable() const {
  return std::max(largest(others_, varNrLimit - 1), definitions_.maxVariable());
}

const std::vector<Clause>& ClauseSet::others() const {
  if (!ordered_) {
    std::erase_if(others_, [this](const Clause& c) { return definitions_.contains(c); });
    std::sort(others_.begin(), others_.end());
    others_.erase(std::unique(others_.begin(), others_.end()), others_.end());
    ordered_ = true;
  }
  return others_;
}
