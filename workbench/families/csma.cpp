// Carrier sense multiple access with collision detection: senders on a bus, who begin when they
// hear nobody, and stop when they hear a collision. What a sender sends is heard everywhere only
// after a while; after the slot time a sender takes the bus to be its own.

#include "workbench/families/builder.hpp"
#include "workbench/families/families.hpp"
#include "workbench/families/postfix.hpp"

namespace tpn {

namespace {

namespace sender {
enum : int { quiet, sending, owner, ending, backoff };
}
// A collision: two senders are to hear of it, or one still is.
namespace medium {
enum : int { idle, fresh, busy, collided, jammed };
}

class Csma {
 public:
  Csma(const std::string& name, int size, int delay, int slot)
      : size_(size),
        delay_(delay),
        slot_(slot),
        net_(numbered(name + " ", size) + ": heard everywhere after " + std::to_string(delay) +
             ", the slot is " + std::to_string(slot)) {}

  Network network() {
    for (int i = 1; i <= size_; ++i)
      net_.process(numbered("sender", i), {"quiet", "sending", "owner", "ending", "backoff"});
    bus_ = net_.process("bus", {"idle", "fresh", "busy", "collided", "jammed"});
    for (int i = 1; i <= size_; ++i) sender(i);
    net_.transition("spread", {delay_, delay_}, {{bus_, medium::fresh, medium::busy}});
    net_.label(bus_, medium::collided, {2});
    net_.label(bus_, medium::jammed, {2});
    net_.proposition(1, "some_owner");
    net_.proposition(2, "collision");
    return net_.finished();
  }

 private:
  void sender(int i) {
    using namespace sender;
    using namespace medium;
    const auto s = static_cast<std::size_t>(i - 1);
    const auto together = [&](const char* name, const Interval& interval, const Move& move,
                              const Move& bus) {
      net_.transition(numbered(name, i), interval, {move, bus});
    };
    together("begin", atAnyTime, {s, quiet, sending}, {bus_, idle, fresh});
    together("clash", atAnyTime, {s, quiet, sending}, {bus_, fresh, collided});
    together("hear", atOnce, {s, sending, backoff}, {bus_, collided, jammed});
    together("hear_last", atOnce, {s, sending, backoff}, {bus_, jammed, idle});
    net_.transition(numbered("own", i), {slot_, slot_}, {{s, sending, owner}});
    net_.transition(numbered("transmit", i), {4, 6}, {{s, owner, ending}});
    together("end", atOnce, {s, ending, quiet}, {bus_, busy, idle});
    together("end_jammed", atOnce, {s, ending, quiet}, {bus_, jammed, idle});
    net_.transition(numbered("rest", i), {1, 3}, {{s, backoff, quiet}});
    net_.label(s, owner, {1, about(i, 1)});
    net_.label(s, sending, {about(i, 2)});
    net_.proposition(about(i, 1), numbered("owner", i));
    net_.proposition(about(i, 2), numbered("sending", i));
  }

  int size_;
  int delay_;
  int slot_;
  std::size_t bus_ = 0;
  NetworkBuilder net_;
};

std::vector<FamilyQuestion> questions() {
  return {
      {"owned", [](int) { return proposed(1); }, [](int) { return std::string("some_owner"); }},
      {"collision", [](int) { return proposed(2); },
       [](int) { return std::string("bus.collided || bus.jammed"); }},
      {"late", [](int) { return std::string("p1p2&"); },
       [](int) { return std::string("some_owner && (bus.collided || bus.jammed)"); }},
      {"two", [](int size) { return someTwo(1, size); },
       [](int) { return std::string("atleast(2, *.owner)"); }},
  };
}

}  // namespace

std::vector<Family> csmaFamilies() {
  return {{"csma", "senders", 2, [](int size) { return Csma("csma", size, 1, 2).network(); },
           questions()},
          {"csma-short", "senders", 2,
           [](int size) { return Csma("csma-short", size, 2, 1).network(); }, questions()}};
}

}  // namespace tpn
