// A subcommand of tpn. Each has a file of its own, which ends with its Subcommand; the table in
// main.cpp names all of them.

#pragma once

#include <CLI/CLI.hpp>
#include <functional>

namespace tpn {

// How tpn ends. 1 is for everything that went wrong, 2 for a command line that makes no sense;
// check and trace tell reachable (10) from unreachable (20) and from neither (30), which is also
// how certify ends where it was stopped.
enum Exit : int { done = 0, failed = 1, misused = 2, yes = 10, no = 20, neither = 30 };

// What a subcommand does once its command line is read, and how it ends.
using Action = std::function<int()>;

struct Subcommand {
  const char* name;
  const char* help;
  Action (*declare)(CLI::App& app);  // says what it takes; the action keeps what was given
};

extern const Subcommand lintCommand;
extern const Subcommand showCommand;
extern const Subcommand checkCommand;
extern const Subcommand traceCommand;
extern const Subcommand runCommand;
extern const Subcommand certifyCommand;
extern const Subcommand exportCommand;
extern const Subcommand convertCommand;
extern const Subcommand makeCommand;
extern const Subcommand planCommand;
extern const Subcommand workCommand;
extern const Subcommand collectCommand;

}  // namespace tpn
