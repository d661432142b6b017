// The widths and variable numbers of a symbolic state, and the map file that tells them.

#include <bit>
#include <numeric>
#include <string>

#include "model/tpnmodel.hpp"

namespace {

// The number of binary digits of n, 0 where n is not positive.
int binaryDigits(int n) {
  return n > 0 ? static_cast<int>(std::bit_width(static_cast<unsigned>(n))) : 0;
}

// 2 * n + add in wrapping 32-bit arithmetic.
int twicePlus(int n, unsigned add) { return static_cast<int>(2U * static_cast<unsigned>(n) + add); }

// The least b with 2^b >= count, and 0 for at most one location.
int locationBits(int count) { return count > 1 ? binaryDigits(count - 1) : 0; }

}  // namespace

void NetTimedModel::compNrOfBits() {
  const auto entries = static_cast<std::size_t>(nrOfProcs) + 1;
  nrOfClocks = nrOfProcs;
  totalNrVertBits = 0;
  nrVertBits.assign(entries, 0);
  firstVertBit.assign(entries, 0);

  std::vector<int> locations(entries, 0);
  for (const Pair& vertex : vertices) ++locations[vertex.first];
  for (std::size_t p = 1; p < entries; ++p) {
    nrVertBits[p] = locationBits(locations[p]);
    firstVertBit[p] = firstVertBit[p - 1] + nrVertBits[p - 1];
    totalNrVertBits += nrVertBits[p];
  }

  listMoves();
  intPLen = binaryDigits(twicePlus(maxConst, 2));
  frPLen = nrOfClocks > 0 ? binaryDigits(twicePlus(nrOfClocks, ~0U)) : 0;  // of 2n - 1
}

void NetTimedModel::listMoves() {
  const auto isListed = [this](Number t) { return t <= static_cast<Number>(nrOfTrans); };
  firstMove_.assign(static_cast<std::size_t>(nrOfTrans) + 2, 0);
  for (const auto& [where, move] : localTrans)
    if (isListed(where.second)) ++firstMove_[where.second + 1];
  std::partial_sum(firstMove_.begin(), firstMove_.end(), firstMove_.begin());
  moves_.resize(firstMove_.back());
  std::vector<std::size_t> next = firstMove_;
  for (const auto& [where, move] : localTrans)
    if (isListed(where.second))
      moves_[next[where.second]++] = {where.first, move.first, move.second};

  std::map<std::vector<Number>, int> crews;
  crewOf_.assign(1, 0);
  for (int t = 1; t <= nrOfTrans; ++t) {
    std::vector<Number> crew;
    for (const Move& move : movesOf(t)) crew.push_back(move.process);
    crewOf_.push_back(crews.try_emplace(crew, static_cast<int>(crews.size()) + 1).first->second);
  }
  crews_ = static_cast<int>(crews.size());
}

std::int64_t NetTimedModel::getSymStateLen() const {
  const std::int64_t slots = std::int64_t{nrOfClocks} + 1;
  return totalNrVertBits + slots * (intPLen + frPLen) + frPLen;
}

SymState NetTimedModel::genSymState(int first) const {
  return SymState(totalNrVertBits, nrOfClocks, intPLen, frPLen, first);
}

Written NetTimedModel::showLCK(int k, int maxVar, std::string name) const {
  std::string bits;
  for (std::size_t p = 1; p < nrVertBits.size(); ++p) bits += std::to_string(nrVertBits[p]) + " ";
  std::string map;
  const auto line = [&map](const std::string& text) { map.append(text).append("\n"); };
  const auto text = [](int n) { return std::to_string(n); };
  line(text(nrOfProcs));
  line(bits);
  line(text(nrOfClocks) + " " + text(intPLen) + " " + text(frPLen));
  line(text(k));
  line(text(maxVar));
  line(text(nrOfTrans) + " " + text(nrInvTerms));
  return writeFile(name.append(".lck"), map);
}
