#include "workbench/base/files.hpp"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>

namespace tpn {

std::string readFile(const std::string& name) {
  std::ifstream in;
  std::error_code ignored;
  if (!std::filesystem::is_directory(name, ignored)) in.open(name, std::ios::binary);
  if (!in.is_open()) throw std::runtime_error(name + ": cannot be opened");
  std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (in.bad()) throw std::runtime_error(name + ": cannot be read");
  return text;
}

void writeFile(const std::string& name, const std::string& text) {
  if (name == "-") {
    std::cout << text << std::flush;
    if (!std::cout) throw std::runtime_error("standard output: cannot be written");
    return;
  }
  std::ofstream out(name, std::ios::binary);
  if (!out.is_open()) throw std::runtime_error(name + ": cannot be opened for writing");
  out << text;
  out.close();
  if (!out) throw std::runtime_error(name + ": cannot be written");
}

std::string inputName(const std::string& name) {
  std::error_code ignored;
  if (std::filesystem::is_regular_file(name, ignored)) return name;
  const std::string longer = name + ".tpn";
  return std::filesystem::exists(longer, ignored) ? longer : name;
}

}  // namespace tpn
