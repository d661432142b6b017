#include "workbench/search/check.hpp"

#include <new>
#include <stdexcept>

#include "workbench/network/plain.hpp"
#include "workbench/runs/replay.hpp"
#include "workbench/search/strategy.hpp"

namespace tpn {

namespace {

void expectReplay(const Network& net, const Property& property, const Run& run) {
  const std::string complaint = replay(net, property, run).complaint;
  if (!complaint.empty())
    throw std::runtime_error("the run that was found does not replay: " + complaint);
}

}  // namespace

Verdict check(const Network& net, const Property& property, const CheckOptions& options,
              const std::atomic<bool>& stop, const std::function<void(const Progress&)>& report) {
  requirePlainMoves(net, "a clause file");
  Watch watch(options.timeout, stop, report);
  const Strategy strategy = options.solver.empty() ? checkEmbedded : checkWithProgram;
  try {
    if (isPlain(property)) return strategy({net, property}, options, watch);
    const Network labelled = labelledFor(net, property);
    const Property plainly = plain(labelled, property);
    Verdict verdict = strategy({labelled, plainly}, options, watch);
    if (verdict.run) expectReplay(net, property, *verdict.run);
    return verdict;
  } catch (const std::bad_alloc&) {
    throw std::runtime_error("the network's formulas do not fit into memory");
  }
}

}  // namespace tpn
