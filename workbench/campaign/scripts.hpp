// The scripts that hand a plan to the schedulers that are there. Both may be run again at any time:
// jobs that have an answer end at once.

#pragma once

#include <string>
#include <vector>

#include "workbench/campaign/planfolder.hpp"

namespace tpn {

struct Resources {
  int cores = 1;                     // of a job
  int mostTasks = 1000;              // of an array; jobs beyond share tasks. Slurm's usual limit
  int atOnce = 0;                    // tasks of the array; 0: as many as Slurm likes
  std::vector<std::string> options;  // of sbatch, as they stand: "--partition=long"
};

std::string slurmScript(const Plan& plan, const Resources& resources);
std::string parallelScript(const Plan& plan);

}  // namespace tpn
