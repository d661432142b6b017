#include "workbench/command/terminallook.hpp"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "workbench/base/textlines.hpp"

namespace tpn {

namespace {

constexpr std::size_t least = 20;  // narrower ones get lines of this width

std::string setTo(const char* variable) {
  const char* const value = std::getenv(variable);
  return value == nullptr ? "" : value;
}

std::size_t widthOfOutput() {
  const std::string columns = setTo("COLUMNS");
  if (isNumber(columns))
    if (const auto wanted = value(columns); wanted && *wanted > 0)
      return static_cast<std::size_t>(*wanted);
  winsize size{};
  const bool known = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : Look{}.width;
}

bool takesColour() {
  return isatty(STDOUT_FILENO) == 1 && setTo("NO_COLOR").empty() && setTo("TERM") != "dumb";
}

}  // namespace

Look lookOnTerminal(bool all) {
  return {.all = all, .width = std::max(widthOfOutput(), least), .colour = takesColour()};
}

}  // namespace tpn
