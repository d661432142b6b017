// Whole files, and what is said where they cannot be had.

#include "workbench/base/files.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/driver/runprogram.hpp"

namespace tpn {
namespace {

using testing::ThrowsMessage;

class Files : public testing::Test {
 protected:
  std::string in(const std::string& name) const { return place.folder() / name; }

  Workplace place;
};

TEST_F(Files, WhatWasWrittenIsRead) {
  for (const std::string& text :
       {std::string(), std::string("a\r\n\0b", 5), std::string(200'000, 'x')}) {
    writeFile(in("file"), text);
    EXPECT_EQ(readFile(in("file")) == text, true);
  }
}

TEST_F(Files, AReplacedFileHasTheNewTextAndNothingIsLeftBesideIt) {
  writeFile(in("file"), "old");
  replaceFile(in("file"), "new");
  EXPECT_EQ(readFile(in("file")), "new");
  EXPECT_EQ(place.files(), std::set<std::string>{"file"});
}

TEST_F(Files, AFileThatCannotBeReplacedIsAsItWas) {
  std::filesystem::create_directory(in("file"));
  EXPECT_THROW(replaceFile(in("file"), "new"), std::runtime_error);
  EXPECT_EQ(place.files(), std::set<std::string>{"file"});
}

TEST_F(Files, ReadErrorsNameTheFileAndTheReason) {
  EXPECT_THAT([&] { readFile(in("none")); },
              ThrowsMessage<std::runtime_error>(in("none") +
                                                ": cannot be opened: No such file or directory"));
  EXPECT_THAT([&] { readFile(place.folder()); },
              ThrowsMessage<std::runtime_error>(place.folder().string() +
                                                ": cannot be read: Is a directory"));
  EXPECT_THAT([&] { readAll(-1, "the input"); },
              ThrowsMessage<std::runtime_error>("the input: cannot be read: Bad file descriptor"));
}

TEST_F(Files, WriteErrorsNameTheFileAndTheReason) {
  EXPECT_THAT([&] { writeFile(in("none/file"), ""); },
              ThrowsMessage<std::runtime_error>(
                  in("none/file") + ": cannot be opened for writing: No such file or directory"));
  EXPECT_THAT(
      [&] { writeFile("/dev/full", "x"); },
      ThrowsMessage<std::runtime_error>("/dev/full: cannot be written: No space left on device"));
}

TEST_F(Files, MoreThanIsAllowedIsRefused) {
  place.write("file", "12345");
  EXPECT_EQ(readFile(in("file"), 5), "12345");
  EXPECT_THAT([&] { readFile(in("file"), 4); },
              ThrowsMessage<std::runtime_error>(in("file") + ": holds more than 4 bytes"));
  EXPECT_THROW(readFile("/dev/full", 1'000'000), std::runtime_error);
}

TEST_F(Files, InputGoesByTheShorterNameWhereOnlyTheLongerExists) {
  place.write("a.tpn", "");
  EXPECT_EQ(inputName(in("a")), in("a.tpn"));
  place.write("a", "");
  EXPECT_EQ(inputName(in("a")), in("a"));
  EXPECT_EQ(inputName(in("none")), in("none"));
  place.makeFolder("b");
  place.write("b.tpn", "");
  EXPECT_EQ(inputName(in("b")), in("b.tpn"));
}

}  // namespace
}  // namespace tpn
