// A program of the user's PATH as a filter: text goes in, text comes out.
//
// Both are held in files without a name (memfd), and the program runs as a Child: whatever ends us,
// neither a file nor the program stays behind; and no shell reads a word of it.

#pragma once

#include <string>
#include <vector>

namespace tpn {

// What `command` (program and arguments) prints when `input` is its standard input. Throws
// std::runtime_error with one line where it cannot be run or does not exit with 0.
std::string filtered(const std::vector<std::string>& command, const std::string& input);

}  // namespace tpn
