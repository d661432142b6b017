// What a command costs. Runs it N times, its output thrown away, and prints one line:
//
//     CPU WALL MEMORY     seconds of user and system time, of the command and of all processes it
//                         waited for; seconds on the clock; the largest process in KiB
//
// each the best of the N runs. Exit statuses of solvers and of `tpn check` (10, 20, 30) are
// answers, as 0 is; with any other the command has failed.   usage: cost N COMMAND [ARGUMENT...]

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

struct Cost {
  double cpu;
  double wall;
  long memory;
};

[[noreturn]] void become(char** command) {
  const int nowhere = open("/dev/null", O_WRONLY);
  dup2(nowhere, STDOUT_FILENO);
  dup2(nowhere, STDERR_FILENO);
  execvp(command[0], command);
  _exit(127);
}

double seconds(const timeval& t) {
  return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) / 1e6;
}

bool succeeded(int status) {
  if (!WIFEXITED(status)) return false;
  const int exit = WEXITSTATUS(status);
  return exit == 0 || exit == 10 || exit == 20 || exit == 30;
}

// Ends the process where the command fails.
Cost run(char** command) {
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) become(command);
  int status = -1;
  rusage usage{};
  if (child < 0 || wait4(child, &status, 0, &usage) != child || !succeeded(status)) {
    std::fprintf(stderr, "cost: %s failed\n", command[0]);
    std::exit(1);
  }
  const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
  return {seconds(usage.ru_utime) + seconds(usage.ru_stime), wall.count(), usage.ru_maxrss};
}

}  // namespace

int main(int argc, char** argv) {
  const long times = argc > 2 ? std::strtol(argv[1], nullptr, 10) : 0;
  if (times < 1) {
    std::fputs("usage: cost N COMMAND [ARGUMENT...]\n", stderr);
    return 2;
  }
  Cost best = run(argv + 2);
  for (long i = 1; i < times; ++i) {
    const Cost next = run(argv + 2);
    best.cpu = std::min(best.cpu, next.cpu);
    best.wall = std::min(best.wall, next.wall);
    best.memory = std::min(best.memory, next.memory);
  }
  std::printf("%.6f %.6f %ld\n", best.cpu, best.wall, best.memory);
}
