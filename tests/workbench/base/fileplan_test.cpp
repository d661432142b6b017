// One file under many names.

#include "workbench/base/fileplan.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "tests/driver/runprogram.hpp"

namespace tpn {
namespace {

namespace fs = std::filesystem;

class FilePlans : public testing::Test {
 protected:
  FilePlans() {
    place.write("in", "x");
    place.makeFolder("folder");
  }

  std::string in(const std::string& name) const { return (place.folder() / name).string(); }

  Workplace place;
  FilePlan plan;
};

TEST_F(FilePlans, EveryNameOfAnInputIsRefused) {
  fs::create_hard_link(in("in"), in("hard"));
  fs::create_symlink("in", in("soft"));
  fs::create_symlink("../in", in("folder/soft"));
  fs::create_symlink("soft", in("softer"));
  plan.reads(in("in"));
  for (const std::string name :
       {"in", "./in", "folder/../in", "hard", "soft", "softer", "folder/soft"})
    EXPECT_THROW(plan.writes(in(name)), std::runtime_error) << name;
  EXPECT_EQ(plan.refusal(in("hard")),
            in("hard") + ": cannot be written: it is the input " + in("in"));
}

TEST_F(FilePlans, EveryNameOfAnOutputIsRefusedAlsoBeforeItExists) {
  fs::create_symlink("out", in("dangling"));
  fs::create_symlink(".", in("here"));
  plan.writes(in("out"));
  for (const std::string name : {"out", "folder/../out", "dangling", "here/out"})
    EXPECT_THROW(plan.writes(in(name)), std::runtime_error) << name;
  EXPECT_EQ(plan.refusal(in("out")),
            in("out") + ": cannot be written: it is the output " + in("out"));
}

TEST_F(FilePlans, OtherFilesAreFree) {
  plan.reads(in("in"));
  for (const std::string name : {"in.svg", "folder/in", "out"})
    EXPECT_NO_THROW(plan.writes(in(name))) << name;
}

TEST_F(FilePlans, WhatCannotBeWrittenIsToldWithTheSystemsReason) {
  for (const auto& [name, reason] : {std::pair{"none/out", "No such file or directory"},
                                     {"in/out", "Not a directory"},
                                     {"folder", "Is a directory"}})
    EXPECT_EQ(plan.refusal(in(name)), in(name) + ": cannot be written: " + reason);
}

TEST_F(FilePlans, FolderThatWillBeMadeTakesOtherFiles) {
  plan.writesLike(in("new"), [](std::string_view name) { return name == "kept"; });
  EXPECT_EQ(plan.refusal(in("new/other")), "");
  EXPECT_NE(plan.refusal(in("new/kept")), "");
}

TEST_F(FilePlans, DevicesAndStreamsTakeAnything) {
  plan.reads("/dev/null");
  for (const std::string name : {"-", "/dev/null", "/dev/stdout", "/dev/stderr", "/dev/fd/1"})
    for (int twice = 0; twice < 2; ++twice) EXPECT_NO_THROW(plan.writes(name)) << name;
}

TEST_F(FilePlans, MatchingFilesOfAFolderAreOutputs) {
  const auto match = [](std::string_view name) { return name.starts_with("k1."); };
  fs::create_hard_link(in("in"), in("folder/k1.cnf"));
  EXPECT_NO_THROW(FilePlan().writesLike(in("folder"), match));
  EXPECT_NO_THROW(FilePlan().writesLike(in("none"), match));
  plan.reads(in("in"));
  EXPECT_THROW(plan.writesLike(in("folder"), match), std::runtime_error);

  FilePlan other;
  other.writesLike(in("folder"), match);
  EXPECT_THROW(other.writes(in("folder/k1.lck")), std::runtime_error);
  EXPECT_THROW(other.writes(in("folder/../folder/k1.lck")), std::runtime_error);
  EXPECT_NO_THROW(other.writes(in("folder/k2.lck")));
  EXPECT_NO_THROW(other.writes(in("k1.lck")));
}

}  // namespace
}  // namespace tpn
