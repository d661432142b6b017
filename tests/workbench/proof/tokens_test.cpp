// Nets whose places are processes that hold a token or none, against the nets' own meaning: a clock
// a transition, which begins anew where the transition was not enabled while tokens were on their
// way, or is the one that fired.

#include <gtest/gtest.h>

#include <random>

#include "tests/workbench/proof/reachable.hpp"

namespace tpn {
namespace {

struct TokenNet {
  struct Transition {
    Interval interval;
    std::set<std::size_t> consumed;
    std::set<std::size_t> read;  // none of them consumed or produced
    std::set<std::size_t> produced;
  };
  std::vector<bool> marked;  // [place], at first
  std::vector<Transition> transitions;
};

// What can be seen of a state: where tokens are, and the clocks of enabled transitions up to their
// largest constants; -1 where one is not enabled.
struct Seen {
  std::vector<bool> marked;
  std::vector<std::int64_t> clocks;

  friend auto operator<=>(const Seen&, const Seen&) = default;
};

struct Behaviour {
  std::set<Seen> states;
  bool unsafe = false;

  friend bool operator==(const Behaviour&, const Behaviour&) = default;
};

std::int64_t largestOf(const Interval& interval) {
  return std::max(interval.earliest, interval.latest.value_or(0));
}

// The net by itself. What is not safe is seen, and does not happen.
class NetExplorer {
 public:
  explicit NetExplorer(const TokenNet& net) : net_(net) {}

  Behaviour explored() {
    Seen first{net_.marked, {}};
    for (const TokenNet::Transition& t : net_.transitions)
      first.clocks.push_back(enabled(t, net_.marked) ? 0 : -1);
    meet(first);
    while (!open_.empty()) {
      const Seen from = open_.back();
      open_.pop_back();
      if (mayWait(from)) meet(later(from));
      for (std::size_t t = 0; t < net_.transitions.size(); ++t)
        if (mayFire(t, from)) fire(t, from);
    }
    return found_;
  }

 private:
  static bool enabled(const TokenNet::Transition& t, const std::vector<bool>& marked) {
    const auto holdsToken = [&](std::size_t place) { return marked[place]; };
    return std::all_of(t.consumed.begin(), t.consumed.end(), holdsToken) &&
           std::all_of(t.read.begin(), t.read.end(), holdsToken);
  }
  bool mayWait(const Seen& s) const {
    for (std::size_t t = 0; t < s.clocks.size(); ++t) {
      const auto latest = net_.transitions[t].interval.latest;
      if (s.clocks[t] >= 0 && latest && s.clocks[t] >= *latest) return false;
    }
    return true;
  }
  Seen later(Seen s) const {
    for (std::size_t t = 0; t < s.clocks.size(); ++t)
      if (s.clocks[t] >= 0)
        s.clocks[t] = std::min(s.clocks[t] + 1, largestOf(net_.transitions[t].interval));
    return s;
  }
  bool mayFire(std::size_t t, const Seen& s) const {
    return s.clocks[t] >= 0 && s.clocks[t] >= net_.transitions[t].interval.earliest;
  }

  void fire(std::size_t fired, const Seen& from) {
    const TokenNet::Transition& t = net_.transitions[fired];
    std::vector<bool> between = from.marked;
    for (const std::size_t place : t.consumed) between[place] = false;
    Seen to{between, from.clocks};
    for (const std::size_t place : t.produced) {
      if (between[place]) found_.unsafe = true;
      if (between[place]) return;
      to.marked[place] = true;
    }
    for (std::size_t u = 0; u < to.clocks.size(); ++u) {
      const TokenNet::Transition& other = net_.transitions[u];
      if (!enabled(other, to.marked))
        to.clocks[u] = -1;
      else if (u == fired || !enabled(other, between))
        to.clocks[u] = 0;
    }
    meet(to);
  }

  void meet(const Seen& s) {
    if (found_.states.insert(s).second) open_.push_back(s);
  }

  const TokenNet& net_;
  Behaviour found_;
  std::vector<Seen> open_;
};

// A process a place, in 0 at first, and one more for each transition that consumes nothing.
class TokenNetwork {
 public:
  explicit TokenNetwork(const TokenNet& net) : net_(net) {
    network_.processes.resize(net.marked.size(), {{0, 1}, {}});
    for (const TokenNet::Transition& t : net.transitions) add(t);
  }

  Behaviour explored() const {
    const states::Explorer explorer(network_);
    Behaviour found;
    for (const states::State& s : explorer.reachable()) {
      found.states.insert(seen(s));
      found.unsafe = found.unsafe || explorer.isUnsafe(s);
    }
    return found;
  }

  const Network& network() const { return network_; }

 private:
  int marked(std::size_t place) const { return net_.marked[place] ? 0 : 1; }
  int empty(std::size_t place) const { return 1 - marked(place); }

  void add(const TokenNet::Transition& t) {
    Transition made{t.interval, {}};
    for (std::size_t p = 0; p < net_.marked.size(); ++p) {
      const bool produced = t.produced.contains(p);
      if (t.consumed.contains(p))
        made.moves.push_back({p, marked(p), produced ? marked(p) : empty(p)});
      else if (t.read.contains(p))
        made.moves.push_back({p, marked(p), marked(p), true, false});
      else if (produced)
        made.moves.push_back({p, empty(p), marked(p), false, true});
    }
    if (t.consumed.empty()) {
      made.moves.push_back({network_.processes.size(), 0, 0});
      network_.processes.push_back({{0}, {}});
    }
    network_.transitions.push_back(made);
  }

  Seen seen(const states::State& s) const {
    Seen result;
    for (std::size_t p = 0; p < net_.marked.size(); ++p)
      result.marked.push_back(s.locations[p] == marked(p));
    for (const Transition& t : network_.transitions) {
      std::int64_t clock = largestOf(t.interval);
      for (const Move& m : t.moves)
        if (m.counts) clock = std::min(clock, s.clocks[m.process]);
      result.clocks.push_back(enabled(t, s.locations) ? clock : -1);
    }
    return result;
  }

  const TokenNet& net_;
  Network network_;
};

class RandomTokenNets {
 public:
  explicit RandomTokenNets(unsigned seed) : random_(seed) {}

  TokenNet next() {
    TokenNet net;
    for (std::size_t left = 2 + upTo(2); left > 0; --left) net.marked.push_back(upTo(1) == 0);
    net.transitions.resize(1 + upTo(4));
    for (TokenNet::Transition& t : net.transitions) {
      t.interval.earliest = static_cast<std::int64_t>(upTo(3));
      if (upTo(3) != 0)
        t.interval.latest = t.interval.earliest + static_cast<std::int64_t>(upTo(2));
      for (std::size_t p = 0; p < net.marked.size(); ++p) connect(t, p);
    }
    return net;
  }

 private:
  std::size_t upTo(std::size_t most) { return random_() % (most + 1); }

  void connect(TokenNet::Transition& t, std::size_t place) {
    switch (upTo(7)) {
      case 0:
        t.read.insert(place);
        break;
      case 1:
        t.produced.insert(place);
        [[fallthrough]];
      case 2:
      case 3:
        t.consumed.insert(place);
        break;
      case 4:
      case 5:
        t.produced.insert(place);
        break;
      default:
        break;
    }
  }

  std::mt19937 random_;
};

TEST(Tokens, AreMovedByTheNetworkAsByTheNet) {
  RandomTokenNets nets(1);
  int safe = 0;
  int unsafe = 0;
  std::size_t states = 0;
  for (int i = 0; i < 3000; ++i) {
    const TokenNet net = nets.next();
    const Behaviour expected = NetExplorer(net).explored();
    ASSERT_EQ(TokenNetwork(net).explored(), expected) << i;
    ++(expected.unsafe ? unsafe : safe);
    states = std::max(states, expected.states.size());
  }
  EXPECT_GT(safe, 500);
  EXPECT_GT(unsafe, 500);
  EXPECT_GT(states, 30U);
}

// The first has no token to take: without a clock of its own time would stop at 2.
TEST(Tokens, OfATransitionThatTakesNoneLetTimeGoOn) {
  TokenNet net;
  net.marked = {true, true, false, false};  // s, x, q, y
  net.transitions = {{{2, 2}, {}, {0}, {2}}, {{0, 0}, {2}, {}, {}}, {{3, 3}, {1}, {}, {3}}};
  const Behaviour found = TokenNetwork(net).explored();
  EXPECT_EQ(found, NetExplorer(net).explored());
  EXPECT_FALSE(found.unsafe);
  EXPECT_TRUE(std::any_of(found.states.begin(), found.states.end(),
                          [](const Seen& s) { return s.marked[3]; }));
}

}  // namespace
}  // namespace tpn
