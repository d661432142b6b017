// A token ring and a monitor that watches the token come round. Station 1 starts with the token:
// its locations are numbered otherwise than those of the rest.

#include "workbench/families/builder.hpp"
#include "workbench/families/families.hpp"
#include "workbench/families/postfix.hpp"

namespace tpn {

namespace {

struct Station {
  int without;
  int holding;
  int sending;
};

class Ring {
 public:
  Ring(const std::string& name, int size, int patience)
      : size_(size),
        patience_(patience),
        net_(numbered(name + " ", size) + ": the monitor waits " + std::to_string(patience) +
             " for the token") {}

  Network network() {
    for (int i = 1; i <= size_; ++i) {
      const std::vector<std::string> first{"holding", "sending", "without"};
      const std::vector<std::string> other{"without", "holding", "sending"};
      net_.process(numbered("station", i), i == 1 ? first : other);
    }
    monitor_ = net_.process("monitor", {"watching", "alarm"});
    for (int i = 1; i <= size_; ++i) station(i);
    net_.transition("patience_ends", {patience_, patience_}, {{monitor_, 0, 1}});
    net_.transition("watch_anew", atOnce, {{monitor_, 1, 0}});
    net_.label(monitor_, 1, {1});
    net_.proposition(1, "alarm");
    net_.proposition(2, "some_token");
    return net_.finished();
  }

 private:
  static Station at(int i) { return i == 1 ? Station{2, 0, 1} : Station{0, 1, 2}; }
  static std::size_t indexOf(int i) { return static_cast<std::size_t>(i - 1); }

  void station(int i) {
    const auto& [without, holding, sending] = at(i);
    net_.transition(numbered("send", i), {0, 1}, {{indexOf(i), holding, sending}});
    handOn(numbered("pass", i), {0, 1}, i, holding);
    handOn(numbered("pass", i) + "_sent", {1, 2}, i, sending);
    net_.label(indexOf(i), holding, {2, about(i, 1)});
    net_.label(indexOf(i), sending, {2, about(i, 1), about(i, 2)});
    net_.proposition(about(i, 1), numbered("token", i));
    net_.proposition(about(i, 2), numbered("sending", i));
  }

  // Station i hands the token to the next; the monitor sees it come back to station 1.
  void handOn(const std::string& name, const Interval& interval, int i, int source) {
    const int next = i % size_ + 1;
    std::vector<Move> moves{{indexOf(i), source, at(i).without},
                            {indexOf(next), at(next).without, at(next).holding}};
    if (next == 1) moves.push_back({monitor_, 0, 0});
    net_.transition(name, interval, moves);
  }

  int size_;
  int patience_;
  std::size_t monitor_ = 0;
  NetworkBuilder net_;
};

std::vector<FamilyQuestion> questions() {
  return {
      {"last", [](int size) { return proposed(about(size, 2)); },
       [](int size) { return numbered("station", size) + ".sending"; }},
      {"alarm", [](int) { return proposed(1); }, [](int) { return std::string("monitor.alarm"); }},
      {"lost", [](int) { return std::string("p-2"); },
       [](int) { return std::string("!some_token"); }},
      {"two", [](int size) { return someTwo(1, size); },
       [](int) { return std::string("atleast(2, token*)"); }},
  };
}

}  // namespace

std::vector<Family> ringFamilies() {
  return {{"ring", "stations", 2,
           [](int size) { return Ring("ring", size, 3 * size + 1).network(); }, questions()},
          {"ring-hasty", "stations", 2,
           [](int size) { return Ring("ring-hasty", size, 3 * size).network(); }, questions()}};
}

}  // namespace tpn
