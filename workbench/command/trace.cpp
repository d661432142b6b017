// tpn trace: the run in a solver's answer to the file that zervan wrote.

#include "workbench/search/trace.hpp"

#include <memory>

#include "workbench/command/reading.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/command/verdictoutput.hpp"
#include "workbench/command/viewchoice.hpp"

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
  const Answer v = answerOf(
      traced(q->net, q->property, readFile(a.map, largestInput), readFile(a.answer, largestInput)));
  std::string text = "no run: unsatisfiable\n";
  if (v.run) text = a.views.shown().print(q->net, q->property, *v.run);
  if (a.views.shows("json")) text = answerJson(*q, v);
  print(a.views, *q, v.run, text);
  return exitOf(v);
}

Action declare(CLI::App& app) {
  const auto a = std::make_shared<Arguments>();
  addNet(app, a->files);
  addPhi(app, a->files, true);
  app.add_option("MAP", a->map, "variable map, NETkK.lck")->type_name("FILE")->required();
  app.add_option("ANSWER", a->answer, "what the solver said: v lines, or MiniSat's file")
      ->type_name("FILE")
      ->required();
  a->views.declare(app);
  return [a] { return trace(*a); };
}

}  // namespace

const Subcommand traceCommand{"trace", "the run in a solver's answer to zervan's file", declare};

}  // namespace tpn
