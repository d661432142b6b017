#include "workbench/command/completion.hpp"

#include <cctype>
#include <sstream>

namespace tpn {

namespace {

CompletedValue choiceOf(const std::string& type) {
  CompletedValue value{CompletedValue::choice, {}, false};
  std::istringstream in(type);
  for (std::string name; std::getline(in, name, '|');) {
    if (std::isupper(static_cast<unsigned char>(name.front())) != 0)
      value.orFile = true;
    else
      value.choices.push_back(name);
  }
  return value;
}

CompletedValue valueOf(const CLI::Option& option, const std::string& type) {
  if (option.get_items_expected_max() == 0) return {};
  if (type.find('|') != std::string::npos) return choiceOf(type);
  if (type == "DIR") return {CompletedValue::folder, {}, false};
  const std::string& name = option.get_name(true);
  if (name == "NET" || name == "PHI") return {CompletedValue::network, {}, false};
  return {type == "FILE" ? CompletedValue::file : CompletedValue::unknown, {}, false};
}

CompletedOption completed(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  CompletedOption result{{}, type, option.get_description(), valueOf(option, type)};
  for (const std::string& name : option.get_lnames()) result.names.push_back("--" + name);
  for (const std::string& name : option.get_snames()) result.names.push_back("-" + name);
  if (option.get_positional()) result.type = option.get_name(true);
  return result;
}

}  // namespace

CompletedValue plainWords(const CompletedCommand& command) {
  return command.positionals.empty() ? CompletedValue{} : command.positionals.front().value;
}

std::vector<CompletedCommand> completedCommands(const CLI::App& app) {
  std::vector<CompletedCommand> commands;
  for (const CLI::App* subcommand : app.get_subcommands([](const CLI::App*) { return true; })) {
    CompletedCommand command{subcommand->get_name(), subcommand->get_description(), {}, {}};
    for (const CLI::Option* option : subcommand->get_options()) {
      if (option->get_group().empty()) continue;
      auto& list = option->get_positional() ? command.positionals : command.options;
      list.push_back(completed(*option));
    }
    commands.push_back(command);
  }
  return commands;
}

}  // namespace tpn
