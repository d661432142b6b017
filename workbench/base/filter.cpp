#include "workbench/base/filter.hpp"

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <stdexcept>
#include <thread>

#include "workbench/base/child.hpp"
#include "workbench/base/files.hpp"

namespace tpn {

namespace {

[[noreturn]] void filterFailed(const std::string& what) {
  throw std::runtime_error(what + ": " + std::strerror(errno));
}

// A file in memory, without a name.
class Nameless {
 public:
  explicit Nameless(const char* use) : descriptor_(memfd_create(use, MFD_CLOEXEC)) {
    if (descriptor_ < 0) filterFailed(std::string("no file for ") + use);
  }
  ~Nameless() { close(descriptor_); }
  Nameless(const Nameless&) = delete;
  Nameless& operator=(const Nameless&) = delete;

  int descriptor() const { return descriptor_; }
  void rewind() const {
    if (lseek(descriptor_, 0, SEEK_SET) != 0) filterFailed("a file in memory");
  }

 private:
  int descriptor_;
};

struct Streams {
  Nameless in{"input"};
  Nameless out{"output"};
  Nameless err{"complaints"};
};

[[noreturn]] void exec(std::vector<std::string> command, const Streams& streams) {
  std::vector<char*> arguments;
  for (std::string& word : command) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const bool ready = dup2(streams.in.descriptor(), STDIN_FILENO) >= 0 &&
                     dup2(streams.out.descriptor(), STDOUT_FILENO) >= 0 &&
                     dup2(streams.err.descriptor(), STDERR_FILENO) >= 0;
  if (ready) execvp(arguments[0], arguments.data());
  filterFailed("cannot be run");
}

std::string firstLine(const std::string& text) { return text.substr(0, text.find('\n')); }

std::string why(const Child& child, const std::string& complaints) {
  if (child.signal() != 0) return std::string("ended by a signal: ") + strsignal(child.signal());
  if (!child.lastNote().empty()) return child.lastNote();
  if (!complaints.empty()) return firstLine(complaints);
  return "exit status " + std::to_string(child.exitStatus());
}

}  // namespace

std::string filtered(const std::vector<std::string>& command, const std::string& input) {
  const Streams streams;
  writeAll(streams.in.descriptor(), input, command[0] + "'s input");
  streams.in.rewind();
  Child child([&]() -> int { exec(command, streams); });
  while (child.running()) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  if (child.exitStatus() != 0) {
    streams.err.rewind();
    const std::string complaints = readAll(streams.err.descriptor(), "complaints", largestInput);
    throw std::runtime_error(command[0] + ": " + why(child, complaints));
  }
  streams.out.rewind();
  return readAll(streams.out.descriptor(), command[0] + "'s output");
}

}  // namespace tpn
