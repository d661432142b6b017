#include "tests/endtoend/generator.hpp"

#include <algorithm>
#include <cassert>
#include <map>
#include <random>

namespace {

class Generator {
 public:
  explicit Generator(unsigned seed) : random_(seed) {}

  Network network() {
    net_.processes = 1 + upTo(3);
    net_.transitions.resize(1 + std::max(upTo(5), upTo(5)));
    for (Transition& t : net_.transitions) addMoves(t);
    for (std::size_t p = 0; p < net_.processes; ++p) chooseLocations(p);
    chooseIntervals();
    net_.property = property(1 + static_cast<int>(upTo(1)));
    return net_;
  }

 private:
  // Standard distributions differ between libraries; the slight bias of the remainder is harmless.
  std::size_t upTo(std::size_t most) {
    assert(most + 1 != 0);
    return random_() % (most + 1);
  }
  int number(int least, int most) {
    return least + static_cast<int>(upTo(static_cast<std::size_t>(most - least)));
  }
  bool percent(std::size_t chance) { return upTo(99) < chance; }

  // One process always takes part, each other one sometimes.
  void addMoves(Transition& t) {
    const std::size_t always = upTo(net_.processes - 1);
    for (std::size_t p = 0; p < net_.processes; ++p)
      if (p == always || percent(20)) t.moves.push_back({p, 0, 0});
  }

  std::vector<Move*> movesOf(std::size_t process) {
    std::vector<Move*> found;
    for (Transition& t : net_.transitions)
      for (Move& move : t.moves)
        if (move.process == process) found.push_back(&move);
    return found;
  }

  // Random ends, then numbered anew from 0 on in the order they were met, so that no number is
  // left out. The first move leaves the initial location.
  void chooseLocations(std::size_t process) {
    const int most = number(1, 4);
    std::map<int, int> numbered{{0, 0}};
    const auto renumbered = [&](int location) {
      return numbered.emplace(location, static_cast<int>(numbered.size())).first->second;
    };
    bool first = true;
    for (Move* move : movesOf(process)) {
      const int source = first || percent(25) ? 0 : number(0, most - 1);
      first = false;
      move->source = renumbered(source);
      move->target = renumbered(number(0, most - 1));
    }
    for (int location = 0; location < static_cast<int>(numbered.size()); ++location)
      for (int proposition = 1; proposition <= 4; ++proposition)
        if (percent(location == 0 ? 8 : 35))
          net_.labels.push_back({process, location, proposition});
  }

  void chooseIntervals() {
    const int most = number(1, 4);
    for (Transition& t : net_.transitions) t.latest = percent(15) ? noLatest : number(0, most);
    const int largest = largestLatest(net_);
    for (Transition& t : net_.transitions) {
      const bool free = t.latest == noLatest || percent(5);  // 5%: it may never be allowed to fire
      t.earliest = number(0, free ? largest : t.latest);
    }
  }

  std::string atom() {
    if (percent(5)) return "T";
    return (percent(20) ? "p-" : "p") + std::to_string(number(1, 5));  // 5 labels no location
  }

  std::string property(int depth) {
    if (depth == 0 || percent(10)) return atom();
    const std::string left = property(depth - 1);
    const std::string right = property(depth - 1);
    return left + right + (percent(65) ? "&" : "+");
  }

  std::mt19937 random_;
  Network net_{};
};

}  // namespace

Network randomNetwork(unsigned seed) { return Generator(seed).network(); }
