// completions SHELL: prints the completion of tpn for bash, zsh or fish. Run by the build.

#include <cstring>
#include <iostream>

#include "workbench/command/commandline.hpp"
#include "workbench/command/completion.hpp"

namespace {

struct Shell {
  const char* name;
  std::string (*file)(const std::vector<tpn::CompletedCommand>& commands);
};

constexpr Shell shells[] = {
    {"bash", tpn::bashCompletion}, {"zsh", tpn::zshCompletion}, {"fish", tpn::fishCompletion}};

}  // namespace

int main(int argc, char** argv) {
  const tpn::CommandLine line("");
  for (const Shell& shell : shells) {
    if (argc != 2 || std::strcmp(argv[1], shell.name) != 0) continue;
    std::cout << shell.file(tpn::completedCommands(line.app())) << std::flush;
    return std::cout ? 0 : 1;
  }
  std::cerr << "usage: completions bash|zsh|fish\n";
  return 2;
}
