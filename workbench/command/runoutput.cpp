#include "workbench/command/runoutput.hpp"

#include <exception>

#include "workbench/base/files.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

void addRunOutput(CLI::App& app, RunOutput& output) {
  app.add_option("--svg", output.svg, "draw the run: time to the right, a lane a process")
      ->type_name("FILE");
  app.add_option("--vcd", output.vcd, "the run for a waveform viewer")->type_name("FILE");
  app.add_flag("--json", output.json, "print JSON instead of text");
}

void print(const RunOutput& output, const Inputs& q, const std::optional<Run>& run,
           const std::string& text) {
  std::exception_ptr failure;
  try {
    if (run && !output.svg.empty()) writeFile(output.svg, runSvg(q.net, q.property, *run));
    if (run && !output.vcd.empty()) writeFile(output.vcd, runVcd(q.net, q.property, *run));
  } catch (...) {
    failure = std::current_exception();
  }
  writeFile("-", text);
  if (failure) std::rethrow_exception(failure);
}

}  // namespace tpn
