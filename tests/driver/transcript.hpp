// Transcripts without the figures that differ from run to run.

#pragma once

#include <regex>
#include <sstream>
#include <string>

// Times and memory figures become "#", a line at a time.
inline std::string masked(const std::string& transcript) {
  static const std::regex memory("[0-9]+ bytes memory");
  static const std::regex figure("[0-9.e+-]+");
  const std::string used = "Memory used by ZERVAN : ";
  const std::string time = "Time consumed : ";
  std::string result;
  std::istringstream lines(transcript);
  for (std::string line; std::getline(lines, line);) {
    if (std::regex_match(line, memory)) line = "# bytes memory";
    if (std::regex_match(line, figure)) line = "#";
    if (line.starts_with(used)) line = used + "#";
    if (line.starts_with(time)) line = time + "#";
    result += line + (lines.eof() ? "" : "\n");
  }
  return result;
}

inline const std::string twoNetwork =
    "two processes\ntransitions\n1 0 3\n2 1 2\n3 2 5\nendtran\n"
    "process\n1 0 1\n2 1 0\nvaluation\n0 1\n1 2\nendval\nend\n"
    "process\n2 0 1\n3 1 0\nvaluation\n1 3\nendval\nend\nend\n";

// What it prints while the network and the property are read.
inline const std::string twoRead =
    "# bytes memory\n"
    "wczytywanie procesu\nwczytywanie wartosciowania\n"
    "wczytywanie procesu\nwczytywanie wartosciowania\n"
    "Places: 4\nTransitions: 4\n";

inline const std::string reports = "\n#\nMemory used by ZERVAN : #\n";
