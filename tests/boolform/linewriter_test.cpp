// The line writer, seen from the stream it hands its blocks to.

#include "boolform/linewriter.hpp"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <memory>
#include <ostream>
#include <random>
#include <streambuf>
#include <string>
#include <vector>

#include "tests/boolform/assertion.hpp"

namespace {

using Writer = LineWriter<std::ostream>;

// Keeps every block that is handed over; single characters would arrive as blocks of one.
class Recorder : public std::streambuf {
 public:
  std::vector<std::string> blocks;

  std::string all() const {
    std::string text;
    for (const std::string& block : blocks) text += block;
    return text;
  }

 protected:
  std::streamsize xsputn(const char* s, std::streamsize n) override {
    if (n > 0) blocks.emplace_back(s, static_cast<std::size_t>(n));
    return n;
  }
  int_type overflow(int_type c) override {
    blocks.emplace_back(1, traits_type::to_char_type(c));
    return c;
  }
};

// Lines of `length` characters and their end; returns the text they make.
std::string writeLines(Writer& lines, int count, std::size_t length) {
  std::string expected;
  for (int i = 0; i < count; ++i) {
    const std::string line(length, static_cast<char>('a' + i % 26));
    lines.text(line);
    lines.endLine();
    expected += line + "\n";
  }
  return expected;
}

class LineWriterTest : public testing::Test {
 protected:
  Recorder recorder;
  std::ostream out{&recorder};
};
using LineWriterDeathTest = LineWriterTest;

TEST_F(LineWriterTest, WritesTextAndNumbers) {
  {
    LineWriter lines(out);
    lines.text("p ");
    lines.number(-17);
    lines.text(" ");
    lines.number(0);
    lines.endLine();
  }
  EXPECT_EQ(recorder.all(), "p -17 0\n");
}

TEST_F(LineWriterTest, WritesTheExtremeNumbers) {
  {
    LineWriter lines(out);
    lines.number(std::numeric_limits<long long>::min());
    lines.endLine();
    lines.number(std::numeric_limits<long long>::max());
    lines.endLine();
  }
  EXPECT_EQ(recorder.all(), "-9223372036854775808\n9223372036854775807\n");
}

TEST_F(LineWriterTest, EmptyLineIsALineEnd) {
  {
    LineWriter lines(out);
    lines.endLine();
    lines.text("");
    lines.endLine();
  }
  EXPECT_EQ(recorder.all(), "\n\n");
}

TEST_F(LineWriterTest, UnusedWriterHandsOverNothing) {
  std::make_unique<Writer>(out).reset();
  EXPECT_TRUE(recorder.blocks.empty());
}

TEST_F(LineWriterTest, ShortTextIsKeptUntilTheEnd) {
  {
    LineWriter lines(out);
    writeLines(lines, 100, 20);
    EXPECT_TRUE(recorder.blocks.empty());
  }
  EXPECT_EQ(recorder.blocks.size(), 1U);
}

// Lines of every length, so that blocks end at every distance from the limit.
TEST_F(LineWriterTest, EveryBlockEndsWithALineEnd) {
  constexpr int bytes = static_cast<int>(Writer::blockSize) * 9 / 4;
  for (std::size_t length = 0; length <= Writer::maxLine; ++length) {
    recorder.blocks.clear();
    std::string expected;
    {
      LineWriter lines(out);
      expected = writeLines(lines, bytes / static_cast<int>(length + 1), length);
    }
    ASSERT_GE(recorder.blocks.size(), 2U);
    for (const std::string& block : recorder.blocks) ASSERT_EQ(block.back(), '\n');
    ASSERT_EQ(recorder.all(), expected) << "length " << length;
  }
}

TEST_F(LineWriterTest, BlocksAreLarge) {
  {
    LineWriter lines(out);
    writeLines(lines, static_cast<int>(Writer::blockSize) / 10, 30);
  }
  ASSERT_GE(recorder.blocks.size(), 2U);
  recorder.blocks.pop_back();
  for (const std::string& block : recorder.blocks) EXPECT_GE(block.size(), Writer::blockSize);
}

TEST_F(LineWriterTest, FailedStreamSwallowsEverything) {
  out.setstate(std::ios::failbit);
  {
    LineWriter lines(out);
    writeLines(lines, 5000, 60);
  }
  EXPECT_TRUE(recorder.blocks.empty());
}

TEST_F(LineWriterTest, LongestTextIsTaken) {
  std::string expected;
  {
    LineWriter lines(out);
    expected = writeLines(lines, 1, Writer::maxLine);
  }
  EXPECT_EQ(recorder.all(), expected);
}

TEST_F(LineWriterDeathTest, LongerTextIsRefused) {
  LineWriter lines(out);
  const std::string tooLong(Writer::maxLine + 1, 'x');
  EXPECT_DEATH(lines.text(tooLong), failedAssertion("s.size() <= maxLine"));
}

// --- Numbers at once ---

std::string numberText(int n) {
  std::array<char, 32> text{};
  return {text.data(), putNumber(text.data(), n)};
}

TEST(PutNumber, AgreesWithTheLibraryOnAllSmallNumbers) {
  for (int n = -120000; n <= 120000; ++n) ASSERT_EQ(numberText(n), std::to_string(n));
}

TEST(PutNumber, AgreesWithTheLibraryAroundEveryPowerOfTen) {
  for (int power = 1; power <= 1000000000 / 10; power *= 10)
    for (const int n : {power * 10 - 1, power * 10, power * 10 + 1, power * 7 + 3})
      for (const int signedN : {n, -n}) EXPECT_EQ(numberText(signedN), std::to_string(signedN));
}

TEST(PutNumber, AgreesWithTheLibraryOnRandomNumbersAndTheExtremes) {
  std::mt19937 random(3);
  for (int i = 0; i < 200000; ++i) {
    const int n = static_cast<int>(random()) >> random() % 31;
    ASSERT_EQ(numberText(n), std::to_string(n));
  }
  for (const int n : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
    EXPECT_EQ(numberText(n), std::to_string(n));
}

TEST_F(LineWriterTest, TakesLinesThatAreFormattedAtOnce) {
  {
    LineWriter lines(out);
    lines.endLine(putNumber(lines.line(), -12));
    lines.text("p ");
    lines.number(3);
    lines.endLine();
    lines.endLine(putNumber(lines.line(), 4));
  }
  EXPECT_EQ(recorder.all(), "-12\np 3\n4\n");
}

}  // namespace
