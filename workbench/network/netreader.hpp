// A network file taken apart: what stands where, with what could not be read left open. Reading
// recovers from every mistake and goes on, so that all are found in one go; what the numbers say is
// looked at afterwards (netchecks.hpp).

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/base/checkpoint.hpp"
#include "workbench/network/lintrules.hpp"
#include "workbench/network/namesreader.hpp"

namespace tpn {

// A field of a line of numbers; no value where it is missing or unreadable, which has been
// reported.
struct Field {
  std::optional<int> value;
  Place at;
};

struct DeclarationLine {
  Field transition;
  Field earliest;
  Field latest;
};

struct MoveLine {
  Field transition;
  Field source;
  Field target;
};

struct LabelLine {
  Field location;
  std::vector<Field> propositions;
};

struct ProcessBlock {
  Place at;
  std::vector<MoveLine> moves;
  std::vector<LabelLine> labels;
};

struct NetworkFile {
  std::string title;
  std::vector<DeclarationLine> declarations;
  std::vector<ProcessBlock> processes;
  std::vector<NameLine> names;
  bool complete = false;  // the final "end" is there
};

NetworkFile readNetworkFile(std::string_view text, Report& report, const Checkpoint& checkpoint);

}  // namespace tpn
