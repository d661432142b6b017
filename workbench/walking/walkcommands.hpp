// The commands of a walk, a line each; `help` prints them:
//   TRANSITION [DELAY]          time passes, then this transition, by number or name, fires; the
//                               earliest delay if none is given; "2", "0.5", "7/3"
//   undo [COUNT]                takes the last steps back
//   show                        the state and what can fire
//   VIEW [FILE]                 a view of the run so far: text, json, ... (views.hpp)
//   help, quit
// Empty lines and what follows a # are skipped.

#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace tpn {

using Words = std::vector<std::string>;

Words commandWords(const std::string& line);

// A word that begins a command of its own, and not the name of a transition.
bool isCommand(const std::string& word);

// All after the first word: names of files may have blanks, and a #.
std::string fileIn(const std::string& line);

std::string helpText();

// The files that a script's commands write views to, in their order.
std::vector<std::string> filesWritten(std::istream& script);

}  // namespace tpn
