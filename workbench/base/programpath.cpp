#include "workbench/base/programpath.hpp"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace tpn {

namespace {

bool isProgram(const std::string& path) {
  std::error_code none;
  return std::filesystem::is_regular_file(path, none) && access(path.c_str(), X_OK) == 0;
}

}  // namespace

std::string programPath(const std::string& nameOrPath) {
  if (nameOrPath.find('/') != std::string::npos) return isProgram(nameOrPath) ? nameOrPath : "";
  const char* const path = std::getenv("PATH");
  std::istringstream folders(path == nullptr ? "" : path);
  for (std::string candidate; std::getline(folders, candidate, ':');) {
    candidate.append("/").append(nameOrPath);
    if (isProgram(candidate)) return candidate;
  }
  return "";
}

}  // namespace tpn
