// A net put together from what its file declares, in any order and in pieces: what is said of a
// place or a transition in several places adds up. What we do not take is refused where it was
// said.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "workbench/base/checkpoint.hpp"
#include "workbench/nets/netrules.hpp"
#include "workbench/nets/petrinet.hpp"

namespace tpn {

enum class ArcKind { consume, read, produce };

class NetBuilder {
 public:
  explicit NetBuilder(NetReport& report) : report_(report) {}

  // The index of a place or a transition, new where the name is.
  std::size_t place(const std::string& name, Place at);
  std::size_t transition(const std::string& name, Place at);
  std::optional<std::size_t> knownPlace(const std::string& name) const;
  std::optional<std::size_t> knownTransition(const std::string& name) const;

  void arc(ArcKind kind, std::size_t transition, std::size_t place, std::int64_t weight, Place at);
  void tokens(std::size_t place, std::int64_t count, Place at);
  void interval(std::size_t transition, const Interval& interval, Place at);
  void label(std::string& label, const std::string& text, Place at);

  PetriNet& net() { return net_; }

  // Call once, at the end.
  PetriNet finished(const Checkpoint& checkpoint);

 private:
  struct Arc {
    std::size_t transition = 0;
    std::size_t place = 0;
    ArcKind kind = ArcKind::consume;
    std::int64_t weight = 0;
    Place at;
  };

  std::vector<Arc> summedArcs(const Checkpoint& checkpoint);
  void enter(const Arc& arc);

  NetReport& report_;
  PetriNet net_;
  std::unordered_map<std::string, std::size_t> places_;
  std::unordered_map<std::string, std::size_t> transitions_;
  std::vector<std::int64_t> tokens_;  // [place]
  std::vector<bool> timed_;           // [transition]: it has an interval already
  std::vector<Arc> arcs_;
};

// A time as the readers find it: refused where it is above what can be counted.
bool checkTime(std::int64_t time, Place at, NetReport& report);

}  // namespace tpn
