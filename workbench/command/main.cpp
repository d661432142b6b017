// The command line of tpn: a row a subcommand, and how the program ends.

#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <exception>
#include <iostream>
#include <new>
#include <sstream>
#include <string>

#include "workbench/base/files.hpp"
#include "workbench/base/printable.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/command/version.hpp"

namespace {

using namespace tpn;

// As the help lists them.
constexpr const Subcommand* subcommands[] = {&lintCommand,   &showCommand, &checkCommand,
                                             &traceCommand,  &runCommand,  &certifyCommand,
                                             &exportCommand, &makeCommand};

constexpr const char* noMemory = "tpn: this needs more memory than there is\n";

// The command line's library makes its validators before main, where nothing catches what they
// throw.
[[gnu::constructor(101)]] void watchMemoryBeforeMain() {
  std::set_new_handler([] {
    const ssize_t ignored = write(STDERR_FILENO, noMemory, std::strlen(noMemory));
    (void)ignored;
    _exit(failed);
  });
}

// What the parser says may quote anything that was given.
int told(const CLI::App& app, const CLI::ParseError& e) {
  std::ostringstream out;
  std::ostringstream err;
  const int status = app.exit(e, out, err);
  std::cerr << printableLines(err.str());
  writeFile("-", printableLines(out.str()));
  return status == 0 ? done : misused;
}

int command(int argc, char** argv) {
  CLI::App app("From a network of timed processes to an answer one can see and trust.", "tpn");
  const std::string version = std::string("tpn ") + versionText;
  app.set_version_flag("--version", version);
  app.require_subcommand(1);
  Action action;
  for (const Subcommand* row : subcommands) {
    CLI::App* subcommand = app.add_subcommand(row->name, row->help);
    subcommand->set_version_flag("--version", version);
    subcommand->final_callback([&action, given = row->declare(*subcommand)] { action = given; });
  }
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    return told(app, e);
  }
  return action();
}

// Names of files may be any bytes.
void complain(const char* what) {
  try {
    std::fprintf(stderr, "tpn: %s\n", printable(what).c_str());
  } catch (const std::bad_alloc&) {
    std::fputs("tpn: what went wrong does not fit into memory\n", stderr);
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::set_new_handler(nullptr);
  try {
    return command(argc, argv);
  } catch (const std::bad_alloc&) {
    std::fputs(noMemory, stderr);
  } catch (const std::exception& e) {
    complain(e.what());
  }
  return failed;
}
