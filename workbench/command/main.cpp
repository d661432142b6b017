// tpn: what the command line asks for, and how the program ends.

#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <exception>
#include <new>
#include <sstream>
#include <string>

#include "workbench/base/files.hpp"
#include "workbench/base/printable.hpp"
#include "workbench/command/commandline.hpp"
#include "workbench/command/complain.hpp"
#include "workbench/command/version.hpp"

namespace {

using namespace tpn;

constexpr const char* noMemory = "tpn: this needs more memory than there is\n";

// The command line's library makes its validators before main, where nothing catches what they
// throw.
[[gnu::constructor(101)]] void watchMemoryBeforeMain() {
  std::set_new_handler([] {
    const ssize_t ignored = write(STDERR_FILENO, noMemory, std::strlen(noMemory));
    (void)ignored;
    _exit(failed);
  });
}

// Help and the version go to standard output; what makes no sense is told in one line, which may
// quote anything that was given.
int told(const CommandLine& line, const CLI::ParseError& e) {
  if (e.get_exit_code() != 0) {
    complain(line.complaint(e));
    return misused;
  }
  std::ostringstream out;
  std::ostringstream err;
  line.app().exit(e, out, err);
  writeFile("-", printableLines(out.str()));
  return done;
}

int command(int argc, char** argv) {
  CommandLine line(std::string("tpn ") + versionText);
  try {
    return line.parsed(argc, argv)();
  } catch (const CLI::ParseError& e) {
    return told(line, e);
  }
}

// For the last exception: the line itself may not fit.
void tell(const std::exception& e) {
  try {
    complain(e.what());
  } catch (const std::bad_alloc&) {
    std::fputs("tpn: what went wrong does not fit into memory\n", stderr);
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::set_new_handler(nullptr);
  try {
    return command(argc, argv);
  } catch (const std::bad_alloc&) {
    std::fputs(noMemory, stderr);
  } catch (const std::exception& e) {
    tell(e);
  }
  return failed;
}
