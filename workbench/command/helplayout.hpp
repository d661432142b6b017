// How --help is laid out: in lines of at most 80 columns, what an option is for beside it or, where
// it is long, below. What it goes with or not stands behind that, in words.

#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace tpn {

class HelpLayout : public CLI::Formatter {
 public:
  std::string make_help(const CLI::App* app, std::string name,
                        CLI::AppFormatMode mode) const override;
  std::string make_group(std::string group, bool isPositional,
                         std::vector<const CLI::Option*> options) const override;
  std::string make_option(const CLI::Option* option, bool isPositional) const override;
  std::string make_option_usage(const CLI::Option* option) const override;
  std::string make_subcommand(const CLI::App* subcommand) const override;
};

// A row of two columns: the right one is folded at blanks, and begins a line of its own where the
// left one is too wide.
std::string helpRow(const std::string& left, const std::string& right);

}  // namespace tpn
