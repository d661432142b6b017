// Solver programs as shell scripts.

#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/driver/runprogram.hpp"
#include "tests/workbench/base/processes.hpp"
#include "tests/workbench/encoding/checknets.hpp"
#include "tests/workbench/search/explored.hpp"

// A program that answers k = 1 and 2 like CaDiCaL and then does what `script` says; $1 is the file,
// $k the bound.
inline std::string fakeSolver(const Workplace& place, const std::string& script,
                              const std::string& name = "fake") {
  const std::string real = "case $k in 1 | 2) exec cadical -q \"$1\";; esac\n";
  place.write(name, "#!/bin/sh\nk=${1##*/k}; k=${k%.cnf}\n" + real + script + "\n");
  std::string path = place.folder() / name;
  std::filesystem::permissions(path, std::filesystem::perms::owner_all);
  return path;
}
