#include "workbench/network/strictread.hpp"

#include "workbench/network/lintrules.hpp"
#include "workbench/network/netchecks.hpp"
#include "workbench/network/netreader.hpp"

namespace tpn {

std::optional<Network> readNetwork(const std::string& file, const std::string& text,
                                   Diagnostics& diagnostics, const Checkpoint& checkpoint) {
  Report report(file, diagnostics);
  const NetworkFile read = readNetworkFile(text, report, checkpoint);
  checkNumbers(read, report, checkpoint);
  if (report.hasErrors()) return std::nullopt;
  Network net = networkOf(read);
  net.names = namesOf(read.names, net, report);
  if (report.hasErrors()) return std::nullopt;
  return net;
}

}  // namespace tpn
