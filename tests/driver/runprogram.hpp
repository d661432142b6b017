// The program seen from outside: a folder of its own for every run, the two streams and the end it
// came to.

#pragma once

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

inline std::string contents(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

struct Outcome {
  int status = -1;           // exit status; -1 where it did not exit
  int signal = 0;            // the signal that ended it; 0 where none did
  bool timedOut = false;     // it was still running when its time was over, and was ended
  double processorTime = 0;  // seconds, what it called included
  std::string out;
  std::string err;
};

struct Bounds {
  std::chrono::milliseconds time = std::chrono::minutes(5);
  rlim_t addressSpace = RLIM_INFINITY;  // bytes
};

// A fresh folder, removed with the object. The streams of a run are kept beside it, so that the
// folder holds what the program wrote and nothing else.
class Workplace {
 public:
  Workplace() {
    std::string path = (std::filesystem::temp_directory_path() / "zervan-run-XXXXXX").string();
    if (mkdtemp(path.data()) == nullptr) throw std::runtime_error("no folder " + path);
    root_ = path;
    std::filesystem::create_directory(folder());
  }
  ~Workplace() {
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }
  Workplace(const Workplace&) = delete;
  Workplace& operator=(const Workplace&) = delete;

  std::filesystem::path folder() const { return root_ / "work"; }

  void write(const std::string& name, const std::string& text) const {
    std::ofstream(folder() / name, std::ios::binary) << text;
  }
  std::string read(const std::string& name) const { return contents(folder() / name); }
  void makeFolder(const std::string& name) const {
    std::filesystem::create_directory(folder() / name);
  }

  // The names of everything in the folder.
  std::set<std::string> files() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder()))
      names.insert(entry.path().filename().string());
    return names;
  }

  Outcome run(const std::string& program, const std::vector<std::string>& arguments,
              const Bounds& bounds = {}) const {
    std::vector<char*> argv{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments)
      argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    const std::string out = (root_ / "out").string();
    const std::string err = (root_ / "err").string();
    const std::string place = folder().string();

    const pid_t child = fork();
    if (child == 0) become(argv, place, out, err, bounds);
    Outcome outcome = waitFor(child, bounds.time);
    outcome.out = contents(out);
    outcome.err = contents(err);
    return outcome;
  }

  Outcome zervan(const std::vector<std::string>& arguments, const Bounds& bounds = {}) const {
    return run(ZERVAN_BINARY, arguments, bounds);
  }

 private:
  [[noreturn]] static void become(const std::vector<char*>& argv, const std::string& place,
                                  const std::string& out, const std::string& err,
                                  const Bounds& bounds) {
    const int created = O_WRONLY | O_CREAT | O_TRUNC;
    const rlimit noCore{0, 0};
    const rlimit memory{bounds.addressSpace, bounds.addressSpace};
    const bool ready = chdir(place.c_str()) == 0 &&
                       dup2(open(out.c_str(), created, 0600), 1) == 1 &&
                       dup2(open(err.c_str(), created, 0600), 2) == 2 &&
                       setrlimit(RLIMIT_CORE, &noCore) == 0 && setrlimit(RLIMIT_AS, &memory) == 0;
    if (ready) execvp(argv[0], argv.data());
    _exit(127);
  }

  static double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  }

  static Outcome waitFor(pid_t child, std::chrono::milliseconds time) {
    if (child < 0) throw std::runtime_error("cannot fork");
    const auto over = std::chrono::steady_clock::now() + time;
    Outcome outcome;
    int state = 0;
    rusage used{};
    while (wait4(child, &state, WNOHANG, &used) == 0) {
      if (std::chrono::steady_clock::now() >= over) {
        outcome.timedOut = true;
        kill(child, SIGKILL);
        waitpid(child, &state, 0);
        return outcome;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    outcome.processorTime = seconds(used.ru_utime) + seconds(used.ru_stime);
    if (WIFEXITED(state)) outcome.status = WEXITSTATUS(state);
    if (WIFSIGNALED(state)) outcome.signal = WTERMSIG(state);
    return outcome;
  }

  std::filesystem::path root_;
};
