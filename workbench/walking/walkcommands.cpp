#include "workbench/walking/walkcommands.hpp"

#include <algorithm>
#include <istream>
#include <sstream>

#include "workbench/views/views.hpp"

namespace tpn {

namespace {

// Of the views' names and a file.
std::string viewCommands() {
  std::string names;
  for (const RunView& view : runViews())
    names += (names.empty() ? "" : "|") + (view.name + std::string());
  names += " [FILE]";
  names.resize(std::max<std::size_t>(names.size(), 24), ' ');
  return names;
}

}  // namespace

Words commandWords(const std::string& line) {
  std::istringstream in(line.substr(0, line.find('#')));
  Words result;
  for (std::string word; in >> word;) result.push_back(word);
  return result;
}

bool isCommand(const std::string& word) {
  return word == "undo" || word == "show" || word == "help" || word == "quit" ||
         runViewCalled(word) != nullptr;
}

std::string fileIn(const std::string& line) {
  std::istringstream in(line);
  std::string file;
  in >> file;
  file.clear();
  std::getline(in >> std::ws, file);
  return file.substr(0, file.find_last_not_of(" \t\r") + 1);
}

std::string helpText() {
  return "TRANSITION [DELAY]        let DELAY pass, then fire this one, by number or\n"
         "                          name; without, as soon as it can; DELAY is written\n"
         "                          2, 0.5 or 7/3\n"
         "undo [COUNT]              take back the last step, or as many\n"
         "show                      the state and what can fire\n" +
         viewCommands() +
         "  the run so far, here or into a file\n"
         "help                      this\n"
         "quit                      end\n";
}

std::vector<std::string> filesWritten(std::istream& script) {
  std::vector<std::string> files;
  for (std::string line; std::getline(script, line);) {
    const Words command = commandWords(line);
    if (command.empty()) continue;
    if (command.front() == "quit") break;
    if (runViewCalled(command.front()) == nullptr) continue;
    if (const std::string file = fileIn(line); !file.empty()) files.push_back(file);
  }
  return files;
}

}  // namespace tpn
