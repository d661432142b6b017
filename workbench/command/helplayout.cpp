#include "workbench/command/helplayout.hpp"

#include <algorithm>
#include <set>
#include <sstream>

namespace tpn {

namespace {

constexpr std::size_t lineLength = 80;
constexpr std::size_t rightColumn = 25;

// "not with --solver, --keep"; in the order of their names, for the library's is that of addresses.
std::string listed(const std::string& before, const std::set<CLI::Option*>& options) {
  std::set<std::string> names;
  for (const CLI::Option* option : options) names.insert(option->get_name());
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? before : ", ") + name;
  return text;
}

// What the library knows of an option and its text does not say.
std::string conditions(const CLI::Option& option) {
  std::string text;
  const auto add = [&](const std::string& what) {
    if (!what.empty()) text += (text.empty() ? " (" : "; ") + what;
  };
  if (option.get_required()) add("required");
  add(option.get_default_str());
  add(listed("with ", option.get_needs()));
  add(listed("not with ", option.get_excludes()));
  return text.empty() ? "" : text + ")";
}

std::string withBlanks(std::string names) {
  const std::size_t comma = names.find(',');
  return comma == std::string::npos ? names : names.replace(comma, 1, ", ");
}

// A positional is known by its name, or where it takes several words, by what these are.
std::string positionalName(const CLI::Option& option) {
  return option.get_expected_max() > 1 ? option.get_type_name() : option.get_name(true, false);
}

}  // namespace

std::string helpRow(const std::string& left, const std::string& right) {
  std::string text = "  " + left;
  std::size_t used = text.size();
  const auto nextLine = [&] {
    text += "\n" + std::string(rightColumn, ' ');
    used = rightColumn;
  };
  if (used + 2 > rightColumn) nextLine();
  text.append(rightColumn - used, ' ');
  used = rightColumn;
  std::istringstream words(right);
  for (std::string word; words >> word;) {
    if (used > rightColumn && used + 1 + word.size() > lineLength) nextLine();
    if (used > rightColumn) word.insert(0, " ");
    text += word;
    used += word.size();
  }
  return text + "\n";
}

// Without the empty lines that the library leaves at the end.
std::string HelpLayout::make_help(const CLI::App* app, std::string name,
                                  CLI::AppFormatMode mode) const {
  std::string text = Formatter::make_help(app, std::move(name), mode);
  while (text.ends_with("\n\n")) text.pop_back();
  return text;
}

// What every command has comes last.
std::string HelpLayout::make_group(std::string group, bool isPositional,
                                   std::vector<const CLI::Option*> options) const {
  std::stable_partition(options.begin(), options.end(), [](const CLI::Option* option) {
    return !option->check_lname("help") && !option->check_lname("version");
  });
  return Formatter::make_group(std::move(group), isPositional, std::move(options));
}

std::string HelpLayout::make_option(const CLI::Option* option, bool isPositional) const {
  if (isPositional) return helpRow(positionalName(*option), option->get_description());
  std::string left = withBlanks(option->get_name(false, true));
  if (option->get_type_size() != 0) left += " " + option->get_type_name();
  return helpRow(left, option->get_description() + conditions(*option));
}

std::string HelpLayout::make_option_usage(const CLI::Option* option) const {
  const std::string name = positionalName(*option);
  return option->get_required() ? name : "[" + name + "]";
}

std::string HelpLayout::make_subcommand(const CLI::App* subcommand) const {
  return helpRow(subcommand->get_name(), subcommand->get_description());
}

}  // namespace tpn
