// tpn run: stepping through a network by hand, by script or at random.

#include <iostream>
#include <memory>
#include <sstream>

#include "workbench/base/files.hpp"
#include "workbench/command/reading.hpp"
#include "workbench/command/runoutput.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/views/views.hpp"
#include "workbench/walking/walk.hpp"

namespace tpn {

namespace {

struct Arguments {
  Files files;
  std::optional<std::uint64_t> seed;
  std::size_t steps = 20;
  std::string script;
  RunOutput output;
};

Walked walked(const Arguments& a, const Network& net) {
  if (a.seed) return walkRandomly(net, *a.seed, a.steps);
  if (a.script.empty()) return walk(net, std::cin, std::cout);
  std::istringstream script(readFile(a.script));
  return walkScript(net, a.script, script, std::cout);
}

int run(const Arguments& a) {
  const std::optional<Network> net = networkOf(a.files);
  if (!net) return failed;
  const Walked made = walked(a, *net);
  const Inputs q{*net, anything()};
  std::string text;
  if (a.output.json) {
    text = runJson(q.net, q.property, made.run);
  } else if (a.seed) {
    text = runText(q.net, q.property, made.run);
  }
  print(a.output, q, made.run, text);
  if (!made.stuck.empty()) std::cerr << "tpn: " << made.stuck << "\n";
  if (!made.error.empty()) std::cerr << made.error << "\n";
  return made.error.empty() ? done : failed;
}

Action declare(CLI::App& app) {
  const auto a = std::make_shared<Arguments>();
  addNet(app, a->files);
  CLI::Option* random =
      app.add_option("--random", a->seed, "random steps from this seed")->type_name("SEED");
  app.add_option("--steps", a->steps, "how many random steps")
      ->type_name("N")
      ->capture_default_str()
      ->needs(random);
  app.add_option("--script", a->script, "take the commands from a file")
      ->type_name("FILE")
      ->excludes(random);
  addRunOutput(app, a->output);
  return [a] { return run(*a); };
}

}  // namespace

const Subcommand runCommand{"run", "step through a network by hand or at random", declare};

}  // namespace tpn
