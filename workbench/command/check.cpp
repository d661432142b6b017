// tpn check: can a state with the property be reached, and in how many steps?

#include "workbench/search/check.hpp"

#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <limits>
#include <memory>
#include <optional>
#include <utility>

#include "workbench/base/printable.hpp"
#include "workbench/command/ending.hpp"
#include "workbench/command/ranges.hpp"
#include "workbench/command/reading.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/command/verdictoutput.hpp"
#include "workbench/command/viewchoice.hpp"
#include "workbench/search/engines.hpp"
#include "workbench/search/keptfiles.hpp"

namespace tpn {

namespace {

struct CheckArguments {
  Files files;
  bool deadlock = false;
  Engine engine = Engine::both;
  std::optional<int> maxTransitions;
  bool shortest = false;
  std::string certificate;
  bool flat = false;
  CheckOptions byBounds;  // with a solver program or with files that are kept
  double timeout = 0;
  RunViews views{runViews()};

  bool asksByBounds() const { return !byBounds.solver.empty() || !byBounds.keep.empty(); }
};

// Lines on a terminal that overwrite each other; nothing elsewhere.
class ProgressLine {
 public:
  ProgressLine() = default;
  ProgressLine(const ProgressLine&) = delete;
  void operator()(const Progress& p) {
    if (!terminal_) return;
    std::fputs("\r", stderr);
    if (p.bound > 0) std::fprintf(stderr, "k = %d: ", p.bound);
    if (p.transitions >= 0) std::fprintf(stderr, "%d transitions: ", p.transitions);
    if (p.bound > 0 || p.transitions >= 0)
      std::fprintf(stderr, "%ld variables, %ld clauses, ", p.variables, p.clauses);
    if (p.bound > 0 && p.conflicts >= 0) std::fprintf(stderr, "%ld conflicts, ", p.conflicts);
    if (p.frame >= 0)
      std::fprintf(stderr, "frame %ld: %ld clauses, %ld obligations, ", p.frame, p.learnt,
                   p.obligations);
    std::fprintf(stderr, "%.1f s\033[K", p.seconds);
    shown_ = true;
  }
  ~ProgressLine() { clear(); }
  void clear() {
    if (std::exchange(shown_, false)) std::fputs("\r\033[K", stderr);
  }

 private:
  bool terminal_ = isatty(STDERR_FILENO) == 1;
  bool shown_ = false;
};

int answer(const CheckArguments& a, const Asked& asked, const Answer& v, const Watch& watch) {
  const Inputs question{asked.net, withoutSafety(asked.goal)};
  const Inputs shown{asked.net, shownGoal(question.property, v)};
  std::string text = a.views.shows("json") ? answerJson(question, v)
                                           : answerText(question, v, a.views.terminalLook());
  if (v.run && !a.views.shows("json"))
    text += "\n" + a.views.shown().print(shown.net, shown.property, *v.run, a.views.terminalLook());
  if (v.certificate && !a.certificate.empty())
    attempted([&] { writeCertificate(a.certificate, asked, *v.certificate, a.flat, watch); });
  print(a.views, shown, v, text);
  return exitOf(v);
}

// The search has a watch of its own, for the time that is left.
Answer byBounds(const CheckArguments& a, const Asked& asked, const std::atomic<bool>& stopped,
                const Watch::Report& report, const Watch& watch) {
  CheckOptions options = a.byBounds;
  options.timeout = watch.left();
  options.maxBound = boundOf(static_cast<std::size_t>(a.maxTransitions.value_or(usualLength)));
  return answerOf(check(asked.net, asked.goal, options, stopped, report));
}

Answer byEngines(const CheckArguments& a, const Asked& asked, Watch& watch) {
  EngineOptions options{a.engine, a.maxTransitions, a.shortest};
  if (a.engine == Engine::bounded && !a.maxTransitions) options.maxTransitions = usualLength;
  return answered(asked.net, asked.goal, options, watch);
}

// What is known where the network was not read to its end.
int unread(const CheckArguments& a, const Watch& watch) {
  const Asked question{{}, {questionText(a.files), {{PropertyItem::truth}}}};
  Answer undecided;
  undecided.reason = watch.reason();
  return answer(a, question, undecided, watch);
}

// With its progress on the terminal, until a signal or the time stops it.
int checkedInTime(const CheckArguments& a) {
  const std::atomic<bool>& stopped = stoppedBySignals();
  ProgressLine progress;
  const Watch::Report report = std::ref(progress);
  Watch watch(limitOf(a.timeout), stopped, report);
  std::optional<Asked> asked;
  try {
    asked = askedOf(a.files, Checkpoint([&] { return watch.over(); }));
  } catch (const Interrupted&) {
    return unread(a, watch);
  }
  if (!asked) return failed;
  const Answer found =
      a.asksByBounds() ? byBounds(a, *asked, stopped, report, watch) : byEngines(a, *asked, watch);
  progress.clear();
  return answer(a, *asked, found, watch);
}

FilePlan planOf(const CheckArguments& a) {
  FilePlan plan = planFor(a.files);
  if (a.byBounds.solver.find('/') != std::string::npos) plan.reads(a.byBounds.solver);
  if (!a.byBounds.keep.empty()) plan.writesLike(a.byBounds.keep, isBoundFile);
  if (!a.certificate.empty()) plan.writes(a.certificate);
  a.views.addTo(plan);
  return plan;
}

int checked(const CheckArguments& a) {
  if (!asksOnce(a.files, a.deadlock)) {
    std::fputs("tpn: check takes NET PHI, NET -p TEXT or --deadlock NET\n", stderr);
    return misused;
  }
  if (a.deadlock && a.asksByBounds()) {
    std::fputs("tpn: --deadlock is answered by the engines, without --solver and --keep\n", stderr);
    return misused;
  }
  planOf(a);
  return checkedInTime(a);
}

void refuseBounds(const std::string& /*bound*/) {
  throw CLI::ValidationError("--max-bound",
                             "it is --max-transitions now: k = 3 N - 1 is N of them");
}

void declareEngines(CLI::App& app, CheckArguments& a) {
  std::vector<std::string> names;
  std::vector<std::pair<std::string, int>> numbers;
  for (const EngineName& row : engineNames) {
    names.emplace_back(row.name);
    numbers.emplace_back(row.name, static_cast<int>(row.engine));
  }
  app.add_option("--engine", a.engine, "who answers; both where nothing is said")
      ->type_name(alternatives(names))
      ->transform(numberOf(numbers));
  app.add_flag("--shortest", a.shortest, "go on until the shortest run is sure");
  CLI::Option* const certificate =
      app.add_option("--certificate", a.certificate, "write why it is never reached into this file")
          ->type_name("FILE");
  app.add_flag("--flat", a.flat, "the certificate with all clauses, and no symmetry")
      ->needs(certificate);
}

void declareBounds(CLI::App& app, CheckOptions& options) {
  CLI::Option* const solver = app.add_option("--solver", options.solver,
                                             "ask this program, by name or path, bound by bound")
                                  ->type_name("cadical|minisat|picosat|cryptominisat5|PATH");
  app.add_option("--jobs", options.jobs, "bounds side by side")
      ->type_name("N")
      ->capture_default_str()
      ->check(wholeNumber(1, std::numeric_limits<int>::max()))
      ->needs(solver);
  CLI::Option* const keep =
      app.add_option("--keep", options.keep, "keep clause files, maps and answers here")
          ->type_name("DIR");
  for (const char* const option : {"--engine", "--shortest", "--certificate"})
    app.get_option(option)->excludes(solver)->excludes(keep);
}

Action declareCheck(CLI::App& app) {
  const auto a = std::make_shared<CheckArguments>();
  addNet(app, a->files);
  addPhi(app, a->files);
  app.add_flag("--deadlock", a->deadlock, "can it be that no transition fires any more?");
  app.add_option("--max-transitions", a->maxTransitions, "the longest runs to search for")
      ->type_name("N")
      ->check(wholeNumber(0, 500'000'000));
  addTimeout(app, a->timeout);
  declareEngines(app, *a);
  declareBounds(app, a->byBounds);
  app.add_option_function<std::string>("--max-bound", refuseBounds)->group("");
  a->views.declare(app);
  return [a] { return checked(*a); };
}

}  // namespace

const Subcommand checkCommand{"check", "can a state with the property be reached?", declareCheck};

}  // namespace tpn
