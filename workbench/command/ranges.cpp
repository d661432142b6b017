#include "workbench/command/ranges.hpp"

#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <optional>

namespace tpn {

namespace {

std::optional<std::uint64_t> whole(const std::string& text) {
  std::uint64_t value = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (failure != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

// Not a number is not greater than 0 either.
bool isTime(const std::string& text) {
  char* end = nullptr;
  const double value = std::strtod(text.c_str(), &end);
  return !text.empty() && end == text.c_str() + text.size() && value > 0;
}

}  // namespace

CLI::Validator wholeNumber(std::uint64_t least, std::uint64_t most) {
  return {[least, most](const std::string& text) -> std::string {
            const std::optional<std::uint64_t> value = whole(text);
            if (value && *value >= least && *value <= most) return "";
            return text + " is no whole number from " + std::to_string(least) + " to " +
                   std::to_string(most);
          },
          ""};
}

CLI::Validator seconds() {
  return {[](const std::string& text) {
            return isTime(text) ? "" : text + " is no number of seconds greater than 0";
          },
          ""};
}

std::string alternatives(const std::vector<std::string>& names) {
  std::string all;
  for (const std::string& name : names) all += (all.empty() ? "" : "|") + name;
  return all;
}

CLI::Validator oneOf(const std::vector<std::string>& names) {
  return {[names](const std::string& text) -> std::string {
            std::string all;
            for (const std::string& name : names) {
              if (name == text) return "";
              all += (all.empty() ? "" : ", ") + name;
            }
            return text + " is none of " + all;
          },
          ""};
}

CLI::Validator numberOf(const std::vector<std::pair<std::string, int>>& names) {
  std::vector<std::string> known;
  known.reserve(names.size());
  for (const auto& row : names) known.push_back(row.first);
  const std::function<std::string(std::string&)> exchange = [=](std::string& text) {
    std::string complaint = oneOf(known)(text);
    for (const auto& [name, number] : names)
      if (name == text) {
        text = std::to_string(number);
        break;
      }
    return complaint;
  };
  return CLI::Validator(exchange, "");
}

CLI::Validator notEmpty() {
  return {[](const std::string& text) { return text.empty() ? "the value is empty" : ""; }, ""};
}

}  // namespace tpn
