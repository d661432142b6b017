// tpn trace: the run in a solver's answer to the file that zervan wrote.

#include <memory>
#include <nlohmann/json.hpp>

#include "workbench/base/files.hpp"
#include "workbench/command/reading.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/command/viewchoice.hpp"
#include "workbench/search/check.hpp"

namespace tpn {

namespace {

struct Arguments {
  Files files;
  std::string map;
  std::string answer;
  RunViews views{runViews()};
};

int trace(const Arguments& a) {
  FilePlan plan = planFor(a.files);
  plan.reads(a.map);
  plan.reads(a.answer);
  a.views.addTo(plan);
  const std::optional<Inputs> q = inputsOf(a.files);
  if (!q) return failed;
  const std::optional<Run> run =
      traced(q->net, q->property, readFile(a.map, largestInput), readFile(a.answer, largestInput));
  if (!run) {
    writeFile("-", a.views.shows("json") ? jsonText({{"answer", "unreached"}})
                                         : "no run: unsatisfiable\n");
    return no;
  }
  print(a.views, *q, run, a.views.shown().print(q->net, q->property, *run));
  return yes;
}

Action declare(CLI::App& app) {
  const auto a = std::make_shared<Arguments>();
  addNet(app, a->files);
  addPhi(app, a->files, true);
  app.add_option("MAP", a->map, "variable map, NETkK.lck")->required();
  app.add_option("ANSWER", a->answer, "what the solver said: v lines, or MiniSat's file")
      ->required();
  a->views.declare(app);
  return [a] { return trace(*a); };
}

}  // namespace

const Subcommand traceCommand{"trace", "the run in a solver's answer to zervan's file", declare};

}  // namespace tpn
