// From what is wanted to the folder of a plan, scripts included.

#pragma once

#include <string>

#include "workbench/campaign/campaign.hpp"
#include "workbench/campaign/planfolder.hpp"
#include "workbench/campaign/scripts.hpp"
#include "workbench/network/diagnostic.hpp"

namespace tpn {

// Every network with every question to every engine; what differs by seed alone is asked of the
// prover. Returns the number of jobs. What may be wrong with questions is appended to the warnings.
// Throws std::runtime_error, one line, where a file, a family, a question or a sweep is not what it
// should be: then no folder is left.
int planCampaign(const Campaign& campaign, const std::string& folder, const Resources& resources,
                 Diagnostics& warnings);

// One question, which has been found to be in order.
struct OneQuestion {
  std::string network;  // the bytes
  std::string suffix;   // by which its form is told
  std::string question;
  std::string name;   // of the network, for people
  std::string asked;  // the question, for people
  std::int64_t processes = 0;
};

// The prover with the seeds 0 to `count` - 1; the first sure answer is the answer.
int planPortfolio(const OneQuestion& one, int count, const Limits& limits,
                  const std::string& folder, const Resources& resources);

// The bounded search in each of these cubes, which together are all runs.
int planCubes(const OneQuestion& one, const std::vector<RunCube>& cubes, const Limits& limits,
              const std::string& folder, const Resources& resources);

}  // namespace tpn
