// A child process that runs some code of this program, and may become another one.

#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

namespace tpn {

class Child {
 public:
  // Runs `body` in a child process and exits with what it returns. Standard input and output are
  // /dev/null there, standard error goes to notes(). What `body` throws is the last line of the
  // notes, and the exit status is 1.
  explicit Child(const std::function<int()>& body);

  // Ends the child, and whatever it started, if it still runs.
  ~Child();
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  bool running();  // false once it has come to an end

  // After that:
  int exitStatus() const { return exitStatus_; }  // -1 where a signal ended it
  int signal() const { return signal_; }          // 0 where none did
  std::string lastNote() const;                   // the last line of the notes

 private:
  void collectNotes();

  pid_t pid_ = -1;
  int notesFrom_ = -1;
  std::string notes_;
  int exitStatus_ = -1;
  int signal_ = 0;
};

// In a child: becomes the program, its output in the files. Comes back only as an exception; where
// that is the child's end, there is a note.
[[noreturn]] void become(const std::vector<std::string>& command, const std::string& outFile,
                         const std::string& errFile);

}  // namespace tpn
