// tpn trace: the run in a solver's answer to the file that zervan wrote.

#include <memory>

#include "workbench/base/files.hpp"
#include "workbench/command/reading.hpp"
#include "workbench/command/runoutput.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/search/check.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

namespace {

struct Arguments {
  Files files;
  std::string map;
  std::string answer;
  RunOutput output;
};

int trace(const Arguments& a) {
  const std::optional<Inputs> q = inputsOf(a.files);
  if (!q) return failed;
  const std::optional<Run> run = traced(q->net, q->property, readFile(a.map), readFile(a.answer));
  if (!run) {
    writeFile("-",
              a.output.json ? "{\n  \"answer\": \"unreached\"\n}\n" : "no run: unsatisfiable\n");
    return no;
  }
  print(a.output, *q, run,
        a.output.json ? runJson(q->net, q->property, *run) : runText(q->net, q->property, *run));
  return yes;
}

Action declare(CLI::App& app) {
  const auto a = std::make_shared<Arguments>();
  addNet(app, a->files);
  addPhi(app, a->files, true);
  app.add_option("MAP", a->map, "variable map, NETkK.lck")->required();
  app.add_option("ANSWER", a->answer, "what the solver said: v lines, or MiniSat's file")
      ->required();
  addRunOutput(app, a->output);
  return [a] { return trace(*a); };
}

}  // namespace

const Subcommand traceCommand{"trace", "the run in a solver's answer to zervan's file", declare};

}  // namespace tpn
