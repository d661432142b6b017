// tpn work: one job of a plan.

#include "workbench/campaign/work.hpp"

#include <limits>
#include <memory>

#include "workbench/base/files.hpp"
#include "workbench/command/complain.hpp"
#include "workbench/command/ending.hpp"
#include "workbench/command/ranges.hpp"
#include "workbench/command/subcommand.hpp"

namespace tpn {

namespace {

// With --race: there is an answer, and it does not settle the plan.
constexpr int open = 3;

struct WorkArguments {
  std::string folder;
  int number = 0;
  bool race = false;
  bool list = false;
};

int listUnanswered(const std::string& folder) {
  std::string text;
  for (const int number : unanswered(folder)) text += std::to_string(number) + "\n";
  writeFile("-", text);
  return done;
}

// Something went wrong, and the job remains to be done.
int told(const WorkArguments& a, const std::string& reason) {
  complain("job " + std::to_string(a.number) + ": " + reason);
  return failed;
}

int workOn(const WorkArguments& a) {
  const Worked worked = work(a.folder, a.number, stoppedBySignals());
  if (worked.how == Worked::gaveUp) return told(a, worked.reason);
  if (worked.how == Worked::interrupted) return told(a, "interrupted");
  return a.race && !worked.settles ? open : done;
}

int worked(const WorkArguments& a) {
  if (a.list == (a.number == 0)) return a.list ? listUnanswered(a.folder) : workOn(a);
  complain("work takes DIR N, or --list DIR");
  return misused;
}

Action declareWork(CLI::App& app) {
  const auto a = std::make_shared<WorkArguments>();
  app.add_option("FOLDER", a->folder, "the folder of a plan")->type_name("DIR")->required();
  app.add_option("N", a->number, "the number of a job")
      ->type_name("N")
      ->check(wholeNumber(1, std::numeric_limits<int>::max()));
  app.add_flag("--race", a->race, "exit status 3 unless the answer settles the whole plan");
  app.add_flag("--list", a->list, "print the numbers of the jobs without an answer");
  return [a] { return worked(*a); };
}

}  // namespace

const Subcommand workCommand{"work", "do one job of a plan", declareWork};

}  // namespace tpn
