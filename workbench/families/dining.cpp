// Dining philosophers: each takes the fork on the left, then the one on the right, eats, and puts
// both back. Who has waited for the right fork for too long puts the left one back.

#include "workbench/families/builder.hpp"
#include "workbench/families/families.hpp"
#include "workbench/families/postfix.hpp"

namespace tpn {

namespace {

enum : int { thinking, waiting, eating, fed, fedUp };
enum : int { onTable, taken };

// Patience: 0 is without end.
class Dining {
 public:
  Dining(const std::string& name, int size, int patience)
      : size_(size),
        patience_(patience),
        net_(numbered(name + " ", size) + ": who holds one fork waits " +
             (patience == 0 ? "for ever" : std::to_string(patience)) + " for the other") {}

  // Processes 0 .. size - 1 are the philosophers, then come the forks.
  Network network() {
    for (int i = 1; i <= size_; ++i)
      net_.process(numbered("philosopher", i), {"thinking", "waiting", "eating", "fed", "fed_up"});
    for (int i = 1; i <= size_; ++i) net_.process(numbered("fork", i), {"on_table", "taken"});
    for (int i = 1; i <= size_; ++i) philosopher(i);
    return net_.finished();
  }

 private:
  std::size_t fork(int i) const { return static_cast<std::size_t>(size_ + i - 1); }

  void philosopher(int i) {
    const auto p = static_cast<std::size_t>(i - 1);
    const std::size_t left = fork(i);
    const std::size_t right = fork(i % size_ + 1);
    net_.transition(numbered("left", i), atAnyTime,
                    {{p, thinking, waiting}, {left, onTable, taken}});
    net_.transition(numbered("right", i), atOnce, {{p, waiting, eating}, {right, onTable, taken}});
    net_.transition(numbered("eat", i), {2, 4}, {{p, eating, fed}});
    net_.transition(numbered("put_back", i), atOnce,
                    {{p, fed, thinking}, {left, taken, onTable}, {right, taken, onTable}});
    if (patience_ > 0) {
      net_.transition(numbered("lose_patience", i), {patience_, patience_}, {{p, waiting, fedUp}});
      net_.transition(numbered("give_way", i), atOnce,
                      {{p, fedUp, thinking}, {left, taken, onTable}});
    }
    net_.label(p, waiting, {about(i, 2)});
    net_.label(p, eating, {1, about(i, 1)});
    net_.proposition(about(i, 1), numbered("eating", i));
    net_.proposition(about(i, 2), numbered("waiting", i));
    net_.proposition(1, "some_eating");
  }

  int size_;
  int patience_;
  NetworkBuilder net_;
};

std::string neighboursPostfix(int size) {
  std::string text = "p11p21&";  // both pairs, where there are only two philosophers
  for (int i = 2; i <= size && size > 2; ++i)
    text += proposed(about(i, 1)) + proposed(about(i % size + 1, 1)) + "&+";
  return text;
}

std::string neighboursInfix(int size) {
  std::string text = "eating1 && eating2";
  for (int i = 2; i <= size && size > 2; ++i)
    text += " || " + numbered("eating", i) + " && " + numbered("eating", i % size + 1);
  return text;
}

std::vector<FamilyQuestion> questions() {
  return {
      {"eating", [](int) { return proposed(1); }, [](int) { return std::string("some_eating"); }},
      {"neighbours", neighboursPostfix, neighboursInfix},
      {"waiting", [](int size) { return everyOne(2, size); },
       [](int size) { return numbered("atleast(", size) + ", *.waiting)"; }},
      {"stuck", nullptr, [](int) { return std::string("deadlock"); }},
  };
}

}  // namespace

std::vector<Family> diningFamilies() {
  return {{"dining", "philosophers", 2,
           [](int size) { return Dining("dining", size, 3).network(); }, questions()},
          {"dining-stubborn", "philosophers", 2,
           [](int size) { return Dining("dining-stubborn", size, 0).network(); }, questions()}};
}

}  // namespace tpn
