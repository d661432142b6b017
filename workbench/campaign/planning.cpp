#include "workbench/campaign/planning.hpp"

#include <algorithm>
#include <functional>
#include <utility>

#include "workbench/campaign/asking.hpp"
#include "workbench/campaign/instances.hpp"

namespace tpn {

namespace {

// Engines that differ by seed do so for each of them, the others are asked once.
void forEachEngine(const Campaign& campaign,
                   const std::function<void(const std::string& engine, std::int64_t seed)>& take) {
  for (const std::string& engine : campaign.engines)
    for (const std::int64_t seed : campaign.seeds)
      if (engine == "ic3" || seed == campaign.seeds.front()) take(engine, seed);
}

// Every change of a network with every engine, where `job` says the rest.
void addJobs(const Campaign& campaign, const NetworkEntry& entry, Job job, PlanWriter& writer) {
  forEachChange(entry.sweeps, [&](const std::vector<Swept>& swept) {
    job.swept = swept;
    forEachEngine(campaign, [&](const std::string& engine, std::int64_t seed) {
      job.engine = engine;
      job.seed = seed;
      writer.add(job);
    });
  });
}

void addInstance(const Campaign& campaign, const NetworkEntry& entry, const Instance& instance,
                 PlanWriter& writer, Diagnostics& warnings) {
  // Are there the transitions, and do the times fit?
  forEachChange(entry.sweeps, [&](const auto& swept) { changed(instance.net, swept); });
  Job job;
  job.network = writer.input(instance.bytes, instance.suffix);
  job.name = instance.name;
  job.size = instance.size;
  for (const AskedText& asked : questionsAbout(entry, instance)) {
    goalIn(asked.place, asked.text, instance.net, warnings);
    job.question = writer.input(asked.text, ".phi");
    job.asked = asked.name;
    addJobs(campaign, entry, job, writer);
  }
}

int finish(PlanWriter& writer, Plan plan, const Resources& resources) {
  plan.jobs = writer.jobs();
  writer.script("run.slurm", slurmScript(plan, resources));
  writer.script("run.parallel", parallelScript(plan));
  writer.finish(plan);
  return plan.jobs;
}

Job jobAbout(const OneQuestion& one, const std::string& engine, PlanWriter& writer) {
  Job job;
  job.network = writer.input(one.network, one.suffix);
  job.question = writer.input(one.question, ".phi");
  job.engine = engine;
  job.name = one.name;
  job.asked = one.asked;
  job.size = one.processes;
  return job;
}

std::string titleOf(const OneQuestion& one) { return one.name + ": " + one.asked; }

}  // namespace

int planCampaign(const Campaign& campaign, const std::string& folder, const Resources& resources,
                 Diagnostics& warnings) {
  PlanWriter writer(folder);
  for (const NetworkEntry& entry : campaign.networks)
    forEachInstance(entry, [&](const Instance& instance) {
      addInstance(campaign, entry, instance, writer, warnings);
    });
  const bool race = std::count(campaign.engines.begin(), campaign.engines.end(), "both") > 0;
  Resources needed = resources;
  needed.cores = race ? 2 : 1;
  return finish(writer, {Plan::campaign, campaign.title, 0, campaign.limits}, needed);
}

int planPortfolio(const OneQuestion& one, int count, const Limits& limits,
                  const std::string& folder, const Resources& resources) {
  PlanWriter writer(folder);
  Job job = jobAbout(one, "ic3", writer);
  for (job.seed = 0; job.seed < count; ++job.seed) writer.add(job);
  return finish(writer, {Plan::portfolio, titleOf(one), 0, limits}, resources);
}

int planCubes(const OneQuestion& one, const std::vector<RunCube>& cubes, const Limits& limits,
              const std::string& folder, const Resources& resources) {
  PlanWriter writer(folder);
  Job job = jobAbout(one, "bmc", writer);
  for (const RunCube& cube : cubes) {
    job.cube = cube;
    writer.add(job);
  }
  return finish(writer, {Plan::cubes, titleOf(one), 0, limits}, resources);
}

}  // namespace tpn
