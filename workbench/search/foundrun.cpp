#include "workbench/search/foundrun.hpp"

#include <cassert>
#include <stdexcept>

#include "workbench/runs/replay.hpp"
#include "workbench/runs/schedule.hpp"

namespace tpn {

Run foundRun(const Network& net, const Goal& goal, const std::vector<std::size_t>& transitions,
             const std::vector<std::int64_t>& delays) {
  auto run = schedule(net, transitions, transitions.size());
  if (!run) throw std::runtime_error("the run that was found has no schedule");
  assert(delays.empty() || delays.size() >= transitions.size());
  for (std::size_t i = 0; i < run->steps.size() && !delays.empty(); ++i)
    run->steps[i].delay = Rational(delays[i]);
  const std::string complaint = replay(net, goal, *run).complaint;
  if (!complaint.empty())
    throw std::runtime_error("the run that was found does not replay: " + complaint);
  return *run;
}

}  // namespace tpn
