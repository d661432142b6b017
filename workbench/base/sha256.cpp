#include "workbench/base/sha256.hpp"

#include <openssl/evp.h>

#include <stdexcept>

namespace tpn {

Sha256 sha256(std::string_view text) {
  Sha256 digest{};
  std::size_t length = 0;
  if (EVP_Q_digest(nullptr, "SHA256", nullptr, text.data(), text.size(), digest.data(), &length) !=
          1 ||
      length != digest.size())
    throw std::runtime_error("SHA-256 is not available");
  return digest;
}

}  // namespace tpn
