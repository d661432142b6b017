#include "workbench/command/ranges.hpp"

#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>

namespace tpn {

namespace {

bool isWhole(const std::string& text) {
  std::uint64_t value = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
  return failure == std::errc() && end == text.data() + text.size();
}

// Not a number is not greater than 0 either.
bool isTime(const std::string& text) {
  char* end = nullptr;
  const double value = std::strtod(text.c_str(), &end);
  return !text.empty() && end == text.c_str() + text.size() && value > 0;
}

}  // namespace

CLI::Validator wholeNumber() {
  return {[](const std::string& text) {
            const std::string range =
                "0 to " + std::to_string(std::numeric_limits<std::uint64_t>::max());
            return isWhole(text) ? "" : text + " is no whole number from " + range;
          },
          ""};
}

CLI::Validator seconds() {
  return {[](const std::string& text) {
            return isTime(text) ? "" : text + " is no number of seconds greater than 0";
          },
          ""};
}

}  // namespace tpn
