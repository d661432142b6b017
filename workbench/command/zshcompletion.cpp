// For zsh: specifications for its function _arguments.

#include "workbench/command/completion.hpp"

namespace tpn {

namespace {

// Inside of single quotes, and of [...] or between colons in what tells of an option.
std::string inQuotes(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '\'') {
      result += "'\\''";
      continue;
    }
    if (c == '[' || c == ']' || c == ':' || c == '\\') result += '\\';
    result += c;
  }
  return result;
}

std::string action(const CompletedValue& value) {
  switch (value.kind) {
    case CompletedValue::choice: {
      std::string words;
      for (const std::string& choice : value.choices) words += (words.empty() ? "" : " ") + choice;
      if (!value.orFile) return "(" + words + ")";
      return "{_alternative \"names::(" + words + ")\" \"files::_files\"}";
    }
    case CompletedValue::file:
      return "_files";
    case CompletedValue::folder:
      return "_files -/";
    case CompletedValue::network:
      return "_files -g \"*.tpn\"";
    default:
      return " ";
  }
}

std::string optionSpecification(const CompletedOption& option, const std::string& name) {
  const std::string help = "[" + inQuotes(option.help) + "]";
  if (option.value.kind == CompletedValue::none) return "'" + name + help + "'";
  const std::string value = ":" + inQuotes(option.type) + ":" + action(option.value);
  const bool isLong = name.starts_with("--");
  return "'" + name + (isLong ? "=" : "+") + help + value + "'";
}

std::string specifications(const CompletedCommand& command) {
  std::string all;
  for (const CompletedOption& option : command.options)
    for (const std::string& name : option.names)
      all += " \\\n          " + optionSpecification(option, name);
  for (const CompletedOption& positional : command.positionals)
    all += " \\\n          ':" + inQuotes(positional.type) + ":" + action(positional.value) + "'";
  return all;
}

}  // namespace

std::string zshCompletion(const std::vector<CompletedCommand>& commands) {
  std::string names;
  std::string cases;
  for (const CompletedCommand& command : commands) {
    names += "        '" + command.name + ":" + inQuotes(command.help) + "'\n";
    cases +=
        "        " + command.name + ")\n        _arguments" + specifications(command) + " ;;\n";
  }
  return "#compdef tpn\n# Completion of tpn for zsh, made from the options that tpn declares.\n\n"
         "_tpn() {\n  local context state line\n  typeset -A opt_args\n"
         "  _arguments -C '(- *)--help[help]' '(- *)--version[the version]' \\\n"
         "    '1:command:->command' '*::argument:->argument'\n"
         "  case $state in\n    command)\n      local -a commands\n      commands=(\n" +
         names +
         "      )\n      _describe -t commands command commands ;;\n    argument)\n"
         "      case $words[1] in\n" +
         cases + "      esac ;;\n  esac\n}\n\n_tpn \"$@\"\n";
}

}  // namespace tpn
