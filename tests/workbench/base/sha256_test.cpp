// Digests against those that sha256sum prints.

#include "workbench/base/sha256.hpp"

#include <gtest/gtest.h>

#include <string>

namespace tpn {
namespace {

TEST(Sha256, IsThatOfTheText) {
  EXPECT_EQ(fingerprint(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(fingerprint("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(fingerprint(std::string("\0\xff\n", 3)),
            "712450d3c4a79eea9509e75dc1dacdeff58034df538536cfae2da882bd8a0c50");
  EXPECT_EQ(fingerprint(std::string(1000, 'a')),
            "41edece42d63e8d9bf515a9ba6932e1c20cbc9f5a5d134645adb5db1b9737ea3");
}

}  // namespace
}  // namespace tpn
