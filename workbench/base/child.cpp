#include "workbench/base/child.hpp"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <exception>
#include <iostream>
#include <stdexcept>

namespace tpn {

namespace {

[[noreturn]] void failedCall(const std::string& what) {
  throw std::runtime_error(what + ": " + std::strerror(errno));
}

void redirect(const std::string& file, int flags, int descriptor) {
  const int opened = open(file.c_str(), flags | O_CLOEXEC, 0666);
  if (opened < 0 || dup2(opened, descriptor) < 0) failedCall(file);
  close(opened);
}

// A group of its own, so that an interrupt from the terminal goes to the parent alone and the
// parent's kill reaches all of it; and no child outlives its parent.
void prepare(int notes, pid_t parent) {
  setpgid(0, 0);
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(1);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, SIG_DFL);
  redirect("/dev/null", O_RDONLY, STDIN_FILENO);
  redirect("/dev/null", O_WRONLY, STDOUT_FILENO);
  if (dup2(notes, STDERR_FILENO) < 0) failedCall("standard error");
}

[[noreturn]] void live(int notes, pid_t parent, const std::function<int()>& body) {
  int status = 1;
  try {
    prepare(notes, parent);
    status = body();
  } catch (const std::exception& e) {
    const std::string line = "\n" + std::string(e.what()) + "\n";
    if (write(notes, line.data(), line.size()) < 0) _exit(2);
  }
  _exit(status);
}

}  // namespace

Child::Child(const std::function<int()>& body) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) failedCall("pipe");
  std::cerr.flush();
  const pid_t parent = getpid();
  pid_ = fork();
  if (pid_ == 0) live(ends[1], parent, body);
  close(ends[1]);
  notesFrom_ = ends[0];
  if (pid_ < 0) {
    close(notesFrom_);
    failedCall("no child process");
  }
  setpgid(pid_, pid_);  // here and there: whoever comes first
}

Child::~Child() {
  if (pid_ > 0) {
    kill(-pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
  close(notesFrom_);
}

bool Child::running() {
  if (pid_ < 0) return false;
  // Its number stays taken until it is waited for: what it left behind is ended before that.
  siginfo_t info{};
  const auto id = static_cast<id_t>(pid_);
  if (waitid(P_PID, id, &info, WEXITED | WNOHANG | WNOWAIT) != 0) failedCall("child process");
  if (info.si_pid == 0) return true;
  kill(-pid_, SIGKILL);
  int status = 0;
  waitpid(pid_, &status, 0);
  if (WIFEXITED(status)) exitStatus_ = WEXITSTATUS(status);
  if (WIFSIGNALED(status)) signal_ = WTERMSIG(status);
  pid_ = -1;
  collectNotes();
  return false;
}

void Child::collectNotes() {
  std::array<char, 4096> block{};
  fcntl(notesFrom_, F_SETFL, O_NONBLOCK);
  for (ssize_t n = 0; (n = read(notesFrom_, block.data(), block.size())) > 0;)
    notes_.append(block.data(), static_cast<std::size_t>(n));
}

std::string Child::lastNote() const {
  const std::size_t last = notes_.find_last_not_of('\n');
  if (last == std::string::npos) return "";
  const std::size_t before = notes_.find_last_of('\n', last);
  const std::size_t first = before == std::string::npos ? 0 : before + 1;
  return notes_.substr(first, last - first + 1);
}

void become(const std::vector<std::string>& command, const std::string& outFile,
            const std::string& errFile) {
  std::vector<std::string> words = command;
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  redirect(outFile, O_WRONLY | O_CREAT | O_TRUNC, STDOUT_FILENO);
  redirect(errFile, O_WRONLY | O_CREAT | O_TRUNC, STDERR_FILENO);
  execv(arguments[0], arguments.data());
  failedCall("cannot run " + command[0]);
}

}  // namespace tpn
