// The little languages inside a campaign file.

#include <charconv>
#include <string_view>

#include "workbench/campaign/campaign.hpp"

namespace tpn {

namespace {

constexpr std::int64_t mostValues = 1'000'000;

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::optional<std::int64_t> numberOf(std::string_view text) {
  text = trimmed(text);
  std::int64_t value = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (failure != std::errc() || end != text.data() + text.size() || value < 0) return std::nullopt;
  return value;
}

// What stands before and behind the first `separator`.
struct Halves {
  std::string_view before;
  std::optional<std::string_view> behind;
};
Halves cut(std::string_view text, std::string_view separator) {
  const std::size_t at = text.find(separator);
  if (at == std::string_view::npos) return {text, std::nullopt};
  return {text.substr(0, at), text.substr(at + separator.size())};
}

}  // namespace

std::optional<std::vector<std::int64_t>> readRange(const std::string& text) {
  const Halves step = cut(text, " step ");
  const Halves ends = cut(step.before, "..");
  const auto first = numberOf(ends.before);
  const auto last = ends.behind ? numberOf(*ends.behind) : first;
  const auto by = step.behind ? numberOf(*step.behind) : 1;
  if (!first || !last || !by || *by < 1 || *last < *first || (step.behind && !ends.behind))
    return std::nullopt;
  if ((*last - *first) / *by >= mostValues) return std::nullopt;
  std::vector<std::int64_t> values;
  for (std::int64_t value = *first;; value += *by) {
    values.push_back(value);
    if (*last - value < *by) return values;
  }
}

std::optional<Sweep> readSweep(const std::string& text) {
  constexpr std::string_view keyword = "transition ";
  const std::string_view all = trimmed(text);
  if (!all.starts_with(keyword)) return std::nullopt;
  // A name may hold a colon: what follows the last one is the bound.
  const std::size_t colon = all.rfind(':');
  if (colon == std::string_view::npos) return std::nullopt;
  Sweep sweep;
  sweep.transition = trimmed(all.substr(keyword.size(), colon - keyword.size()));
  const Halves rest = cut(trimmed(all.substr(colon + 1)), " ");
  if (!rest.behind || (rest.before != "earliest" && rest.before != "latest")) return std::nullopt;
  sweep.latest = rest.before == "latest";
  auto values = readRange(std::string(*rest.behind));
  if (!values || sweep.transition.empty()) return std::nullopt;
  sweep.values = std::move(*values);
  return sweep;
}

}  // namespace tpn
