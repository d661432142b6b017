#include "workbench/nets/components.hpp"

#include <algorithm>
#include <cassert>
#include <numeric>
#include <queue>
#include <utility>

#include "workbench/nets/semiflows.hpp"

namespace tpn {

namespace {

// Proves that sets of places hold one token: that they do at first, and that no live transition
// changes it.
class Proof {
 public:
  explicit Proof(const PetriNet& net) : net_(net), touching_(net.places.size()) {
    for (std::size_t t = 0; t < net.transitions.size(); ++t) {
      for (const std::size_t p : net.transitions[t].consumed) touching_[p].push_back({t, -1});
      for (const std::size_t p : net.transitions[t].produced) touching_[p].push_back({t, 1});
    }
    change_.resize(net.transitions.size());
  }

  bool holdsOne(const std::vector<std::size_t>& places, const std::vector<bool>& live) {
    const auto marked = std::count_if(places.begin(), places.end(),
                                      [&](std::size_t p) { return net_.places[p].marked; });
    if (marked != 1) return false;
    each(places, [&](const Touch& touch) { change_[touch.transition] += touch.change; });
    bool balanced = true;
    each(places, [&](const Touch& touch) {
      balanced = balanced && (change_[touch.transition] == 0 || !live[touch.transition]);
    });
    each(places, [&](const Touch& touch) { change_[touch.transition] = 0; });
    return balanced;
  }

 private:
  struct Touch {
    std::size_t transition = 0;
    int change = 0;
  };

  template <class Action>
  void each(const std::vector<std::size_t>& places, Action action) {
    for (const std::size_t p : places)
      for (const Touch& touch : touching_[p]) action(touch);
  }

  const PetriNet& net_;
  std::vector<std::vector<Touch>> touching_;  // [place]
  std::vector<int> change_;                   // [transition]; 0 between calls
};

// Places that hold a token at first, or that a transition puts one on that could fire if tokens
// were never taken away.
std::vector<bool> everMarked(const PetriNet& net, const std::vector<bool>& live) {
  std::vector<std::vector<std::size_t>> needing(net.places.size());
  std::vector<std::size_t> missing(net.transitions.size());  // [transition]: how many places
  std::vector<bool> marked(net.places.size());
  std::vector<std::size_t> news;
  const auto mark = [&](std::size_t p) {
    if (!marked[p]) news.push_back(p);
    marked[p] = true;
  };
  const auto fire = [&](std::size_t t) {
    if (!live[t]) return;
    for (const std::size_t p : net.transitions[t].produced) mark(p);
  };
  for (std::size_t t = 0; t < net.transitions.size(); ++t) {
    for (const auto* needed : {&net.transitions[t].consumed, &net.transitions[t].read})
      for (const std::size_t p : *needed) needing[p].push_back(t);
    missing[t] = net.transitions[t].consumed.size() + net.transitions[t].read.size();
    if (missing[t] == 0) fire(t);
  }
  for (std::size_t p = 0; p < net.places.size(); ++p)
    if (net.places[p].marked) mark(p);
  while (!news.empty()) {
    const std::size_t p = news.back();
    news.pop_back();
    for (const std::size_t t : needing[p])
      if (--missing[t] == 0) fire(t);
  }
  return marked;
}

class Covering {
 public:
  Covering(const PetriNet& net, const Checkpoint& checkpoint)
      : net_(net), checkpoint_(checkpoint), proof_(net) {
    cover_.live.assign(net.transitions.size(), true);
  }

  Cover covered() {
    // Each round but the last finds a transition dead; a few find all that ever matter.
    constexpr int rounds = 10;
    collect();
    for (int round = 1; round < rounds && findDead(); ++round) collect();
    choose();
    return std::move(cover_);
  }

 private:
  void collect() {
    candidates_.clear();
    for (const PetriNet::Unit& unit : net_.units)
      if (proof_.holdsOne(unit.places, cover_.live))
        candidates_.push_back({unit.places, unit.name});
    for (std::vector<std::size_t>& places : semiflows(net_, cover_.live, checkpoint_)) {
      checkpoint_();
      assert(proof_.holdsOne(places, cover_.live));
      candidates_.push_back({std::move(places), ""});
    }
    cover_.marked = everMarked(net_, cover_.live);
  }

  // True where there are more than before.
  bool findDead() {
    std::vector<std::vector<std::size_t>> components(net_.places.size());  // [place]
    for (std::size_t c = 0; c < candidates_.size(); ++c)
      for (const std::size_t p : candidates_[c].places) components[p].push_back(c);
    std::vector<std::size_t> last(candidates_.size(), net_.transitions.size());
    bool found = false;
    for (std::size_t t = 0; t < net_.transitions.size(); ++t) {
      checkpoint_.at(t);
      if (!cover_.live[t] || !isDead(t, components, last)) continue;
      cover_.live[t] = false;
      found = true;
    }
    return found;
  }

  // last[c] is the last transition that was seen to need a token of component c.
  bool isDead(std::size_t t, const std::vector<std::vector<std::size_t>>& components,
              std::vector<std::size_t>& last) const {
    bool dead = false;
    for (const auto* needed : {&net_.transitions[t].consumed, &net_.transitions[t].read})
      for (const std::size_t p : *needed) {
        dead = dead || !cover_.marked[p];
        for (const std::size_t c : components[p]) dead = std::exchange(last[c], t) == t || dead;
      }
    return dead;
  }

  std::size_t gain(std::size_t candidate) const {
    const std::vector<std::size_t>& places = candidates_[candidate].places;
    return static_cast<std::size_t>(std::count_if(
        places.begin(), places.end(), [this](std::size_t p) { return !cover_.covered[p]; }));
  }

  // Again and again the one that covers most of what is left, the first of them. What a candidate
  // gains only shrinks, so it is reckoned anew where it is on top.
  void choose() {
    cover_.covered.assign(net_.places.size(), false);
    using Entry = std::pair<std::size_t, std::size_t>;  // gain, candidates after it
    std::priority_queue<Entry> waiting;
    const std::size_t count = candidates_.size();
    for (std::size_t c = 0; c < count; ++c) waiting.push({candidates_[c].places.size(), count - c});
    while (!waiting.empty()) {
      checkpoint_();
      const auto [promised, after] = waiting.top();
      waiting.pop();
      const std::size_t now = gain(count - after);
      if (now == promised && now > 0) take(candidates_[count - after]);
      if (now < promised && now > 0) waiting.push({now, after});
    }
    std::sort(cover_.components.begin(), cover_.components.end(),
              [](const Component& a, const Component& b) { return a.places < b.places; });
  }

  void take(const Component& component) {
    for (const std::size_t p : component.places) cover_.covered[p] = true;
    cover_.components.push_back(component);
  }

  const PetriNet& net_;
  const Checkpoint& checkpoint_;
  Proof proof_;
  Cover cover_;
  std::vector<Component> candidates_;
};

}  // namespace

Cover coverOf(const PetriNet& net, const Checkpoint& checkpoint) {
  return Covering(net, checkpoint).covered();
}

}  // namespace tpn
