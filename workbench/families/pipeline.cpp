// A timed pipeline: a producer, nodes in a row, and a consumer. What is done is handed on at once,
// or stays where it is until the next has room.

#include "workbench/families/builder.hpp"
#include "workbench/families/families.hpp"
#include "workbench/families/postfix.hpp"

namespace tpn {

namespace {

namespace producer {
enum : int { making, made };
}
namespace node {
enum : int { empty, working, done };
}
namespace consumer {
enum : int { hungry, consuming };
}

class Pipeline {
 public:
  Pipeline(const std::string& name, int size, const Interval& work)
      : size_(size),
        work_(work),
        net_(numbered(name + " ", size) + ": the work of a node takes " +
             std::to_string(work.earliest) + " to " + std::to_string(*work.latest)) {}

  // The producer counts as stage 0, the consumer as the last one; an index is a stage.
  Network network() {
    net_.process("producer", {"making", "made"});
    for (int i = 1; i <= size_; ++i)
      net_.process(numbered("node", i), {"empty", "working", "done"});
    const std::size_t last = net_.process("consumer", {"hungry", "consuming"});
    net_.transition("make", {4, 6}, {{0, producer::making, producer::made}});
    handOn("start", 0, producer::made, producer::making);
    for (int i = 1; i <= size_; ++i) {
      net_.transition(numbered("work", i), work_, {{stage(i), node::working, node::done}});
      handOn(numbered("pass", i), i, node::done, node::empty);
    }
    net_.transition("consume", {1, 3}, {{last, consumer::consuming, consumer::hungry}});
    propositions();
    return net_.finished();
  }

 private:
  static std::size_t stage(int i) { return static_cast<std::size_t>(i); }

  // Empty and hungry have the same number, working and consuming too.
  void handOn(const std::string& name, int i, int source, int target) {
    net_.transition(name, atOnce,
                    {{stage(i), source, target}, {stage(i + 1), node::empty, node::working}});
  }

  void propositions() {
    label(0, producer::made, 2, "made");
    for (int i = 1; i <= size_; ++i) {
      label(i, node::working, 1, numbered("working", i));
      label(i, node::done, 2, numbered("done", i));
    }
    label(size_ + 1, consumer::consuming, 1, "consuming");
  }

  void label(int i, int location, int kind, const std::string& name) {
    net_.label(stage(i), location, {about(i, kind)});
    net_.proposition(about(i, kind), name);
  }

  int size_;
  Interval work_;
  NetworkBuilder net_;
};

// A stage is done and the next is at work.
std::string stallPostfix(int size) {
  std::string text;
  for (int i = 0; i <= size; ++i)
    text += proposed(about(i, 2)) + proposed(about(i + 1, 1)) + "&" + (i > 0 ? "+" : "");
  return text;
}

std::string stallInfix(int size) {
  std::string text = "made && working1";
  for (int i = 1; i < size; ++i)
    text += " || " + numbered("done", i) + " && " + numbered("working", i + 1);
  return text + " || " + numbered("done", size) + " && consuming";
}

std::vector<FamilyQuestion> questions() {
  return {
      {"delivered", [](int size) { return proposed(about(size + 1, 1)); },
       [](int) { return std::string("consumer.consuming"); }},
      {"full", [](int size) { return everyOne(1, size); },
       [](int size) { return numbered("atleast(", size) + ", node*.working)"; }},
      {"stall", stallPostfix, stallInfix},
  };
}

}  // namespace

std::vector<Family> pipelineFamilies() {
  return {{"pipeline", "nodes", 1,
           [](int size) {
             return Pipeline("pipeline", size, {3, 3}).network();
           },
           questions()},
          {"pipeline-uneven", "nodes", 1,
           [](int size) {
             return Pipeline("pipeline-uneven", size, {2, 4}).network();
           },
           questions()}};
}

}  // namespace tpn
