// Messages over a channel that loses: the sender repeats one, N times at most, until it is
// acknowledged over another such channel, and then goes on to the next.

#include "workbench/families/builder.hpp"
#include "workbench/families/families.hpp"
#include "workbench/families/postfix.hpp"

namespace tpn {

namespace {

namespace receiver {
enum : int { without, reading, answering, with };
}
namespace channel {
enum : int { empty, carrying, arriving };
}

class Lossy {
 public:
  Lossy(const std::string& name, int size, int patience)
      : size_(size),
        patience_(patience),
        net_(numbered(name + " ", size) + ": the sender waits " + std::to_string(patience) +
             " for the acknowledgement") {}

  Network network() {
    sender_ = net_.process("sender", senderLocations());
    there_ = net_.process("message", {"empty", "carrying", "arriving"});
    back_ = net_.process("acknowledgement", {"empty", "carrying", "arriving"});
    receiver_ = net_.process("receiver", {"without", "reading", "answering", "with"});
    carries("message", there_);
    carries("acknowledgement", back_);
    receives();
    sends();
    propositions();
    return net_.finished();
  }

 private:
  // The sender is ready in 0; it waits after the k-th sending, k = 1 .. size + 1, and after that it
  // is about to send again, or, the last time, has failed.
  int waiting(int k) const { return k; }
  int expired(int k) const { return size_ + 1 + k; }
  int failed() const { return expired(size_ + 1); }
  int done() const { return failed() + 1; }

  std::vector<std::string> senderLocations() const {
    std::vector<std::string> names{"ready"};
    for (int k = 1; k <= size_ + 1; ++k) names.push_back(numbered("waiting", k));
    for (int k = 1; k <= size_; ++k) names.push_back(numbered("expired", k));
    names.insert(names.end(), {"failed", "done"});
    return names;
  }

  void carries(const std::string& what, std::size_t channel) {
    using namespace channel;
    net_.transition("carry_" + what, {1, 2}, {{channel, carrying, arriving}});
    net_.transition("lose_" + what, {0, 2}, {{channel, carrying, empty}});
  }

  // What arrives once more is acknowledged once more.
  void receives() {
    using namespace receiver;
    const Move arrives{there_, channel::arriving, channel::empty};
    net_.transition("receive", atOnce, {arrives, {receiver_, without, reading}});
    net_.transition("receive_again", atOnce, {arrives, {receiver_, with, reading}});
    net_.transition("read", {0, 1}, {{receiver_, reading, answering}});
    net_.transition("acknowledge", atOnce,
                    {{back_, channel::empty, channel::carrying}, {receiver_, answering, with}});
  }

  void sends() {
    const Move goes{there_, channel::empty, channel::carrying};
    const Move arrives{back_, channel::arriving, channel::empty};
    net_.transition("send", atAnyTime, {{sender_, 0, waiting(1)}, goes});
    for (int k = 1; k <= size_ + 1; ++k) {
      net_.transition(numbered("hear", k), atOnce, {{sender_, waiting(k), done()}, arrives});
      net_.transition(numbered("expire", k), {patience_, patience_},
                      {{sender_, waiting(k), expired(k)}});
      if (k <= size_)
        net_.transition(numbered("repeat", k), atOnce,
                        {{sender_, expired(k), waiting(k + 1)}, goes});
    }
    for (const int location : {0, done(), failed()})
      net_.transition(numbered("ignore_in_", location), atOnce,
                      {{sender_, location, location}, arrives});
    goesOn();
  }

  // To the next message, which the receiver does not have.
  void goesOn() {
    using namespace receiver;
    net_.transition("next", atAnyTime, {{sender_, done(), 0}, {receiver_, with, without}});
    net_.transition("give_up", atAnyTime, {{sender_, failed(), 0}, {receiver_, without, without}});
    net_.transition("give_up_unsure", atAnyTime,
                    {{sender_, failed(), 0}, {receiver_, with, without}});
  }

  void propositions() {
    for (int k = 1; k <= size_ + 1; ++k) net_.label(sender_, expired(k), {4});
    net_.label(sender_, failed(), {2});
    net_.label(sender_, done(), {1});
    for (const int location : {receiver::reading, receiver::answering, receiver::with})
      net_.label(receiver_, location, {3});
    for (const std::size_t process : {there_, back_})
      for (const int location : {channel::carrying, channel::arriving})
        net_.label(process, location, {5});
    for (const int location : {receiver::reading, receiver::answering})
      net_.label(receiver_, location, {5});
    const char* const names[] = {"done", "failed", "received", "expired", "under_way"};
    for (int proposition = 1; const char* name : names) net_.proposition(proposition++, name);
  }

  int size_;
  int patience_;
  std::size_t sender_ = 0;
  std::size_t there_ = 0;  // the channels
  std::size_t back_ = 0;
  std::size_t receiver_ = 0;
  NetworkBuilder net_;
};

std::vector<FamilyQuestion> questions() {
  return {
      {"done", [](int) { return proposed(1); }, [](int) { return std::string("sender.done"); }},
      {"failed", [](int) { return proposed(2); }, [](int) { return std::string("sender.failed"); }},
      {"unsure", [](int) { return std::string("p2p3&"); },
       [](int) { return std::string("sender.failed && received"); }},
      {"wrong", [](int) { return std::string("p1p-3&"); },
       [](int) { return std::string("sender.done && !received"); }},
      {"premature", [](int) { return std::string("p4p5&"); },
       [](int) { return std::string("expired && under_way"); }},
  };
}

}  // namespace

std::vector<Family> lossyFamilies() {
  return {{"lossy", "repetitions", 1, [](int size) { return Lossy("lossy", size, 6).network(); },
           questions()},
          {"lossy-hasty", "repetitions", 1,
           [](int size) { return Lossy("lossy-hasty", size, 4).network(); }, questions()}};
}

}  // namespace tpn
