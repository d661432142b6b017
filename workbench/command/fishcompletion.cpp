// For fish: a line an option.

#include "workbench/command/completion.hpp"

namespace tpn {

namespace {

std::string inQuotes(const std::string& text) {
  std::string result = "'";
  for (const char c : text) {
    if (c == '\'' || c == '\\') result += '\\';
    result += c;
  }
  return result + "'";
}

std::string within(const CompletedCommand& command) {
  return "complete -c tpn -n '__fish_seen_subcommand_from " + command.name + "'";
}

std::string flags(const CompletedOption& option) {
  std::string all;
  for (const std::string& name : option.names)
    all += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
  return all;
}

std::string wordsOf(const CompletedValue& value) {
  std::string words;
  for (const std::string& choice : value.choices) words += (words.empty() ? "" : " ") + choice;
  return inQuotes(words);
}

std::string plain(const CompletedValue& value) {
  return value.kind == CompletedValue::choice ? " -a " + wordsOf(value) : " -F";
}

std::string value(const CompletedValue& value) {
  switch (value.kind) {
    case CompletedValue::choice:
      return std::string(value.orFile ? " -r -F -a " : " -x -a ") + wordsOf(value);
    case CompletedValue::file:
    case CompletedValue::network:
      return " -r -F";
    case CompletedValue::folder:
      return " -x -a '(__fish_complete_directories)'";
    case CompletedValue::unknown:
      return " -x";
    default:
      return "";
  }
}

}  // namespace

std::string fishCompletion(const std::vector<CompletedCommand>& commands) {
  std::string all =
      "# Completion of tpn for fish, made from the options that tpn declares.\n\n"
      "complete -c tpn -f\n"
      "complete -c tpn -n __fish_use_subcommand -l help -d 'help'\n"
      "complete -c tpn -n __fish_use_subcommand -l version -d 'the version'\n";
  for (const CompletedCommand& command : commands) {
    all += "\ncomplete -c tpn -n __fish_use_subcommand -a " + command.name + " -d " +
           inQuotes(command.help) + "\n";
    all += within(command) + plain(plainWords(command)) + "\n";
    for (const CompletedOption& option : command.options)
      all += within(command) + flags(option) + value(option.value) + " -d " +
             inQuotes(option.help) + "\n";
  }
  return all;
}

}  // namespace tpn
