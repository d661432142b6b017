// Output files: what stands in them, and what is told of them.

#include "boolform/outputfile.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

namespace fs = std::filesystem;

class OutputFileTest : public testing::Test {
 protected:
  OutputFileTest() {
    std::string path = (fs::temp_directory_path() / "output-XXXXXX").string();
    EXPECT_NE(mkdtemp(path.data()), nullptr);
    folder_ = path;
  }
  ~OutputFileTest() override { fs::remove_all(folder_); }

  std::string at(const std::string& name) const { return (folder_ / name).string(); }
  std::string content(const std::string& name) const {
    std::ifstream in(at(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }

 private:
  fs::path folder_;
};

TEST_F(OutputFileTest, HoldsWhatWasWritten) {
  {
    OutputFile file;
    file.open(at("x"));
    file.write("one ", 4);
    file.write("", 0);
    file.write("two", 3);
    EXPECT_TRUE(file.outcome().whole());
    EXPECT_FALSE(file.outcome().cut());
    EXPECT_EQ(file.outcome().file, at("x"));
  }
  EXPECT_EQ(content("x"), "one two");
}

TEST_F(OutputFileTest, ReplacesAnOlderFile) {
  writeFile(at("x"), "a long text");
  EXPECT_TRUE(writeFile(at("x"), "short").whole());
  EXPECT_EQ(content("x"), "short");
}

TEST_F(OutputFileTest, AppendsToAnOlderFile) {
  EXPECT_TRUE(writeFile(at("x"), "one\n", OutputFile::append).whole());
  EXPECT_TRUE(writeFile(at("x"), "two\n", OutputFile::append).whole());
  EXPECT_EQ(content("x"), "one\ntwo\n");
}

TEST_F(OutputFileTest, ThatCannotBeOpenedTellsWhy) {
  const Written written = writeFile(at("missing/x"), "text");
  EXPECT_FALSE(written.opened);
  EXPECT_FALSE(written.whole());
  EXPECT_FALSE(written.cut());
  EXPECT_EQ(written.failure, std::errc::no_such_file_or_directory);
}

TEST_F(OutputFileTest, ThatCannotBeWrittenTellsWhy) {
  const Written written = writeFile("/dev/full", "text");
  EXPECT_TRUE(written.opened);
  EXPECT_FALSE(written.whole());
  EXPECT_TRUE(written.cut());
  EXPECT_EQ(written.failure, std::errc::no_space_on_device);
}

TEST_F(OutputFileTest, FirstFailureEndsTheWriting) {
  OutputFile file;
  file.open("/dev/full");
  file.write("text", 4);
  file.write("text", 4);
  EXPECT_EQ(file.outcome().failure, std::errc::no_space_on_device);
}

TEST_F(OutputFileTest, NothingToWriteIsNoFailure) {
  EXPECT_TRUE(writeFile("/dev/full", "").whole());
  EXPECT_TRUE(writeFile(at("x"), "").whole());
  EXPECT_TRUE(fs::exists(at("x")));
}

TEST_F(OutputFileTest, NeverOpenedIsNotWhole) {
  OutputFile file;
  file.write("text", 4);
  EXPECT_FALSE(file.outcome().whole());
  EXPECT_FALSE(file.outcome().cut());
}

// A pipe takes what it has room for; the rest follows as it is read.
TEST_F(OutputFileTest, WritingInPiecesGoesOn) {
  const std::string fifo = at("fifo");
  ASSERT_EQ(std::system(("mkfifo " + fifo).c_str()), 0);
  const std::string reader = "(sleep 0.1; cat " + fifo + " >" + at("read") + ") &";
  ASSERT_EQ(std::system(reader.c_str()), 0);
  const std::string text(1 << 20, 'x');
  EXPECT_TRUE(writeFile(fifo, text).whole());
  for (int i = 0; i < 500 && content("read").size() < text.size(); ++i) usleep(10000);
  EXPECT_EQ(content("read") == text, true);
}

}  // namespace
