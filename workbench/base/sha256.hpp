// SHA-256, by the library libmd: small, where OpenSSL's is five megabytes that every start of tpn
// has to link, a third of what a small question takes.

#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tpn {

using Sha256 = std::array<std::uint8_t, 32>;

Sha256 sha256(std::string_view text);
std::string fingerprint(std::string_view text);  // that in 64 hexadecimal digits

}  // namespace tpn
