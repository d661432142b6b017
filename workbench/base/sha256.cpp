#include "workbench/base/sha256.hpp"

#include <sha2.h>

namespace tpn {

Sha256 sha256(std::string_view text) {
  SHA2_CTX context;
  SHA256Init(&context);
  SHA256Update(&context, reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
  Sha256 digest{};
  SHA256Final(digest.data(), &context);
  return digest;
}

std::string fingerprint(std::string_view text) {
  std::string hexadecimal;
  for (const unsigned char byte : sha256(text)) {
    hexadecimal += "0123456789abcdef"[byte >> 4U];
    hexadecimal += "0123456789abcdef"[byte & 15U];
  }
  return hexadecimal;
}

}  // namespace tpn
