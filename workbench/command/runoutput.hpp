// What subcommands that find or make a run print of it: text or JSON, and the pictures asked for.

#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "workbench/command/reading.hpp"
#include "workbench/runs/run.hpp"

namespace tpn {

struct RunOutput {
  bool json = false;
  std::string svg;  // file names; empty: not asked for
  std::string vcd;
};

void addRunOutput(CLI::App& app, RunOutput& output);

// The pictures of the run, if there is one, then the text: whoever reads only the first lines of it
// still gets the pictures, and a picture that cannot be written does not cost the text.
void print(const RunOutput& output, const Inputs& q, const std::optional<Run>& run,
           const std::string& text);

}  // namespace tpn
