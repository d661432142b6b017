// ask NET.tpn PHI.tpn: reads a network and a property, asks whether such a state can be reached,
// and prints the answer with its run.

#include <atomic>
#include <exception>
#include <iostream>
#include <optional>

#include "workbench/base/files.hpp"
#include "workbench/network/propertyreader.hpp"
#include "workbench/network/strictread.hpp"
#include "workbench/search/engines.hpp"
#include "workbench/views/views.hpp"

namespace {

int ask(const std::string& netFile, const std::string& phiFile) {
  tpn::Diagnostics mistakes;
  const auto net = tpn::readNetwork(netFile, tpn::readFile(netFile), mistakes);
  const auto phi = tpn::readProperty(phiFile, tpn::readFile(phiFile), mistakes);
  for (const tpn::Diagnostic& mistake : mistakes) std::cerr << text(mistake) << "\n";
  if (!net || !phi) return 1;

  const std::atomic<bool> stop{false};
  const tpn::Watch::Report silence;
  tpn::Watch watch(std::nullopt, stop, silence);
  const tpn::Answer answer = tpn::answered(*net, {*phi}, {}, watch);
  std::cout << headline(answer);
  if (answer.run) std::cout << tpn::runText(*net, *phi, *answer.run);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  try {
    return ask(argv[1], argv[2]);
  } catch (const std::exception& e) {
    std::cerr << e.what() << "\n";
    return 1;
  }
}
