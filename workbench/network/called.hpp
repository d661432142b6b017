// The parts of a network file as what is said about the file calls them: by the numbers that stand
// there, and by their names behind these. It serves files with mistakes, too, of which there is no
// network yet.

#pragma once

#include <string>
#include <vector>

#include "workbench/network/names.hpp"
#include "workbench/network/namesreader.hpp"

namespace tpn {

class Called {
 public:
  Called() = default;  // nothing has a name
  explicit Called(const std::vector<NameLine>& names);

  // Numbers as they stand in the file.
  std::string process(int process) const;                 // "process 2 B"
  std::string location(int process, int location) const;  // "location 0 idle"
  std::string transition(int transition) const;           // "transition 16 {vote yes}"
  std::string proposition(int proposition) const;

 private:
  struct Part {
    NameLine::Kind kind;
    int number;
    int inner;
    auto operator<=>(const Part&) const = default;
  };

  std::string called(const char* kind, const Part& part, int shown) const;

  std::map<Part, std::string> names_;  // where a part has two, the first
};

}  // namespace tpn
