// The prover on questions as files, a row each: the answer and what it took. CPU seconds are those
// of the whole: symmetries, proof, and by itself the check of the certificate.
//
//   prover_bench [--flat] [--no-invariants] [--delays 1,2,4] NET PHI [NET PHI]...

#include <ctime>
#include <exception>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "workbench/base/files.hpp"
#include "workbench/machine/linearclauses.hpp"
#include "workbench/machine/symmetry.hpp"
#include "workbench/network/propertyreader.hpp"
#include "workbench/network/strictread.hpp"
#include "workbench/proof/checker.hpp"
#include "workbench/prover/certify.hpp"
#include "workbench/prover/ic3.hpp"

namespace {

double seconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

struct Settings {
  bool flat = false;
  bool invariants = true;
  bool verbose = false;
  std::vector<std::int64_t> delays;
};

void row(const std::string& netFile, const std::string& goalFile, const Settings& settings) {
  tpn::Diagnostics diagnostics;
  const auto net = tpn::readNetwork(netFile, tpn::readFile(netFile), diagnostics);
  const auto property = tpn::readProperty(goalFile, tpn::readFile(goalFile), diagnostics);
  if (!net || !property) throw std::runtime_error(tpn::text(diagnostics.at(0)));
  const double start = seconds();
  const tpn::Machine machine = tpn::makeMachine(*net);
  const tpn::StateLayout layout = tpn::StateLayout::capped(machine);
  std::vector<tpn::Symmetry> symmetries;
  if (!settings.flat) symmetries = tpn::symmetries(machine);
  std::vector<tpn::Orbits::Permutation> generators;
  for (const tpn::Symmetry& s : symmetries)
    generators.push_back(tpn::permutationOf(machine, layout, s));
  tpn::ProverOptions options;
  if (!settings.delays.empty()) options.delays = settings.delays;
  std::vector<tpn::PlaceInvariant> invariants;
  if (settings.invariants) invariants = tpn::placeInvariants(machine);
  const tpn::LinearClauses linear = tpn::linearClauses(machine, layout, invariants);
  options.facts = linear.clauses;
  options.helpers = linear.helpers;
  const double prepared = seconds();
  tpn::ProverProgress last;
  const tpn::ProverResult result =
      tpn::prove(machine, layout, propertyFormula(*net, machine, layout, *property),
                 tpn::Orbits(generators), options, {}, [&](const tpn::ProverProgress& progress) {
                   last = progress;
                   if (settings.verbose)
                     std::cerr << progress.frame << " " << progress.clauses << " "
                               << progress.obligations << " " << progress.queries << "\n";
                 });
  const double proved = seconds();
  const bool never = result.answer == tpn::ProverResult::unreachable;
  std::string checked = "-";
  if (never) {
    const auto certificate = certificateOf(machine, layout, result, invariants, symmetries);
    const auto recheck = tpn::recheck(*net, *property, certificate, {});
    std::ostringstream time;
    time << std::fixed << std::setprecision(2) << seconds() - proved;
    checked = recheck.result == tpn::Recheck::confirmed ? time.str() : recheck.complaint;
  }
  std::cout << std::fixed << std::setprecision(2) << std::left << std::setw(44) << goalFile
            << std::setw(12)
            << (never ? "never" : "run " + std::to_string(result.transitions.size())) << std::right
            << " frames " << std::setw(3) << last.frame << " clauses " << std::setw(5)
            << last.clauses << " invariant " << std::setw(4) << result.invariant.size()
            << " queries " << std::setw(8) << last.queries << " seconds " << std::setw(7)
            << proved - start << " (" << prepared - start << " before) check " << checked
            << std::endl;
}

}  // namespace

int main(int argc, char** argv) {
  Settings settings;
  std::vector<std::string> files;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument == "--flat") {
      settings.flat = true;
    } else if (argument == "--no-invariants") {
      settings.invariants = false;
    } else if (argument == "--verbose") {
      settings.verbose = true;
    } else if (argument == "--delays" && i + 1 < argc) {
      std::istringstream list(argv[++i]);
      for (std::string delay; std::getline(list, delay, ',');)
        settings.delays.push_back(std::stoll(delay));
    } else {
      files.push_back(argument);
    }
  }
  try {
    for (std::size_t i = 0; i + 1 < files.size(); i += 2) row(files[i], files[i + 1], settings);
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << std::endl;
    return 1;
  }
}
