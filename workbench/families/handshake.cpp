// Hand-shakes: pairs of a sender, who waits for an answer as long as its patience lasts, and a
// receiver.

#include "workbench/families/builder.hpp"
#include "workbench/families/families.hpp"
#include "workbench/families/postfix.hpp"

namespace tpn {

namespace {

namespace sender {
enum : int { idle, waiting, gaveUp };
}
namespace receiver {
enum : int { idle, working, done };
}

void addPair(NetworkBuilder& net, int i, int patience) {
  const std::size_t s = net.process(numbered("sender", i), {"idle", "waiting", "gave_up"});
  const std::size_t r = net.process(numbered("receiver", i), {"idle", "working", "done"});
  net.transition(numbered("request", i), {0, 2},
                 {{s, sender::idle, sender::waiting}, {r, receiver::idle, receiver::working}});
  net.transition(numbered("work", i), {1, 3}, {{r, receiver::working, receiver::done}});
  net.transition(numbered("answer", i), atOnce,
                 {{s, sender::waiting, sender::idle}, {r, receiver::done, receiver::idle}});
  net.transition(numbered("give_up", i), {patience, patience},
                 {{s, sender::waiting, sender::gaveUp}});
  net.transition(numbered("rest", i), {1, 1}, {{s, sender::gaveUp, sender::idle}});
  net.transition(numbered("drop", i), {1, 1}, {{r, receiver::done, receiver::idle}});
  net.label(s, sender::waiting, {about(i, 1)});
  net.label(s, sender::gaveUp, {1});
  net.label(r, receiver::working, {about(i, 2)});
  net.proposition(about(i, 1), numbered("waiting", i));
  net.proposition(about(i, 2), numbered("working", i));
}

Network handshake(const std::string& name, int size, int patience) {
  NetworkBuilder net(numbered(name + " ", size) + ": the sender waits " + std::to_string(patience) +
                     " for the answer");
  for (int i = 1; i <= size; ++i) addPair(net, i, patience);
  net.proposition(1, "some_gave_up");
  return net.finished();
}

std::string stalePostfix(int size) {
  std::string text;
  for (int i = 1; i <= size; ++i)
    text += "p-" + std::to_string(about(i, 1)) + proposed(about(i, 2)) + "&" + (i > 1 ? "+" : "");
  return text;
}

std::string staleInfix(int size) {
  std::string text;
  for (int i = 1; i <= size; ++i)
    text += (i > 1 ? " || " : "") + numbered("working", i) + " && !" + numbered("waiting", i);
  return text;
}

std::vector<FamilyQuestion> questions() {
  return {
      {"busy", [](int size) { return everyOne(2, size); },
       [](int size) { return numbered("atleast(", size) + ", *.working)"; }},
      {"timeout", [](int) { return proposed(1); }, [](int) { return std::string("some_gave_up"); }},
      {"stale", stalePostfix, staleInfix},
  };
}

}  // namespace

std::vector<Family> handshakeFamilies() {
  return {{"handshake", "pairs", 1, [](int size) { return handshake("handshake", size, 4); },
           questions()},
          {"handshake-hasty", "pairs", 1,
           [](int size) { return handshake("handshake-hasty", size, 2); }, questions()}};
}

}  // namespace tpn
