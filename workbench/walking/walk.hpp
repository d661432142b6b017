// Going through a network by hand, by script or at random, step by step. Whichever way, the outcome
// is a run that replays, for any of the views.

#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>

#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"
#include "workbench/runs/run.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

struct Walked {
  Run run;            // the steps that stand at the end; its goal is the last state
  std::string error;  // script: "NAME:LINE: error: ..." of the command that ended it, else empty
  std::string stuck;  // random: why it ended before all steps were made, else empty
};

// What the views of a walk take for a property: one that always holds.
Property anything();

// Why a file may not be written; empty where it may.
using FileVeto = std::function<std::string(const std::string& file)>;

// Shows every state and asks for commands until `quit` or the end of input. A command that cannot
// be done gets a line "error: ..." and changes nothing. Views on `out` have this look.
Walked walk(const Network& net, std::istream& in, std::ostream& out, const Look& look = {},
            const FileVeto& veto = nullptr);

// The same commands without prompts; prints what they ask for and nothing else. The first that
// cannot be done ends it. `name` is the script's, for the error.
Walked walkScript(const Network& net, const std::string& name, std::istream& in, std::ostream& out,
                  const Look& look = {});

// Why no transition can ever fire from here; empty where one can.
std::string stuck(const Network& net, const TimedState& state);

}  // namespace tpn
