#include "workbench/campaign/scripts.hpp"

#include <algorithm>
#include <cmath>

namespace tpn {

namespace {

// Time for what a job does besides its question.
constexpr double spare = 60;  // seconds

std::string directive(const std::string& option) { return "#SBATCH " + option + "\n"; }

// Of a task with so many jobs, in minutes; nothing where a job has no limit.
std::string timeOf(const Plan& plan, int jobsATask) {
  if (!plan.limits.timeout) return "";
  const double minutes = std::ceil((*plan.limits.timeout + spare) * jobsATask / 60);
  return directive("--time=" + std::to_string(static_cast<long>(std::min(minutes, 1e9))));
}

std::string memoryOf(const Plan& plan) {
  return plan.limits.memory ? directive("--mem=" + std::to_string(*plan.limits.memory + 100) + "M")
                            : "";
}

std::string directivesOf(const Plan& plan, const Resources& r, int tasks, int jobsATask) {
  std::string text = directive("--job-name=tpn");
  text += directive("--array=1-" + std::to_string(tasks) +
                    (r.atOnce > 0 ? "%" + std::to_string(r.atOnce) : ""));
  text += directive("--requeue") + directive("--open-mode=append");
  text += directive("--output=slurm-%a.out");
  text += directive("--ntasks=1") + directive("--cpus-per-task=" + std::to_string(r.cores));
  text += timeOf(plan, jobsATask) + memoryOf(plan);
  for (const std::string& option : r.options) text += directive(option);
  return text;
}

}  // namespace

// clang-format off: it takes the shell in raw strings for C++.

std::string slurmScript(const Plan& plan, const Resources& r) {
  const int jobsATask = (plan.jobs + r.mostTasks - 1) / r.mostTasks;
  const int tasks = (plan.jobs + jobsATask - 1) / jobsATask;
  std::string text = "#!/bin/sh\n" + directivesOf(plan, r, tasks, jobsATask) + R"sh(
# To be submitted from this very folder: cd FOLDER && sbatch run.slurm. Again after a failure: what
# has an answer is not asked again.
cd "$SLURM_SUBMIT_DIR" || exit 1
)sh";
  text += "first=$(((SLURM_ARRAY_TASK_ID - 1) * " + std::to_string(jobsATask) + " + 1))\n";
  text += "last=$((first + " + std::to_string(jobsATask - 1) + "))\n";
  text += "[ $last -le " + std::to_string(plan.jobs) + " ] || last=" + std::to_string(plan.jobs) +
          "\nstatus=0\nfor n in $(seq $first $last); do\n";
  if (plan.isRace())
    text += R"sh(  # An answer that settles the question ends the other tasks.
  "${TPN:-tpn}" work --race . "$n" && exec scancel "$SLURM_ARRAY_JOB_ID"
  [ $? -eq 3 ] || status=1
)sh";
  else
    text += "  \"${TPN:-tpn}\" work . \"$n\" || status=1\n";
  return text + "done\nexit $status\n";
}

std::string parallelScript(const Plan& plan) {
  std::string text = R"sh(#!/bin/sh
# Every job that has no answer yet, side by side. Options are those of GNU parallel: -j 8, or
# --sshlogin HOST,HOST where this folder is shared and has the same name.
cd "$(dirname "$0")" || exit 1
tpn=${TPN:-tpn}

# The log is what --resume goes by. A job that is in it and has no answer (it was killed, or its
# answer has been damaged since) is taken out of it.
if [ -s joblog ]; then
  "$tpn" work --list . >pending || exit 1
  [ -s pending ] || exit 0
  awk 'NR == FNR { pending[$1]; next } FNR == 1 || !($1 in pending)' pending joblog >joblog.new &&
    mv joblog.new joblog
fi
)sh";
  text += "seq " + std::to_string(plan.jobs) +
          " | parallel --joblog joblog --resume --workdir \"$PWD\" ";
  if (!plan.isRace()) return text + "\"$@\" \"$tpn\" work . '{}'\n";
  return text + R"sh(--halt now,success=1 "$@" "$tpn" work --race . '{}'
status=$?
# Success is one job's; jobs that leave the question open are no failures.
[ -e settled ] || [ -z "$("$tpn" work --list .)" ] || exit $status
)sh";
}

// clang-format on

}  // namespace tpn
