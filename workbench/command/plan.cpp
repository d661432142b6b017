// tpn plan: questions, or one that is cut, become jobs in a folder, for the machines that there
// are.

#include <filesystem>
#include <iostream>
#include <limits>
#include <memory>

#include "workbench/base/files.hpp"
#include "workbench/campaign/asking.hpp"
#include "workbench/campaign/cubes.hpp"
#include "workbench/campaign/instances.hpp"
#include "workbench/campaign/planning.hpp"
#include "workbench/command/complain.hpp"
#include "workbench/command/ending.hpp"
#include "workbench/command/findings.hpp"
#include "workbench/command/ranges.hpp"
#include "workbench/command/reading.hpp"
#include "workbench/command/subcommand.hpp"

namespace tpn {

namespace {

struct PlanArguments {
  Files files;  // the network is a campaign where nothing is asked of it
  std::string folder;
  int split = 0;
  int portfolio = 0;
  double timeout = 0;
  Limits limits;
  Resources resources;
};

// For people, its place, its text.
AskedText askedIn(const Files& files) {
  if (files.property) return {*files.property, "-p", *files.property + "\n"};
  const std::string file = inputName(files.phi);
  return {std::filesystem::path(file).stem(), file, readFile(file, largestInput)};
}

int planOne(const PlanArguments& a, Diagnostics& warnings) {
  const Instance instance = instanceIn(a.files.net);
  const AskedText asked = askedIn(a.files);
  const Goal goal = goalIn(asked.place, asked.text, instance.net, warnings);
  const OneQuestion one{instance.bytes, instance.suffix, asked.text,
                        instance.name,  asked.name,      instance.size};
  if (a.portfolio > 0) return planPortfolio(one, a.portfolio, a.limits, a.folder, a.resources);
  const auto cubes = splitRuns(instance.net, goal, a.split, *a.limits.maxTransitions);
  return planCubes(one, cubes, a.limits, a.folder, a.resources);
}

// What is wrong with the choice of options, or empty.
std::string misuse(const PlanArguments& a) {
  const bool isOne = a.split > 0 || a.portfolio > 0;
  if (isOne ? !asksOnce(a.files, false) : a.files.asks())
    return "takes CAMPAIGN, or NET with PHI or -p TEXT and --split D or --portfolio N";
  if (!isOne && (a.timeout > 0 || a.limits.maxTransitions || a.limits.memory))
    return "takes the limits of a campaign from its file";
  if (a.split > 0 && !a.limits.maxTransitions) return "--split needs --max-transitions N";
  return "";
}

int plan(PlanArguments a) {
  const std::string wrong = misuse(a);
  if (!wrong.empty()) {
    complain("plan " + wrong);
    return misused;
  }
  if (a.timeout > 0) a.limits.timeout = a.timeout;
  Diagnostics warnings;
  const int jobs = a.files.asks()
                       ? planOne(a, warnings)
                       : planCampaign(readCampaign(a.files.net), a.folder, a.resources, warnings);
  std::cerr << findingsText(warnings);
  writeFile("-", std::to_string(jobs) + (jobs == 1 ? " job\n" : " jobs\n"));
  return done;
}

void declareOne(CLI::App& app, PlanArguments& a) {
  CLI::Option* const split =
      app.add_option("--split", a.split, "cut one question into 2^D cubes of its runs")
          ->type_name("D")
          ->check(wholeNumber(1, 12));
  app.add_option("--portfolio", a.portfolio, "ask the prover N times, another way each time")
      ->type_name("N")
      ->check(wholeNumber(1, 100'000))
      ->excludes(split);
  app.add_option("--max-transitions", a.limits.maxTransitions, "the longest runs to search for")
      ->type_name("N")
      ->check(wholeNumber(1, 500'000'000));
  addTimeout(app, a.timeout);
  app.add_option("--memory", a.limits.memory, "megabytes that a job may have")
      ->type_name("N")
      ->check(wholeNumber(1, 100'000'000));
}

void declareResources(CLI::App& app, Resources& resources) {
  constexpr int any = std::numeric_limits<int>::max();
  app.add_option("--sbatch", resources.options, "a line for Slurm: --sbatch=--partition=long")
      ->type_name("OPTION")
      ->allow_extra_args(false);
  app.add_option("--at-once", resources.atOnce, "tasks of Slurm's array that run side by side")
      ->type_name("N")
      ->check(wholeNumber(1, any));
  app.add_option("--tasks", resources.mostTasks, "tasks of Slurm's array; more jobs share them")
      ->type_name("N")
      ->check(wholeNumber(1, any))
      ->capture_default_str();
}

Action declarePlan(CLI::App& app) {
  const auto a = std::make_shared<PlanArguments>();
  app.add_option("CAMPAIGN", a->files.net, "a campaign's file: TOML, or JSON; or NET, a network")
      ->type_name("FILE")
      ->required();
  addPhi(app, a->files);
  app.add_option("--dir", a->folder, "the folder for the plan; new or empty")
      ->type_name("DIR")
      ->required();
  declareOne(app, *a);
  declareResources(app, a->resources);
  return [a] { return plan(*a); };
}

}  // namespace

const Subcommand planCommand{"plan", "cut questions into jobs for many machines", declarePlan};

}  // namespace tpn
