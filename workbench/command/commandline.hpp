// The command line of tpn as a whole: a row a subcommand, and what is said of one that makes no
// sense. Completion is made from it, too.

#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "workbench/command/subcommand.hpp"

namespace tpn {

class CommandLine {
 public:
  explicit CommandLine(const std::string& version);  // what --version prints

  // What the subcommand does that was named. Throws CLI::ParseError: for help and version, and for
  // words that make no sense.
  Action parsed(int argc, char** argv);

  // Why they make none, in one line, with what is near in the place of a word that is none of ours.
  std::string complaint(const CLI::ParseError& error) const;

  const CLI::App& app() const { return app_; }

 private:
  CLI::App app_;
  Action action_;
  std::string first_;  // the word that should be a subcommand; empty where it is an option
};

}  // namespace tpn
