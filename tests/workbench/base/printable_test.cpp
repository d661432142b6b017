// What reaches a terminal: nothing that it obeys.

#include "workbench/base/printable.hpp"

#include <gtest/gtest.h>

namespace tpn {
namespace {

const std::string replaced = "\xef\xbf\xbd";

TEST(Printable, OrdinaryTextStays) {
  EXPECT_EQ(printable("fischer.tpn: 4 processes"), "fischer.tpn: 4 processes");
  EXPECT_EQ(printable("wczytywanie procesu \xc4\x85 \xe2\x88\x9e \xf0\x9f\x95\x90"),
            "wczytywanie procesu \xc4\x85 \xe2\x88\x9e \xf0\x9f\x95\x90");
}

TEST(Printable, EveryControlCharacterIsReplaced) {
  for (int c = 0; c < 0x20; ++c)
    EXPECT_EQ(printable(std::string(1, static_cast<char>(c))), replaced) << c;
  EXPECT_EQ(printable("\x7f"), replaced);
  EXPECT_EQ(printable("\x1b[31mred"), replaced + "[31mred");
}

// As one byte and as two: a terminal may take U+009B for an escape sequence's begin.
TEST(Printable, ControlCharactersBeyondAsciiAreReplaced) {
  for (int c = 0x80; c < 0xa0; ++c) {
    const std::string byte(1, static_cast<char>(c));
    EXPECT_EQ(printable(byte), replaced) << c;
    EXPECT_EQ(printable("\xc2" + byte), replaced) << c;
  }
  EXPECT_EQ(printable("\xc2\xa0"), "\xc2\xa0");
}

TEST(Printable, BytesThatAreNoUtf8AreReplaced) {
  EXPECT_EQ(printable("a\xff\xfe z"), "a" + replaced + replaced + " z");
  EXPECT_EQ(printable("\xc4"), replaced);                                // cut off
  EXPECT_EQ(printable("\xc0\xaf"), replaced + replaced);                 // longer than needed
  EXPECT_EQ(printable("\xed\xa0\x80"), replaced + replaced + replaced);  // a surrogate
}

TEST(Printable, LineEndsStayInLinesOnly) {
  EXPECT_EQ(printable("a\nb\n"), "a" + replaced + "b" + replaced);
  EXPECT_EQ(printableLines("a\nb\r\n"), "a\nb" + replaced + "\n");
}

}  // namespace
}  // namespace tpn
