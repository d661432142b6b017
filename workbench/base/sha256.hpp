// SHA-256, by OpenSSL.

#pragma once

#include <array>
#include <string_view>

namespace tpn {

using Sha256 = std::array<unsigned char, 32>;

Sha256 sha256(std::string_view text);  // throws std::runtime_error where OpenSSL has none

}  // namespace tpn
