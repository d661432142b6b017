// Completion of tpn's command line for three shells, made from what the command line declares: no
// option can be forgotten, and none lingers.
//
// What a value may be is told by the option's type, the word that --help shows behind its name:
// FILE, DIR; names with a bar between them, in small letters, of which PATH stands for any file;
// anything else is for the user to know. NET and PHI are networks and properties.

#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace tpn {

struct CompletedValue {
  enum Kind { none, unknown, file, folder, network, choice } kind = none;
  std::vector<std::string> choices;  // of a choice
  bool orFile = false;               // of a choice: or any file
};

struct CompletedOption {
  std::vector<std::string> names;  // "--help", "-h"; none of a positional
  std::string type;                // as --help has it
  std::string help;
  CompletedValue value;
};

struct CompletedCommand {
  std::string name;
  std::string help;
  std::vector<CompletedOption> options;
  std::vector<CompletedOption> positionals;
};

// Where options and their values are not meant: files, or the choices of the first word that it
// takes.
CompletedValue plainWords(const CompletedCommand& command);

// Of the subcommands; without what --help does not show.
std::vector<CompletedCommand> completedCommands(const CLI::App& app);

// Files for the shells to read.
std::string bashCompletion(const std::vector<CompletedCommand>& commands);
std::string zshCompletion(const std::vector<CompletedCommand>& commands);
std::string fishCompletion(const std::vector<CompletedCommand>& commands);

}  // namespace tpn
