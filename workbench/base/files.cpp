#include "workbench/base/files.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <utility>

namespace tpn {

namespace {

[[noreturn]] void fail(const std::string& name, const std::string& what,
                       const std::string& between = ": ") {
  const std::string reason = errno == 0 ? "" : std::string(": ") + std::strerror(errno);
  throw std::runtime_error(name + between + what + reason);
}

class Opened {
 public:
  Opened(const std::string& name, int flags)
      : descriptor_(open(name.c_str(), flags | O_CLOEXEC, 0666)) {}
  ~Opened() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;

  explicit operator bool() const { return descriptor_ >= 0; }
  int descriptor() const { return descriptor_; }

  // Some file systems tell only now that something was not written.
  bool closed() { return close(std::exchange(descriptor_, -1)) == 0; }

 private:
  int descriptor_;
};

// Among all machines that share a file system.
std::string thisProcess() {
  std::array<char, 256> host{};
  gethostname(host.data(), host.size() - 1);
  return std::string(host.data()) + "." + std::to_string(getpid());
}

void writeStandardOutput(const std::string& text) {
  const std::string name = "standard output";
  errno = 0;
  std::cout.flush();  // what others have left there
  if (!std::cout) fail(name, "cannot be written");
  writeAll(STDOUT_FILENO, text, name);
}

}  // namespace

std::string readAll(int descriptor, const std::string& name, std::size_t most) {
  std::string text;
  std::array<char, 1U << 16U> block{};
  for (;;) {
    const ssize_t count = read(descriptor, block.data(), block.size());
    if (count == 0) return text;
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) fail(name, "cannot be read");
    if (static_cast<std::size_t>(count) > most - text.size())
      throw std::runtime_error(name + ": holds more than " + std::to_string(most) + " bytes");
    text.append(block.data(), static_cast<std::size_t>(count));
  }
}

void writeAll(int descriptor, const std::string& text, const std::string& name) {
  for (std::size_t done = 0; done < text.size();) {
    const ssize_t count = write(descriptor, text.data() + done, text.size() - done);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) fail(name, "cannot be written");
    done += static_cast<std::size_t>(count);
  }
}

std::string readFile(const std::string& name, std::size_t most) {
  const Opened file(name, O_RDONLY);
  if (!file) fail(name, "cannot be opened");
  return readAll(file.descriptor(), name, most);
}

std::string readInput(const std::string& name) {
  const std::string chosen = inputName(name);
  const Opened file(chosen, O_RDONLY);
  const bool bothTried = chosen == name && errno == ENOENT;
  if (!file && bothTried) fail("neither " + name + " nor " + name + ".tpn", "can be opened", " ");
  if (!file) fail(chosen, "cannot be opened");
  return readAll(file.descriptor(), chosen, largestInput);
}

void writeFile(const std::string& name, const std::string& text) {
  if (name == "-") {
    writeStandardOutput(text);
    return;
  }
  Opened file(name, O_WRONLY | O_CREAT | O_TRUNC);
  if (!file) fail(name, "cannot be opened for writing");
  writeAll(file.descriptor(), text, name);
  if (!file.closed()) fail(name, "cannot be written");
}

void replaceFile(const std::string& name, const std::string& text) {
  const std::string beside = name + "." + thisProcess();
  try {
    Opened file(beside, O_WRONLY | O_CREAT | O_TRUNC);
    if (!file) fail(beside, "cannot be opened for writing");
    writeAll(file.descriptor(), text, beside);
    if (fsync(file.descriptor()) != 0 || !file.closed()) fail(beside, "cannot be written");
    if (std::rename(beside.c_str(), name.c_str()) != 0) fail(name, "cannot be replaced");
  } catch (...) {
    unlink(beside.c_str());
    throw;
  }
}

std::string inputName(const std::string& name) {
  std::error_code ignored;
  if (std::filesystem::is_regular_file(name, ignored)) return name;
  for (const char* suffix : {".tpn", ".net", ".pnml"})
    if (std::filesystem::exists(name + suffix, ignored)) return name + suffix;
  return name;
}

}  // namespace tpn
