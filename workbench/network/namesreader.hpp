// The names in a network file: a section behind the "end" that closes it, where zervan does not
// look.
//
//     names
//     process 1 coordinator
//     location 1 0 idle
//     transition 16 vote_yes
//     proposition 11 {committed at last}

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "workbench/base/textlines.hpp"
#include "workbench/network/lintrules.hpp"
#include "workbench/network/network.hpp"

namespace tpn {

// One line of the section, or the word behind a "process" further up.
struct NameLine {
  enum Kind { process, location, transition, proposition } kind = process;
  int number = 0;
  int inner = 0;  // of a location: its number, and `number` is its process's
  std::string name;
  Place at;      // of the line
  Place nameAt;  // of the name
};

bool beginsNames(const Line& line);

// The name in a line "process NAME" that begins the process with this number; nothing where there
// is none, or anything else: a remark.
std::optional<NameLine> processHeading(const Line& line, std::size_t number);

// Adds those that are names: a word that stands behind several processes is a remark.
void addHeadings(const std::vector<NameLine>& headings, std::vector<NameLine>& names);

// Reads a line of the section; nothing where it could not be read, which has been reported.
std::optional<NameLine> readNameLine(const Line& line, Report& report);

// What the lines name, once the network is known: numbers that are not there and names given twice
// are reported.
Names namesOf(const std::vector<NameLine>& lines, const Network& net, Report& report);

}  // namespace tpn
