#include "workbench/views/page/policy.hpp"

#include <string_view>

#include "workbench/base/sha256.hpp"

namespace tpn {

namespace {

// Three bytes to four digits; what is missing at the end is told by '='.
std::string base64(const Sha256& bytes) {
  constexpr std::string_view digits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    unsigned group = 0;
    for (std::size_t k = i; k < i + 3; ++k)
      group = group << 8U | (k < bytes.size() ? bytes[k] : 0U);
    for (std::size_t k = 0; k < 4; ++k)
      text += i + k <= bytes.size() ? digits[group >> (18 - 6 * k) & 63U] : '=';
  }
  return text;
}

std::string source(const std::string& text) { return "'sha256-" + base64(sha256(text)) + "'"; }

}  // namespace

std::string contentPolicy(const std::string& style, const std::string& script) {
  return "default-src 'none'; style-src " + source(style) + "; script-src " +
         (script.empty() ? "'none'" : source(script)) + "; base-uri 'none'; form-action 'none'";
}

}  // namespace tpn
