// The command line of tpn: a row a subcommand, and how the program ends.

#include <cstdio>
#include <exception>

#include "workbench/command/subcommand.hpp"

namespace {

using namespace tpn;

// As the help lists them.
constexpr const Subcommand* subcommands[] = {&lintCommand,  &showCommand, &checkCommand,
                                             &traceCommand, &runCommand,  &certifyCommand,
                                             &exportCommand};

constexpr const char* version = "tpn " ZERVAN_VERSION;

int command(int argc, char** argv) {
  CLI::App app("From a network of timed processes to an answer one can see and trust.", "tpn");
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
    return app.exit(e) == 0 ? done : misused;
  }
  return action();
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
