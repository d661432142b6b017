#include "tests/endtoend/explorer.hpp"

#include <algorithm>
#include <set>

namespace {

// One end of a path: where it stands, and whether the property held on the way.
struct PathEnd {
  bool seen;
  State state;

  friend auto operator<=>(const PathEnd&, const PathEnd&) = default;
};

using Layer = std::set<PathEnd>;

class Explorer {
 public:
  explicit Explorer(const Network& net) : net_(net), top_(largestConstant(net) + 1) {}

  Layer start() const {
    Layer layer;
    reach(layer, false, initialState(net_));
    return layer;
  }

  Layer step(int i, const Layer& from) const {
    if (i % 3 == 2) return from;
    Layer to;
    for (const PathEnd& end : from) {
      if (i % 3 == 0)
        letTimePass(to, end);
      else
        fireEach(to, end);
    }
    return to;
  }

 private:
  void reach(Layer& layer, bool seen, const State& state) const {
    layer.insert({seen || propertyHolds(net_, state), state});
  }

  // All clocks above every constant are alike: top_ stands for them.
  State delayed(const State& from, int delay) const {
    State to = from;
    for (std::int64_t& clock : to.clocks) clock = std::min<std::int64_t>(clock + delay, top_);
    return to;
  }

  void letTimePass(Layer& layer, const PathEnd& end) const {
    for (int delay = 0; delay <= top_; ++delay) {
      const State to = delayed(end.state, delay);
      if (invariant(net_, to, 1)) reach(layer, end.seen, to);
    }
  }

  void fireEach(Layer& layer, const PathEnd& end) const {
    for (const Transition& t : net_.transitions) {
      if (!mayFire(t, end.state, 1)) continue;
      const State to = fired(t, end.state);
      if (invariant(net_, to, 1)) reach(layer, end.seen, to);
    }
  }

  const Network& net_;
  int top_;
};

bool anySeen(const Layer& layer) {
  return std::any_of(layer.begin(), layer.end(), [](const PathEnd& end) { return end.seen; });
}

}  // namespace

std::vector<bool> predictions(const Network& net, int longest) {
  const Explorer explorer(net);
  Layer layer = explorer.start();
  std::vector<bool> reached{anySeen(layer)};
  for (int i = 0; i < longest; ++i) {
    layer = explorer.step(i, layer);
    reached.push_back(anySeen(layer));
  }
  return reached;
}
