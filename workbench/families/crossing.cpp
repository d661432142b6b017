// A railway crossing: trains, a counter of those that are about, the controller, and the gate.

#include "workbench/families/builder.hpp"
#include "workbench/families/families.hpp"
#include "workbench/families/postfix.hpp"

namespace tpn {

namespace {

namespace train {
enum : int { far, near, inside, past };
}
namespace control {
enum : int { atRest, alerted, lowers, closed, released, raises };
}
namespace barrier {
enum : int { up, lowering, down, raising };
}

class Crossing {
 public:
  Crossing(const std::string& name, int size, int loweringLatest)
      : size_(size),
        loweringLatest_(loweringLatest),
        net_(numbered(name + " ", size) + ": the gate takes 1 to " +
             std::to_string(loweringLatest) + " to come down") {}

  Network network() {
    for (int i = 1; i <= size_; ++i)
      net_.process(numbered("train", i), {"far", "near", "inside", "past"});
    counter_ = net_.process("counter", {});
    controller_ = net_.process("controller",
                               {"at_rest", "alerted", "lowers", "closed", "released", "raises"});
    gate_ = net_.process("gate", {"up", "lowering", "down", "raising"});
    for (int i = 1; i <= size_; ++i) train(i);
    controllerAndGate();
    nameNetworkPropositions();
    return net_.finished();
  }

 private:
  // The controller hears of the first train to come near and of the last to have passed.
  void train(int i) {
    using namespace train;
    using namespace control;
    const auto t = static_cast<std::size_t>(i - 1);
    const Move comes{t, far, near};
    const Move leaves{t, past, far};
    const std::string near_ = numbered("near", i);
    const std::string far_ = numbered("far", i);
    report(near_ + "_first", atAnyTime, comes, {counter_, 0, 1}, {controller_, atRest, alerted});
    report(near_ + "_cancels", atAnyTime, comes, {counter_, 0, 1}, {controller_, released, closed});
    report(near_ + "_in_time", atAnyTime, comes, {counter_, 0, 1}, {controller_, raises, closed});
    for (int n = 1; n < size_; ++n)
      net_.transition(numbered(near_ + "_beside", n), atAnyTime, {comes, {counter_, n, n + 1}});
    net_.transition(numbered("enter", i), {4, 6}, {{t, near, inside}});
    net_.transition(numbered("clear", i), {1, 2}, {{t, inside, past}});
    report(far_ + "_last", atOnce, leaves, {counter_, 1, 0}, {controller_, closed, released});
    for (int n = 2; n <= size_; ++n)
      net_.transition(numbered(far_ + "_leaving", n - 1), atOnce, {leaves, {counter_, n, n - 1}});
    net_.label(t, near, {3});
    net_.label(t, inside, {1, about(i, 1)});
    net_.proposition(about(i, 1), numbered("inside", i));
  }

  void report(const std::string& name, const Interval& interval, const Move& train,
              const Move& count, const Move& controller) {
    net_.transition(name, interval, {train, count, controller});
  }

  void controllerAndGate() {
    using namespace control;
    using namespace barrier;
    net_.transition("decide_down", {0, 1}, {{controller_, alerted, lowers}});
    order("lower", lowers, closed, up, lowering);
    order("lower_again", lowers, closed, raising, lowering);
    net_.transition("decide_up", {0, 1}, {{controller_, released, raises}});
    order("raise", raises, atRest, down, raising);
    net_.transition("is_down", {1, loweringLatest_}, {{gate_, lowering, down}});
    net_.transition("is_up", {1, 2}, {{gate_, raising, up}});
    net_.label(gate_, down, {2});
    net_.label(gate_, raising, {4});
  }

  // The controller orders the gate to move.
  void order(const std::string& name, int source, int target, int gateSource, int gateTarget) {
    net_.transition(name, atOnce, {{controller_, source, target}, {gate_, gateSource, gateTarget}});
  }

  void nameNetworkPropositions() {
    net_.proposition(1, "some_inside");
    net_.proposition(2, "gate_down");
    net_.proposition(3, "some_near");
    net_.proposition(4, "gate_raising");
  }

  int size_;
  int loweringLatest_;
  std::size_t counter_ = 0;
  std::size_t controller_ = 0;
  std::size_t gate_ = 0;
  NetworkBuilder net_;
};

std::vector<FamilyQuestion> questions() {
  return {
      {"down", [](int) { return proposed(2); }, [](int) { return std::string("gate.down"); }},
      {"danger", [](int) { return std::string("p1p-2&"); },
       [](int) { return std::string("some_inside && !gate.down"); }},
      {"hurried", [](int) { return std::string("p3p4&"); },
       [](int) { return std::string("some_near && gate.raising"); }},
      {"together", [](int size) { return everyOne(1, size); },
       [](int size) { return numbered("atleast(", size) + ", *.inside)"; }},
  };
}

}  // namespace

std::vector<Family> crossingFamilies() {
  return {{"crossing", "trains", 1,
           [](int size) { return Crossing("crossing", size, 2).network(); }, questions()},
          {"crossing-slow", "trains", 1,
           [](int size) { return Crossing("crossing-slow", size, 4).network(); }, questions()}};
}

}  // namespace tpn
