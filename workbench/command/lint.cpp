// tpn lint: everything that is wrong with a network, and with a property of it.

#include <iostream>
#include <limits>
#include <memory>

#include "workbench/base/files.hpp"
#include "workbench/command/findings.hpp"
#include "workbench/command/ranges.hpp"
#include "workbench/command/reading.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/encoding/lintbound.hpp"
#include "workbench/network/questionreader.hpp"
#include "workbench/network/strictread.hpp"

namespace tpn {

namespace {

struct LintArguments {
  Files files;
  std::optional<int> bound;
  bool all = false;
  bool json = false;
};

int lint(const LintArguments& a) {
  if (a.files.asks() && !asksOnce(a.files, false)) {
    std::cerr << "tpn: lint takes NET, NET PHI or NET -p TEXT\n";
    return misused;
  }
  Diagnostics diagnostics;
  const std::optional<Network> net = networkOf(a.files, diagnostics);
  if (a.files.asks()) {
    const auto phi = propertyOf(a.files, net ? &*net : nullptr, diagnostics);
    if (phi && !a.files.property) lintNotation(inputName(a.files.phi), *phi, diagnostics);
  }
  if (net && a.bound) lintBound(*net, inputName(a.files.net), *a.bound, diagnostics);
  writeFile("-", a.json ? diagnosticsJson(diagnostics)
                        : findingsText(diagnostics, a.all ? allFindings : usualFindings));
  return hasErrors(diagnostics) ? failed : done;
}

Action declareLint(CLI::App& app) {
  const auto a = std::make_shared<LintArguments>();
  addNet(app, a->files);
  addPhi(app, a->files);
  app.add_option("--bound", a->bound, "would zervan take a path of K steps?")
      ->type_name("K")
      ->check(wholeNumber(0, std::numeric_limits<int>::max()));
  app.add_flag("--all", a->all, "more than the first 20 findings of a file; JSON has all");
  app.add_flag("--json", a->json, "print JSON instead of text");
  return [a] { return lint(*a); };
}

}  // namespace

const Subcommand lintCommand{"lint", "find everything that is wrong with the files", declareLint};

}  // namespace tpn
