// tpn check: can a state with the property be reached, and in how many steps?

#include "workbench/search/check.hpp"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <memory>

#include "workbench/base/printable.hpp"
#include "workbench/command/ranges.hpp"
#include "workbench/command/reading.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/command/verdictoutput.hpp"
#include "workbench/command/viewchoice.hpp"

namespace tpn {

namespace {

struct Arguments {
  Files files;
  CheckOptions options;
  double timeout = 0;
  RunViews views{runViews()};
};

// Lines on a terminal that overwrite each other; nothing elsewhere.
class ProgressLine {
 public:
  void operator()(const Progress& p) {
    if (!terminal_) return;
    std::fprintf(stderr, "\rk = %d: %ld variables, %ld clauses", p.bound, p.variables, p.clauses);
    if (p.conflicts >= 0) std::fprintf(stderr, ", %ld conflicts", p.conflicts);
    std::fprintf(stderr, ", %.1f s\033[K", p.seconds);
    shown_ = true;
  }
  void clear() const {
    if (shown_) std::fputs("\r\033[K", stderr);
  }

 private:
  bool terminal_ = isatty(STDERR_FILENO) == 1;
  bool shown_ = false;
};

std::atomic<bool> stopped{false};

int answer(const Arguments& a, const Inputs& q, const Verdict& v) {
  std::string text = a.views.shows("json") ? verdictJson(q, v) : headline(v);
  if (v.run && !a.views.shows("json"))
    text += "\n" + a.views.shown().print(q.net, q.property, *v.run);
  print(a.views, q, v.run, text);
  return exitOf(v);
}

// Set by the signals that ask for an end. One that was ignored from the start, as under nohup,
// stays so.
void stopOnSignals() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP})
    if (std::signal(signal, SIG_IGN) != SIG_IGN) std::signal(signal, [](int) { stopped = true; });
}

// With its progress on the terminal, until a signal stops it.
Verdict searched(const Inputs& q, const CheckOptions& options) {
  stopOnSignals();
  ProgressLine progress;
  try {
    Verdict verdict = check(q.net, q.property, options, stopped, std::ref(progress));
    progress.clear();
    return verdict;
  } catch (...) {
    progress.clear();
    throw;
  }
}

// kK.cnf and its like: what is kept of a bound.
bool isKept(std::string_view name) {
  const std::size_t suffix = name.find_first_not_of("0123456789", 1);
  if (!name.starts_with('k') || suffix < 2 || suffix == std::string_view::npos) return false;
  constexpr std::array<std::string_view, 5> kept{".cnf", ".lck", ".out", ".err", ".result"};
  return std::find(kept.begin(), kept.end(), name.substr(suffix)) != kept.end();
}

FilePlan planOf(const Arguments& a) {
  FilePlan plan = planFor(a.files);
  if (a.options.solver.find('/') != std::string::npos) plan.reads(a.options.solver);
  if (!a.options.keep.empty()) plan.writesLike(a.options.keep, isKept);
  a.views.addTo(plan);
  return plan;
}

int checked(const Arguments& a) {
  planOf(a);
  const std::optional<Inputs> q = inputsOf(a.files);
  if (!q) return failed;
  CheckOptions options = a.options;
  // Nobody waits longer, and a clock counts nanoseconds up to ten times that.
  constexpr double longest = 1e9;
  if (a.timeout > 0)
    options.timeout = std::chrono::milliseconds(std::llround(std::min(a.timeout, longest) * 1000));
  return answer(a, *q, searched(*q, options));
}

Action declare(CLI::App& app) {
  const auto a = std::make_shared<Arguments>();
  CheckOptions& options = a->options;
  addNet(app, a->files);
  addPhi(app, a->files, true);
  options.maxBound = 50;
  app.add_option("--max-bound", options.maxBound, "the longest runs to ask for, in steps")
      ->type_name("K")
      ->capture_default_str()
      ->check(CLI::PositiveNumber);
  app.add_option("--timeout", a->timeout, "stop after S seconds")->type_name("S")->check(seconds());
  app.add_option("--solver", options.solver,
                 "cadical, minisat, picosat, cryptominisat5 or a path, instead of the embedded one")
      ->type_name("NAME");
  app.add_option("--jobs", options.jobs, "bounds side by side, with --solver")
      ->type_name("N")
      ->capture_default_str()
      ->check(CLI::PositiveNumber);
  app.add_option("--keep", options.keep, "keep clause files, maps and answers here")
      ->type_name("DIR");
  a->views.declare(app);
  return [a] { return checked(*a); };
}

}  // namespace

const Subcommand checkCommand{"check", "can a state with the property be reached?", declare};

}  // namespace tpn
