// tpn collect: the answers of a plan as a table, and what they show together.

#include "workbench/campaign/collect.hpp"

#include <memory>

#include "workbench/base/fileplan.hpp"
#include "workbench/base/files.hpp"
#include "workbench/campaign/htmlpage.hpp"
#include "workbench/campaign/plots.hpp"
#include "workbench/campaign/tables.hpp"
#include "workbench/command/complain.hpp"
#include "workbench/command/subcommand.hpp"

namespace tpn {

namespace {

struct CollectArguments {
  std::string folder;
  bool json = false;
  bool csv = false;
  bool html = false;
  std::string sizes;
  std::string cactus;
};

FilePlan outputsOf(const CollectArguments& a) {
  FilePlan plan;
  plan.reads(a.folder + "/plan.json");
  plan.reads(a.folder + "/jobs");
  for (const std::string& file : {a.sizes, a.cactus})
    if (!file.empty()) plan.writes(file);
  return plan;
}

std::string printed(const CollectArguments& a, const Collection& c) {
  if (a.json) return collectionJson(c);
  if (a.csv) return collectionCsv(c);
  return a.html ? collectionHtml(c) : collectionText(c);
}

// A contradiction is the worst that can be; what is not there yet comes next.
int statusOf(const Collection& c) {
  if (!c.contradictions.empty()) return failed;
  if (c.count(Row::refuted) + c.count(Row::broken) + c.count(Row::gaveUp) > 0) return failed;
  return c.count(Row::missing) + c.count(Row::begun) > 0 ? neither : done;
}

int collected(const CollectArguments& a) {
  outputsOf(a);
  const Collection c = collect(a.folder);
  if (!a.sizes.empty()) attempted([&] { writeFile(a.sizes, timeOverSize(c)); });
  if (!a.cactus.empty()) attempted([&] { writeFile(a.cactus, cactus(c)); });
  writeFile("-", printed(a, c));
  for (const std::string& line : c.contradictions) complain("contradiction: " + line);
  return statusOf(c);
}

Action declareCollect(CLI::App& app) {
  const auto a = std::make_shared<CollectArguments>();
  app.add_option("FOLDER", a->folder, "the folder of a plan")->type_name("DIR")->required();
  CLI::Option* const json = app.add_flag("--json", a->json, "print JSON instead of a table");
  CLI::Option* const csv = app.add_flag("--csv", a->csv, "print comma-separated values");
  CLI::Option* const html = app.add_flag("--html", a->html, "print a page with plots");
  csv->excludes(json);
  html->excludes(json)->excludes(csv);
  app.add_option("--sizes", a->sizes, "draw time over size into this file, as SVG")
      ->type_name("FILE");
  app.add_option("--cactus", a->cactus, "draw answers within a time each, as SVG")
      ->type_name("FILE");
  return [a] { return collected(*a); };
}

}  // namespace

const Subcommand collectCommand{"collect", "put the answers of a plan together", declareCollect};

}  // namespace tpn
