// Digests against those that sha256sum prints.

#include "workbench/base/sha256.hpp"

#include <gtest/gtest.h>

#include <string>

namespace tpn {
namespace {

std::string digits(std::string_view text) {
  std::string result;
  for (const std::uint8_t byte : sha256(text)) {
    result += "0123456789abcdef"[byte / 16];
    result += "0123456789abcdef"[byte % 16];
  }
  return result;
}

TEST(Sha256, IsThatOfTheText) {
  EXPECT_EQ(digits(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(digits("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(digits(std::string("\0\xff\n", 3)),
            "712450d3c4a79eea9509e75dc1dacdeff58034df538536cfae2da882bd8a0c50");
  EXPECT_EQ(digits(std::string(1000, 'a')),
            "41edece42d63e8d9bf515a9ba6932e1c20cbc9f5a5d134645adb5db1b9737ea3");
}

}  // namespace
}  // namespace tpn
