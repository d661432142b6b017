// The command line of tpn: what its subcommands take, what they print, how they exit.
//
// Exit statuses: lint 0 or 1; check and trace 10 (reachable), 20 (no run of that length), 0
// (unknown); 1 for everything that went wrong, 2 for a command line that makes no sense.

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "workbench/base/files.hpp"
#include "workbench/network/strictread.hpp"
#include "workbench/search/check.hpp"
#include "workbench/views/views.hpp"
#include "workbench/walking/walk.hpp"

namespace {

using namespace tpn;
using Json = nlohmann::ordered_json;

enum Exit : int { done = 0, failed = 1, misused = 2, yes = 10, no = 20 };

// What all subcommands may be told.
struct Arguments {
  std::string net;
  std::string phi;
  std::string map;
  std::string answer;
  std::optional<int> bound;
  CheckOptions check;
  double timeout = 0;
  bool json = false;
  bool dot = false;
  std::string svg;
  std::string vcd;
  std::optional<std::uint64_t> seed;
  std::size_t steps = 20;
  std::string script;
};

void complain(const Diagnostics& diagnostics) {
  for (const Diagnostic& d : diagnostics) std::cerr << text(d) << "\n";
}

// A file's value, its mistakes appended.
std::optional<Network> network(const Arguments& a, Diagnostics& diagnostics) {
  const std::string name = inputName(a.net);
  return readNetwork(name, readFile(name), diagnostics);
}
std::optional<Property> property(const Arguments& a, Diagnostics& diagnostics) {
  const std::string name = inputName(a.phi);
  return readProperty(name, readFile(name), diagnostics);
}

struct Question {
  Network net;
  Property property;
};

// Both files, or nothing and their mistakes on standard error.
std::optional<Question> question(const Arguments& a) {
  Diagnostics diagnostics;
  const std::optional<Network> net = network(a, diagnostics);
  const std::optional<Property> phi = property(a, diagnostics);
  if (net && phi) lintTogether(*net, inputName(a.phi), *phi, diagnostics);
  complain(diagnostics);
  if (hasErrors(diagnostics) || !net || !phi) return std::nullopt;
  return Question{*net, *phi};
}

int lint(const Arguments& a) {
  Diagnostics diagnostics;
  const std::optional<Network> net = network(a, diagnostics);
  if (!a.phi.empty()) {
    const std::optional<Property> phi = property(a, diagnostics);
    if (net && phi) lintTogether(*net, inputName(a.phi), *phi, diagnostics);
  }
  if (net && a.bound) lintBound(*net, inputName(a.net), *a.bound, diagnostics);
  std::string out;
  if (a.json) {
    out = diagnosticsJson(diagnostics);
  } else {
    for (const Diagnostic& d : diagnostics) out += text(d) + "\n";
  }
  writeFile("-", out);
  return hasErrors(diagnostics) ? failed : done;
}

// Runs Graphviz on a picture in its language.
void drawWithDot(const std::string& dot, const std::string& file) {
  const std::string scratch = std::filesystem::temp_directory_path() / "tpn-XXXXXX.dot";
  std::string name = scratch;
  const int made = mkstemps(name.data(), 4);
  if (made < 0) throw std::runtime_error(scratch + ": cannot be made");
  close(made);
  writeFile(name, dot);
  std::string quoted;
  for (const char c : file) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  const std::string command = "dot -Tsvg -o '" + quoted + "' " + name;
  const int status = std::system(command.c_str());
  std::filesystem::remove(name);
  if (status != 0) throw std::runtime_error("dot (package graphviz) did not draw " + file);
}

int show(const Arguments& a) {
  Diagnostics diagnostics;
  const std::optional<Network> net = network(a, diagnostics);
  complain(diagnostics);
  if (!net) return failed;
  if (!a.svg.empty()) drawWithDot(networkDot(*net), a.svg);
  if (a.json) writeFile("-", networkJson(*net));
  if (a.dot) writeFile("-", networkDot(*net));
  if (!a.json && !a.dot && a.svg.empty()) writeFile("-", networkText(*net));
  return done;
}

// The pictures that were asked for, then the text: whoever reads only the first lines of it still
// gets the pictures, and a picture that cannot be written does not cost the text.
void output(const Arguments& a, const Question& q, const std::optional<Run>& run,
            const std::string& text) {
  std::exception_ptr failure;
  try {
    if (run && !a.svg.empty()) writeFile(a.svg, runSvg(q.net, q.property, *run));
    if (run && !a.vcd.empty()) writeFile(a.vcd, runVcd(q.net, q.property, *run));
  } catch (...) {
    failure = std::current_exception();
  }
  writeFile("-", text);
  if (failure) std::rethrow_exception(failure);
}

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

std::string verdictText(const Question& q, const Verdict& v) {
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

std::string verdictJson(const Question& q, const Verdict& v) {
  Json json{{"answer", nameOf(v.answer)}, {"bound", v.bound}};
  if (!v.reason.empty()) json["reason"] = v.reason;
  if (v.run) json["run"] = Json::parse(runJson(q.net, q.property, *v.run));
  return json.dump(2) + "\n";
}

int answer(const Arguments& a, const Question& q, const Verdict& v) {
  output(a, q, v.run, a.json ? verdictJson(q, v) : verdictText(q, v));
  if (v.answer == Verdict::reachable) return yes;
  return v.answer == Verdict::unreached ? no : done;
}

int checkCommand(Arguments a) {
  const std::optional<Question> q = question(a);
  if (!q) return failed;
  if (a.timeout > 0)
    a.check.timeout = std::chrono::milliseconds(static_cast<long>(a.timeout * 1000));
  std::signal(SIGINT, [](int) { stopped = true; });
  std::signal(SIGTERM, [](int) { stopped = true; });
  ProgressLine progress;
  std::optional<Verdict> verdict;
  try {
    verdict = check(q->net, q->property, a.check, stopped, std::ref(progress));
  } catch (...) {
    progress.clear();
    throw;
  }
  progress.clear();
  return answer(a, *q, *verdict);
}

int trace(const Arguments& a) {
  const std::optional<Question> q = question(a);
  if (!q) return failed;
  const std::optional<Run> run = traced(q->net, q->property, readFile(a.map), readFile(a.answer));
  if (!run) {
    writeFile("-", a.json ? "{\n  \"answer\": \"unreached\"\n}\n" : "no run: unsatisfiable\n");
    return no;
  }
  output(a, *q, run,
         a.json ? runJson(q->net, q->property, *run) : runText(q->net, q->property, *run));
  return yes;
}

int runCommand(const Arguments& a) {
  Diagnostics diagnostics;
  const std::optional<Network> net = network(a, diagnostics);
  complain(diagnostics);
  if (!net) return failed;
  Walked walked;
  if (a.seed) {
    walked = walkRandomly(*net, *a.seed, a.steps);
  } else if (!a.script.empty()) {
    std::istringstream script(readFile(a.script));
    walked = walkScript(*net, a.script, script, std::cout);
  } else {
    walked = walk(*net, std::cin, std::cout);
  }
  const Question q{*net, anything()};
  std::string text;
  if (a.json) {
    text = runJson(q.net, q.property, walked.run);
  } else if (a.seed) {
    text = runText(q.net, q.property, walked.run);
  }
  output(a, q, walked.run, text);
  if (!walked.stuck.empty()) std::cerr << "tpn: " << walked.stuck << "\n";
  if (!walked.error.empty()) std::cerr << walked.error << "\n";
  return walked.error.empty() ? done : failed;
}

void addViews(CLI::App* command, Arguments& a) {
  command->add_option("--svg", a.svg, "draw the run: time to the right, a lane a process")
      ->type_name("FILE");
  command->add_option("--vcd", a.vcd, "the run for a waveform viewer")->type_name("FILE");
  command->add_flag("--json", a.json, "print JSON instead of text");
}

constexpr const char* version = "tpn " ZERVAN_VERSION;

void addFiles(CLI::App* command, Arguments& a, bool withProperty) {
  command->set_version_flag("--version", version);
  command->add_option("NET", a.net, "network file, with or without .tpn")->required();
  if (withProperty)
    command->add_option("PHI", a.phi, "property file, with or without .tpn")->required();
}

CLI::App* addLint(CLI::App& app, Arguments& a) {
  CLI::App* command = app.add_subcommand("lint", "find everything that is wrong with the files");
  addFiles(command, a, false);
  command->add_option("PHI", a.phi, "property file, with or without .tpn");
  command->add_option("--bound", a.bound, "would zervan take a path of K steps?")->type_name("K");
  command->add_flag("--json", a.json, "print JSON instead of text");
  return command;
}

CLI::App* addShow(CLI::App& app, Arguments& a) {
  CLI::App* command = app.add_subcommand("show", "a network as a person wants to see it");
  addFiles(command, a, false);
  CLI::Option* dot = command->add_flag("--dot", a.dot, "print it for Graphviz");
  command->add_option("--svg", a.svg, "draw it, with Graphviz")->type_name("FILE");
  command->add_flag("--json", a.json, "print JSON instead of text")->excludes(dot);
  return command;
}

CLI::App* addCheck(CLI::App& app, Arguments& a) {
  CLI::App* command = app.add_subcommand("check", "can a state with the property be reached?");
  addFiles(command, a, true);
  a.check.maxBound = 50;
  command->add_option("--max-bound", a.check.maxBound, "the longest runs to ask for, in steps")
      ->type_name("K")
      ->capture_default_str()
      ->check(CLI::PositiveNumber);
  command->add_option("--timeout", a.timeout, "stop after S seconds")
      ->type_name("S")
      ->check(CLI::PositiveNumber);
  command
      ->add_option(
          "--solver", a.check.solver,
          "cadical, minisat, picosat, cryptominisat5 or a path, instead of the embedded one")
      ->type_name("NAME");
  command->add_option("--jobs", a.check.jobs, "bounds side by side, with --solver")
      ->type_name("N")
      ->capture_default_str()
      ->check(CLI::PositiveNumber);
  command->add_option("--keep", a.check.keep, "keep clause files, maps and answers here")
      ->type_name("DIR");
  addViews(command, a);
  return command;
}

CLI::App* addTrace(CLI::App& app, Arguments& a) {
  CLI::App* command = app.add_subcommand("trace", "the run in a solver's answer to zervan's file");
  addFiles(command, a, true);
  command->add_option("MAP", a.map, "variable map, NETkK.lck")->required();
  command->add_option("ANSWER", a.answer, "what the solver said: v lines, or MiniSat's file")
      ->required();
  addViews(command, a);
  return command;
}

CLI::App* addRun(CLI::App& app, Arguments& a) {
  CLI::App* command = app.add_subcommand("run", "step through a network by hand or at random");
  addFiles(command, a, false);
  CLI::Option* random =
      command->add_option("--random", a.seed, "random steps from this seed")->type_name("SEED");
  command->add_option("--steps", a.steps, "how many random steps")
      ->type_name("N")
      ->capture_default_str()
      ->needs(random);
  command->add_option("--script", a.script, "take the commands from a file")
      ->type_name("FILE")
      ->excludes(random);
  addViews(command, a);
  return command;
}

int command(int argc, char** argv) {
  Arguments a;
  CLI::App app("From a network of timed processes to an answer one can see and trust.", "tpn");
  app.set_version_flag("--version", version);
  app.require_subcommand(1);
  const CLI::App* lintApp = addLint(app, a);
  const CLI::App* showApp = addShow(app, a);
  const CLI::App* checkApp = addCheck(app, a);
  const CLI::App* traceApp = addTrace(app, a);
  addRun(app, a);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    return app.exit(e) == 0 ? done : misused;
  }
  if (lintApp->parsed()) return lint(a);
  if (showApp->parsed()) return show(a);
  if (checkApp->parsed()) return checkCommand(a);
  if (traceApp->parsed()) return trace(a);
  return runCommand(a);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return command(argc, argv);
  } catch (const std::exception& e) {
    std::fprintf(stderr, "tpn: %s\n", e.what());
    return failed;
  }
}
