// tpn show: a network in one of its views.

#include <memory>

#include "workbench/command/reading.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/command/viewchoice.hpp"

namespace tpn {

namespace {

struct ShowArguments {
  Files files;
  NetworkViews views{networkViews()};
};

int show(const ShowArguments& a) {
  FilePlan plan = planFor(a.files);
  a.views.addTo(plan);
  const std::optional<Network> net = networkOf(a.files);
  if (!net) return failed;
  const bool whole =
      a.views.writeFiles([&](const NetworkView& view) { return view.print(*net, a.views.look()); });
  // Whoever asks for a picture wants no list with it.
  const bool silent = a.views.showsUsual() && a.views.anyFile();
  if (!silent) writeFile("-", a.views.shown().print(*net, a.views.terminalLook()));
  return whole ? done : failed;
}

Action declareShow(CLI::App& app) {
  const auto a = std::make_shared<ShowArguments>();
  addNet(app, a->files);
  a->views.declare(app);
  return [a] { return show(*a); };
}

}  // namespace

const Subcommand showCommand{"show", "a network as a person wants to see it", declareShow};

}  // namespace tpn
