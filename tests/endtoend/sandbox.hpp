// A directory of its own for one test, and programs run in it.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

class Sandbox {
 public:
  Sandbox();  // a new directory below the one for temporary files
  ~Sandbox();
  Sandbox(const Sandbox&) = delete;
  Sandbox& operator=(const Sandbox&) = delete;

  std::filesystem::path path(const std::string& file) const { return directory_ / file; }
  void write(const std::string& file, const std::string& text) const;
  std::string read(const std::string& file) const;  // throws where there is no such file

  // Runs a program, found on the PATH where it has no directory, to its end; standard output goes
  // to the file "stdout", standard error to "stderr". Returns the exit status. Throws where the
  // program cannot be started or dies of a signal.
  int run(const std::vector<std::string>& command) const;

 private:
  std::filesystem::path directory_;
};
