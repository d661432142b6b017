#include "tests/endtoend/sandbox.hpp"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace {

constexpr int notStarted = 127;  // what a shell says, too

void redirect(int descriptor, const char* file) {
  const int opened = open(file, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (opened < 0 || dup2(opened, descriptor) < 0) _exit(notStarted);
}

// In the child: becomes the program.
[[noreturn]] void become(const char* directory, char* const* arguments) {
  if (chdir(directory) != 0) _exit(notStarted);
  redirect(STDOUT_FILENO, "stdout");
  redirect(STDERR_FILENO, "stderr");
  execvp(arguments[0], arguments);
  _exit(notStarted);
}

}  // namespace

Sandbox::Sandbox() {
  std::string name = (std::filesystem::temp_directory_path() / "zervan-endtoend-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no directory " + name);
  directory_ = name;
}

Sandbox::~Sandbox() {
  std::error_code ignored;
  std::filesystem::remove_all(directory_, ignored);
}

void Sandbox::write(const std::string& file, const std::string& text) const {
  std::ofstream out(path(file));
  out << text;
  out.close();
  if (!out) throw std::runtime_error("cannot write " + file);
}

std::string Sandbox::read(const std::string& file) const {
  std::ifstream in(path(file));
  if (!in) throw std::runtime_error("no file " + file);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

int Sandbox::run(const std::vector<std::string>& command) const {
  std::vector<std::string> words = command;
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);

  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("cannot fork");
  if (child == 0) become(directory_.c_str(), arguments.data());
  int status = 0;
  if (waitpid(child, &status, 0) != child) throw std::runtime_error("lost " + command[0]);
  if (!WIFEXITED(status)) throw std::runtime_error(command[0] + " died of a signal");
  if (WEXITSTATUS(status) == notStarted) throw std::runtime_error("cannot start " + command[0]);
  return WEXITSTATUS(status);
}
