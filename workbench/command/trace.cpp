// tpn trace: the run in a solver's answer to the file that zervan wrote.

#include "workbench/search/trace.hpp"

#include <iostream>
#include <memory>
#include <utility>

#include "workbench/command/reading.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/command/verdictoutput.hpp"
#include "workbench/command/viewchoice.hpp"
#include "workbench/views/goalline.hpp"

namespace tpn {

namespace {

struct TraceArguments {
  Files files;
  std::string map;
  std::string answer;
  RunViews views{runViews()};
};

int trace(const TraceArguments& a) {
  FilePlan plan = planFor(a.files);
  plan.reads(a.map);
  plan.reads(a.answer);
  a.views.addTo(plan);
  const std::optional<Inputs> q = inputsOf(a.files);
  if (!q) return failed;
  const Answer v = answerOf(
      traced(q->net, q->property, readFile(a.map, largestInput), readFile(a.answer, largestInput)));
  std::string text = "no run: unsatisfiable\n" + goalLine(q->property, "", a.views.terminalLook());
  if (v.run) text = a.views.shown().print(q->net, q->property, *v.run, a.views.terminalLook());
  if (a.views.shows("json")) text = answerJson(*q, v);
  print(a.views, *q, v, text);
  return exitOf(v);
}

// With -p there is no PHI, and the others move up.
int checkedArguments(TraceArguments& a) {
  if (a.files.property && a.answer.empty()) {
    a.answer = std::exchange(a.map, a.files.phi);
    a.files.phi.clear();
  }
  if (asksOnce(a.files, false) && !a.map.empty() && !a.answer.empty()) return trace(a);
  std::cerr << "tpn: trace takes NET PHI MAP ANSWER, or NET -p TEXT MAP ANSWER\n";
  return misused;
}

Action declareTrace(CLI::App& app) {
  const auto a = std::make_shared<TraceArguments>();
  addNet(app, a->files);
  addPhi(app, a->files);
  app.add_option("MAP", a->map, "variable map, NETkK.lck")->type_name("FILE");
  app.add_option("ANSWER", a->answer, "what the solver said: v lines, or MiniSat's file")
      ->type_name("FILE");
  a->views.declare(app);
  return [a] { return checkedArguments(*a); };
}

}  // namespace

const Subcommand traceCommand{"trace", "the run in a solver's answer to zervan's file",
                              declareTrace};

}  // namespace tpn
