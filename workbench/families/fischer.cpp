// Fischer's mutual exclusion protocol: processes that share one variable, and nothing else, keep
// each other out by time alone. The last process is the variable; its location is its value.

#include "workbench/families/builder.hpp"
#include "workbench/families/families.hpp"
#include "workbench/families/postfix.hpp"

namespace tpn {

namespace {

enum : int { idle, asking, writing, waiting, reading, critical };

class Fischer {
 public:
  Fischer(const std::string& name, int size, int writeLatest, int readEarliest)
      : size_(size),
        writeLatest_(writeLatest),
        readEarliest_(readEarliest),
        net_(numbered(name + " ", size) + ": writes within " + std::to_string(writeLatest) +
             ", reads after " + std::to_string(readEarliest)) {}

  Network network() {
    std::vector<std::string> values{"free"};
    for (int i = 1; i <= size_; ++i) {
      net_.process(numbered("P", i),
                   {"idle", "asking", "writing", "waiting", "reading", "critical"});
      values.push_back(numbered("P", i));
    }
    variable_ = net_.process("variable", values);
    for (int i = 1; i <= size_; ++i) process(i);
    net_.proposition(1, "some_critical");
    return net_.finished();
  }

 private:
  void process(int i) {
    const auto p = static_cast<std::size_t>(i - 1);
    const auto seeing = [&](const char* what, int v) {
      return numbered(numbered(what, i) + "_seeing", v);
    };
    access(numbered("ask", i), atAnyTime, {p, idle, asking}, 0, 0);
    net_.transition(numbered("decide", i), {0, writeLatest_}, {{p, asking, writing}});
    for (int v = 0; v <= size_; ++v)
      access(numbered(numbered("write", i) + "_over", v), atOnce, {p, writing, waiting}, v, i);
    net_.transition(numbered("wait", i), {readEarliest_, 3}, {{p, waiting, reading}});
    for (int v = 0; v <= size_; ++v)
      if (v == i)
        access(numbered("enter", i), atOnce, {p, reading, critical}, v, v);
      else
        access(seeing("retry", v), atOnce, {p, reading, idle}, v, v);
    for (int v = 0; v <= size_; ++v)
      access(seeing("leave", v), atAnyTime, {p, critical, idle}, v, 0);
    net_.label(p, critical, {1, about(i, 1)});
    net_.proposition(about(i, 1), numbered("critical", i));
  }

  // The variable holds `before` and then `after`.
  void access(const std::string& name, const Interval& interval, const Move& move, int before,
              int after) {
    net_.transition(name, interval, {move, {variable_, before, after}});
  }

  int size_;
  int writeLatest_;
  int readEarliest_;
  std::size_t variable_ = 0;
  NetworkBuilder net_;
};

std::vector<FamilyQuestion> questions() {
  return {
      {"critical", [](int) { return proposed(1); },
       [](int) { return std::string("some_critical"); }},
      {"violation", [](int size) { return someTwo(1, size); },
       [](int) { return std::string("atleast(2, *.critical)"); }},
  };
}

}  // namespace

std::vector<Family> fischerFamilies() {
  return {{"fischer", "processes", 2,
           [](int size) { return Fischer("fischer", size, 1, 2).network(); }, questions()},
          {"fischer-swapped", "processes", 2,
           [](int size) { return Fischer("fischer-swapped", size, 2, 1).network(); }, questions()}};
}

}  // namespace tpn
