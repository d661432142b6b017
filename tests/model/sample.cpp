#include "tests/model/sample.hpp"

#include <algorithm>
#include <iterator>

#include "workbench/families/random.hpp"
#include "workbench/network/writer.hpp"

// Clocks are mostly small: beyond the constants hardly anything is possible.
PlainState Sampler::randomState() {
  const auto n = static_cast<std::size_t>(net.nrOfProcs);
  PlainState s;
  for (std::size_t p = 0; p <= n; ++p) {
    const unsigned integers =
        below(4) == 0 ? 1U << net.intPLen : static_cast<unsigned>(net.maxConst) + 2U;
    s.location.push_back(p == 0 ? 0 : below(1U << net.nrVertBits[p]));
    s.integer.push_back(below(integers));
    s.fraction.push_back(below(2) == 0 ? 0 : below(1U << net.frPLen));
  }
  s.split = below(1U << net.frPLen);
  return s;
}

PlainState Sampler::afterTime(const PlainState& s1) {
  PlainState s2 = s1;
  const unsigned ones = (1U << net.frPLen) - 1U;
  for (std::size_t i = 1; i < s1.integer.size(); ++i) {
    const unsigned fraction = s1.fraction[i] + s1.fraction[0];
    s2.fraction[i] = fraction & ones;
    s2.integer[i] = s1.integer[i] + s1.integer[0] + (fraction >> net.frPLen);
  }
  return s2;
}

PlainState Sampler::afterAction(const PlainState& s1, unsigned t) {
  PlainState s2 = s1;
  for (const unsigned p : net.transProcs.at(t)) {
    s2.location[p] = net.localTrans.at({p, t}).second;
    s2.integer[p] = 0;
    s2.fraction[p] = 0;
  }
  return s2;
}

PlainState Sampler::afterAdjusting(const PlainState& s1) {
  PlainState s2 = s1;
  const bool mixed = below(2) == 0;
  for (std::size_t i = 1; i < s1.integer.size(); ++i) {
    s2.integer[i] = std::min(s1.integer[i], static_cast<unsigned>(net.maxConst) + 1U);
    if (mixed && s1.fraction[i] != 0) s2.fraction[i] += s1.fraction[i] < s1.split ? 1U : ~0U;
  }
  return s2;
}

Bits Sampler::twoStates() {
  Bits bits(static_cast<std::size_t>(2 * meaning.variables() + 1));
  PlainState s1 = randomState();
  PlainState s2 = randomState();
  const unsigned kind = below(4);
  if (kind == 0) s2 = afterTime(s1);
  if (kind == 1 && net.nrOfTrans > 0) {
    const unsigned t = 1 + below(static_cast<unsigned>(net.nrOfTrans));
    for (const unsigned p : net.transProcs.at(t)) {
      s1.location[p] = net.localTrans.at({p, t}).first;
      if (below(4) != 0) s1.integer[p] = net.timeIntervals[t].first;
    }
    s2 = afterAction(s1, t);
  }
  if (kind == 2) s2 = afterAdjusting(s1);
  meaning.encode(s1, bits, 1);
  meaning.encode(s2, bits, 1 + meaning.variables());
  if (below(3) == 0) {
    char& bit = bits[1 + below(static_cast<unsigned>(bits.size() - 1))];
    bit = static_cast<char>(1 - bit);
  }
  return bits;
}

std::string randomNetwork(unsigned seed) {
  tpn::RandomShape shape;
  shape.transitions = {2, 5};
  shape.locations = {3, 5};
  shape.earliest = 3;
  shape.careless = 1;
  shape.shared = 3;
  tpn::RandomNetworks networks(shape, tpn::scattered(seed));
  tpn::Network net = networks.next();
  tpn::keepMentioned(net);
  const auto below = [&](std::size_t n) { return static_cast<int>(networks.random().below(n)); };
  for (tpn::Process& process : net.processes)
    for (int labels = 0; labels < 2; ++labels) {
      const auto location = std::next(process.locations.begin(), below(process.locations.size()));
      for (int propositions = 0; propositions < 2; ++propositions)
        process.labels[*location].insert(below(3));
    }
  return tpn::networkFile(net);
}
