// tpn check: can a state with the property be reached, and in how many steps?

#include "workbench/search/check.hpp"

#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>

#include "workbench/command/reading.hpp"
#include "workbench/command/runoutput.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

namespace {

using Json = nlohmann::ordered_json;

struct Arguments {
  Files files;
  CheckOptions options;
  double timeout = 0;
  RunOutput output;
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

const char* nameOf(Verdict::Answer answer) {
  if (answer == Verdict::reachable) return "reachable";
  return answer == Verdict::unreached ? "unreached" : "unknown";
}

std::string verdictText(const Inputs& q, const Verdict& v) {
  const std::string steps = " (k = " + std::to_string(v.bound) + ")";
  switch (v.answer) {
    case Verdict::reachable:
      return "reachable" + steps + "\n\n" + runText(q.net, q.property, *v.run);
    case Verdict::unreached:
      return "no run of up to " + std::to_string(v.bound) + " steps reaches it" +
             (v.reason.empty() ? "" : ": " + v.reason) + "\n";
    default:
      return "unknown: " + v.reason + "; " +
             (v.bound > 0 ? "no run of up to " + std::to_string(v.bound) + " steps reaches it\n"
                          : "no bound was completed\n");
  }
}

std::string verdictJson(const Inputs& q, const Verdict& v) {
  Json json{{"answer", nameOf(v.answer)}, {"bound", v.bound}};
  if (!v.reason.empty()) json["reason"] = v.reason;
  if (v.run) json["run"] = Json::parse(runJson(q.net, q.property, *v.run));
  return json.dump(2) + "\n";
}

int answer(const Arguments& a, const Inputs& q, const Verdict& v) {
  print(a.output, q, v.run, a.output.json ? verdictJson(q, v) : verdictText(q, v));
  if (v.answer == Verdict::reachable) return yes;
  return v.answer == Verdict::unreached ? no : done;
}

// With its progress on the terminal, until a signal stops it.
Verdict searched(const Inputs& q, const CheckOptions& options) {
  std::signal(SIGINT, [](int) { stopped = true; });
  std::signal(SIGTERM, [](int) { stopped = true; });
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

int checked(Arguments a) {
  const std::optional<Inputs> q = inputsOf(a.files);
  if (!q) return failed;
  if (a.timeout > 0)
    a.options.timeout = std::chrono::milliseconds(static_cast<long>(a.timeout * 1000));
  return answer(a, *q, searched(*q, a.options));
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
  app.add_option("--timeout", a->timeout, "stop after S seconds")
      ->type_name("S")
      ->check(CLI::PositiveNumber);
  app.add_option("--solver", options.solver,
                 "cadical, minisat, picosat, cryptominisat5 or a path, instead of the embedded one")
      ->type_name("NAME");
  app.add_option("--jobs", options.jobs, "bounds side by side, with --solver")
      ->type_name("N")
      ->capture_default_str()
      ->check(CLI::PositiveNumber);
  app.add_option("--keep", options.keep, "keep clause files, maps and answers here")
      ->type_name("DIR");
  addRunOutput(app, a->output);
  return [a] { return checked(*a); };
}

}  // namespace

const Subcommand checkCommand{"check", "can a state with the property be reached?", declare};

}  // namespace tpn
