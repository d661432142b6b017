#include "workbench/command/commandline.hpp"

#include <memory>

#include "workbench/base/spelling.hpp"
#include "workbench/command/helplayout.hpp"
#include "workbench/command/ranges.hpp"

namespace tpn {

namespace {

// As the help lists them.
constexpr const Subcommand* subcommands[] = {
    &lintCommand,   &showCommand,    &checkCommand, &traceCommand, &runCommand,  &certifyCommand,
    &exportCommand, &convertCommand, &makeCommand,  &planCommand,  &workCommand, &collectCommand};

bool isOption(const std::string& word) { return word.starts_with("-"); }

std::string didYouMean(const std::string& word, const std::vector<std::string>& known) {
  const std::string near = nearest(word, known);
  return near.empty() ? "" : "; did you mean " + near + "?";
}

std::vector<std::string> longOptions(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::Option* option : app.get_options())
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  return names;
}

// A word that the command does not take.
std::string unexpected(const CLI::App& app, const std::string& command, const std::string& word) {
  if (!isOption(word)) return command + " takes no further '" + word + "'";
  const std::string name = word.substr(0, word.find('='));
  return command + " has no option " + name + didYouMean(name, longOptions(app));
}

}  // namespace

CommandLine::CommandLine(const std::string& version)
    : app_("From a network of timed processes to an answer one can see and trust.", "tpn") {
  app_.formatter(std::make_shared<HelpLayout>());
  app_.set_help_flag("-h,--help", "print this help");
  app_.set_version_flag("--version", version, "print the version");
  app_.require_subcommand(1);
  for (const Subcommand* row : subcommands) {
    CLI::App* subcommand = app_.add_subcommand(row->name, row->help);
    subcommand->set_version_flag("--version", version, "print the version");
    subcommand->final_callback([this, given = row->declare(*subcommand)] { action_ = given; });
    for (CLI::Option* option : subcommand->get_options())
      if (option->get_items_expected_max() > 0) option->transform(notEmpty());
  }
}

Action CommandLine::parsed(int argc, char** argv) {
  if (argc > 1 && !isOption(argv[1])) first_ = argv[1];
  app_.parse(argc, argv);
  return action_;
}

std::string CommandLine::complaint(const CLI::ParseError& error) const {
  std::vector<std::string> names;
  for (const Subcommand* row : subcommands) names.emplace_back(row->name);
  if (app_.get_subcommands().empty()) {
    const std::string what =
        first_.empty() ? "which command?"
                       : "there is no command '" + first_ + "'" + didYouMean(first_, names);
    return what + " (tpn --help lists them)";
  }
  const CLI::App& command = *app_.get_subcommands().front();
  const std::string& name = command.get_name();
  const std::vector<std::string> remaining = app_.remaining(true);
  const bool foreign = dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr;
  const std::string what =
      foreign && !remaining.empty() ? unexpected(command, name, remaining.front()) : error.what();
  return what + " (tpn " + name + " --help tells more)";
}

}  // namespace tpn
