// The commands of a walk, a line each; `help` prints them:
//   NUMBER [DELAY]              time passes, then this transition fires; the earliest delay if none
//                               is given; "2", "0.5", "7/3"
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

// All after the first word: names of files may have blanks, and a #.
std::string fileIn(const std::string& line);

std::string helpText();

// The files that a script's commands write views to, in their order.
std::vector<std::string> filesWritten(std::istream& script);

}  // namespace tpn
