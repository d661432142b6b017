// A network in the making: processes first, then transitions with what they do to each of them.

#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "workbench/network/network.hpp"

namespace tpn {

inline const Interval atAnyTime{0, {}};
inline const Interval atOnce{0, 0};  // in no time, from the moment that all its processes are there

class NetworkBuilder {
 public:
  explicit NetworkBuilder(const std::string& title) { net_.title = title; }

  // A process in the first of these locations, which are numbered from 0; its index. An empty name
  // is none. What is named and no move ends in is no location.
  std::size_t process(const std::string& name, const std::vector<std::string>& locations);

  // At most one move a process, in any order.
  void transition(const std::string& name, const Interval& interval, std::vector<Move> moves);

  void label(std::size_t process, int location, std::initializer_list<int> propositions);
  void proposition(int proposition, const std::string& name);

  Network finished();  // leaves the builder empty

 private:
  Network net_;
};

// The same name for each of many: "train3".
std::string numbered(const std::string& name, int number);

}  // namespace tpn
