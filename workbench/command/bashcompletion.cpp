// For bash: a function that looks at the command and at the word before.

#include "workbench/command/completion.hpp"

namespace tpn {

namespace {

// Networks and properties go by their names without .tpn. bash takes the = of --svg=FILE for a
// word.
constexpr const char* head =
    R"(# Completion of tpn for bash, made from the options that tpn declares.

_tpn_words() { mapfile -t COMPREPLY < <(compgen -W "$1" -- "$word"); }
_tpn_files() { mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -f -- "$word"); }
_tpn_folders() { mapfile -t COMPREPLY < <(compgen -d -- "$word"); }
_tpn_networks() {
  mapfile -t COMPREPLY < <(compgen -f -X '!*.tpn' -- "$word" | sed 's/\.tpn$//'
    compgen -f -- "$word" | grep -v '\.tpn$')
}

_tpn() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
  if [ "$word" = = ]; then
    word=
  elif [ "$before" = = ]; then
    before=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  COMPREPLY=()
)";

std::string joined(const std::vector<std::string>& words, const std::string& between) {
  std::string all;
  for (const std::string& word : words) all += (all.empty() ? "" : between) + word;
  return all;
}

std::string action(const CompletedValue& value) {
  switch (value.kind) {
    case CompletedValue::choice:
      return "_tpn_words '" + joined(value.choices, " ") + "'" +
             (value.orFile ? "; _tpn_files" : "");
    case CompletedValue::file:
      return "_tpn_files";
    case CompletedValue::folder:
      return "_tpn_folders";
    case CompletedValue::network:
      return "_tpn_networks";
    default:
      return ":";
  }
}

// A row for each option with a value.
std::string valueRows(const CompletedCommand& command) {
  std::string rows;
  for (const CompletedOption& option : command.options) {
    if (option.value.kind == CompletedValue::none) continue;
    std::vector<std::string> patterns;
    for (const std::string& name : option.names)
      patterns.push_back("'" + command.name + " " + name + "'");
    rows += "    " + joined(patterns, " | ") + ") " + action(option.value) + "; return ;;\n";
  }
  return rows;
}

std::string plainRow(const CompletedCommand& command) {
  return "      " + command.name + ") " + action(plainWords(command)) + " ;;\n";
}

std::string optionRow(const CompletedCommand& command) {
  std::string names;
  for (const CompletedOption& option : command.options)
    names += (names.empty() ? "" : " ") + joined(option.names, " ");
  return "      " + command.name + ") _tpn_words '" + names + "' ;;\n";
}

}  // namespace

std::string bashCompletion(const std::vector<CompletedCommand>& commands) {
  std::string names;
  std::string values;
  std::string options;
  std::string plain;
  for (const CompletedCommand& command : commands) {
    names += command.name + " ";
    values += valueRows(command);
    options += optionRow(command);
    plain += plainRow(command);
  }
  return head + std::string("  if [ \"$COMP_CWORD\" -eq 1 ]; then\n    _tpn_words '") + names +
         "--help --version'\n    return\n  fi\n  case \"$command $before\" in\n" + values +
         "  esac\n  if [[ $word == -* ]]; then\n    case $command in\n" + options +
         "    esac\n  else\n    case $command in\n" + plain +
         "    esac\n  fi\n}\ncomplete -o filenames -F _tpn tpn\n";
}

}  // namespace tpn
