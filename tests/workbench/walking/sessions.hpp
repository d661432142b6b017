// Sessions as transcripts: what is typed stands after the prompt.

#pragma once

#include <sstream>
#include <string>

#include "tests/workbench/network/smallnets.hpp"
#include "workbench/walking/walk.hpp"

namespace tpn {

struct Session {
  Walked walked;
  std::string out;
};

inline Session session(const std::string& input, const Network& net = twoProcesses()) {
  std::istringstream in(input);
  std::ostringstream out;
  return {walk(net, in, out), out.str()};
}

inline Session script(const std::string& input, const Network& net = twoProcesses()) {
  std::istringstream in(input);
  std::ostringstream out;
  const Walked walked = walkScript(net, "moves.txt", in, out);
  return {walked, out.str()};
}

// What the commands after the first state answer.
inline std::string answers(const std::string& input) {
  const std::string out = session(input).out;
  return out.substr(out.find("\n> ") + 1);
}

inline const std::string start = R"(time 0, after 0 steps
  process 1: location 0, clock 0
  process 2: location 0, clock 0
  propositions: none
   1  delay 1 to 2      process 1: 0 -> 1
   2  delay 0 to 2      process 2: 0 -> 1
)";

inline const std::string afterOne = R"(time 3/2, after 1 step
  process 1: location 1, clock 0
  process 2: location 0, clock 3/2
  propositions: 7
   2  delay 0 to 3/2    process 2: 0 -> 1
)";

}  // namespace tpn
