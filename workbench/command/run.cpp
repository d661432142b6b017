// tpn run: stepping through a network by hand, by script or at random.

#include <iostream>
#include <memory>
#include <sstream>

#include "workbench/base/files.hpp"
#include "workbench/base/printable.hpp"
#include "workbench/command/ranges.hpp"
#include "workbench/command/reading.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/command/viewchoice.hpp"
#include "workbench/walking/randomwalk.hpp"
#include "workbench/walking/walk.hpp"
#include "workbench/walking/walkcommands.hpp"

namespace tpn {

namespace {

struct RunArguments {
  Files files;
  std::optional<std::uint64_t> seed;
  std::size_t steps = 20;
  std::string script;
  RunViews views{runViews()};
};

bool byHand(const RunArguments& a) { return !a.seed && a.script.empty(); }

// A script's view commands write files as the options do.
FilePlan filesOf(const RunArguments& a, const std::string& script) {
  FilePlan plan = planFor(a.files);
  if (!a.script.empty()) plan.reads(a.script);
  if (byHand(a)) plan.reads("/dev/stdin");
  a.views.addTo(plan);
  std::istringstream commands(script);
  for (const std::string& file : filesWritten(commands)) plan.writes(file);
  return plan;
}

Walked walked(const RunArguments& a, const Network& net, const std::string& script,
              const FilePlan& plan) {
  if (a.seed) return walkRandomly(net, *a.seed, a.steps);
  std::istringstream commands(script);
  // Where standard output gets the run for a program, it gets nothing else.
  std::ostream& out = a.views.showsUsual() ? std::cout : std::cerr;
  if (!byHand(a)) return walkScript(net, a.script, commands, out, a.views.terminalLook());
  return walk(net, std::cin, out, a.views.terminalLook(),
              [&](const std::string& file) { return plan.refusal(file); });
}

int run(const RunArguments& a) {
  const std::string script = a.script.empty() ? "" : readFile(a.script, largestInput);
  const FilePlan plan = filesOf(a, script);
  const std::optional<Network> net = networkOf(a.files);
  if (!net) return failed;
  const Walked made = walked(a, *net, script, plan);
  const Inputs q{*net, anything()};
  // A walk by hand has shown its steps already.
  const bool silent = a.views.showsUsual() && !a.seed;
  const std::string text =
      silent ? "" : a.views.shown().print(q.net, q.property, made.run, a.views.terminalLook());
  const bool whole = print(a.views, q, made.run, text);
  if (!made.stuck.empty()) std::cerr << "tpn: " << made.stuck << "\n";
  if (!made.error.empty()) std::cerr << printable(made.error) << "\n";
  return made.error.empty() && whole ? done : failed;
}

Action declareRun(CLI::App& app) {
  const auto a = std::make_shared<RunArguments>();
  addNet(app, a->files);
  CLI::Option* random = app.add_option("--random", a->seed, "random steps from this seed")
                            ->type_name("SEED")
                            ->check(wholeNumber());
  app.add_option("--steps", a->steps, "how many random steps")
      ->type_name("N")
      ->check(wholeNumber())
      ->capture_default_str()
      ->needs(random);
  app.add_option("--script", a->script, "take the commands from a file")
      ->type_name("FILE")
      ->excludes(random);
  a->views.declare(app);
  return [a] { return run(*a); };
}

}  // namespace

const Subcommand runCommand{"run", "step through a network by hand or at random", declareRun};

}  // namespace tpn
