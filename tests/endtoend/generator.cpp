#include "tests/endtoend/generator.hpp"

#include <algorithm>
#include <map>

#include "workbench/families/random.hpp"

namespace {

class Generator {
 public:
  explicit Generator(unsigned seed) : networks_(shape(), tpn::scattered(seed)) {}

  Network network() {
    const tpn::Network drawn = networks_.next();
    net_.processes = drawn.processes.size();
    for (const tpn::Transition& t : drawn.transitions) add(t);
    keepEarliestInReach();
    for (std::size_t p = 0; p < net_.processes; ++p) label(p);
    net_.property = property(1 + number(0, 1));
    return net_;
  }

 private:
  static tpn::RandomShape shape() {
    tpn::RandomShape shape;
    shape.processes = {1, 4};
    shape.locations = {2, 4};
    shape.unlimited = 7;
    shape.shared = 5;
    return shape;
  }

  int number(int least, int most) {
    return least +
           static_cast<int>(networks_.random().upTo(static_cast<std::size_t>(most - least)));
  }
  bool percent(int chance) { return number(0, 99) < chance; }

  // Locations are numbered anew from 0 on in the order they are met, so that no number is left out
  // and the first move leaves the initial one.
  void add(const tpn::Transition& t) {
    std::vector<Move> moves;
    for (const tpn::Move& move : t.moves) {
      const int source = renumbered(move.process, move.source);
      moves.push_back({move.process, source, renumbered(move.process, move.target)});
    }
    const auto latest = t.interval.latest;
    net_.transitions.push_back({static_cast<int>(t.interval.earliest),
                                latest ? static_cast<int>(*latest) : noLatest, moves});
  }

  int renumbered(std::size_t process, int location) {
    std::map<int, int>& known = numbers_[process];
    return known.emplace(location, static_cast<int>(known.size())).first->second;
  }

  void keepEarliestInReach() {
    const int largest = largestLatest(net_);
    for (Transition& t : net_.transitions) t.earliest = std::min(t.earliest, largest);
  }

  void label(std::size_t process) {
    const int locations = std::max(1, static_cast<int>(numbers_[process].size()));
    for (int location = 0; location < locations; ++location)
      for (int proposition = 1; proposition <= 4; ++proposition)
        if (percent(location == 0 ? 8 : 35))
          net_.labels.push_back({process, location, proposition});
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

  tpn::RandomNetworks networks_;
  std::map<std::size_t, std::map<int, int>> numbers_;  // process -> location as drawn -> as it is
  Network net_{};
};

}  // namespace

Network randomNetwork(unsigned seed) { return Generator(seed).network(); }
