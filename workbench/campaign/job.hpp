// A job: one question to one engine, which stands by itself. It is one line of the file `jobs`, so
// that a worker reads its own and nothing else of a plan of any length.

#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "workbench/search/runcube.hpp"

namespace tpn {

// A bound of a transition that is another than in the network's file.
struct Swept {
  std::string transition;  // a name or a number
  bool latest = true;      // or the earliest time
  std::int64_t value = 0;

  std::string what() const { return transition + (latest ? " latest" : " earliest"); }

  friend bool operator==(const Swept&, const Swept&) = default;
};

struct Job {
  int number = 0;            // from 1
  std::string network;       // in the folder of inputs
  std::string question;      // in the folder of inputs
  std::string engine;        // by its name
  std::int64_t seed = 0;     // of the prover
  std::string name;          // of the network, for people
  std::string asked;         // the question, for people
  std::int64_t size = 0;     // a family's, or the number of processes
  std::vector<Swept> swept;  // what is changed in the network
  RunCube cube;              // of a question that was split

  friend bool operator==(const Job&, const Job&) = default;
};

std::string sweptText(const Job& job);  // "reply latest 3, delay earliest 1"

// A line without its end.
std::string jobLine(const Job& job);
Job readJobLine(const std::string& line);  // throws std::runtime_error, one line

}  // namespace tpn
