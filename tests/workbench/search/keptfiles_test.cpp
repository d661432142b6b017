// Folders of kept files: one check at a time, and nothing of the user's is lost.

#include "workbench/search/keptfiles.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "tests/workbench/search/fakesolver.hpp"
#include "workbench/encoding/encode.hpp"

namespace {

using testing::HasSubstr;
using tpn::KeptFiles;

class Kept : public testing::Test {
 protected:
  std::string folder() const { return place_.folder() / "kept"; }
  void refuses(const std::string& message) const {
    EXPECT_THAT([&] { const KeptFiles again(folder()); },
                testing::ThrowsMessage<std::runtime_error>(message));
  }

  Workplace place_;
};

TEST_F(Kept, FolderIsOneChecksAtATime) {
  {
    const KeptFiles first(folder());
    refuses(folder() + " cannot be used: process " + std::to_string(getpid()) +
            " keeps files there");
  }
  EXPECT_NO_THROW(KeptFiles{folder()});
}

TEST_F(Kept, FolderOfACheckThatWasKilledIsFree) {
  const pid_t child = fork();
  if (child == 0) {
    const KeptFiles held(folder());
    raise(SIGKILL);
  }
  waitpid(child, nullptr, 0);
  EXPECT_NO_THROW(KeptFiles{folder()});
}

TEST_F(Kept, FileOfTheUsersIsLeftAlone) {
  place_.makeFolder("kept");
  for (const std::string name : {"k5.cnf", "k2.out", "k11.lck", "k1.err", "k8.result"}) {
    place_.write("kept/" + name, "mine");
    refuses(folder() + "/" + name +
            " is in the way: no check has written it, and none will replace it");
    EXPECT_EQ(place_.read("kept/" + name), "mine");
    std::filesystem::remove(place_.folder() / "kept" / name);
  }
  for (const std::string name : {"k.cnf", "kx5.cnf", "k5.tpn", "key.out"})
    place_.write("kept/" + name, "mine");
  EXPECT_NO_THROW(KeptFiles{folder()});
}

TEST_F(Kept, RecordOfTheUsersIsLeftAlone) {
  place_.makeFolder("kept");
  place_.write("kept/tpn-check.record", "mine\n");
  refuses(folder() + "/tpn-check.record is in the way: no check has written it");
  EXPECT_EQ(place_.read("kept/tpn-check.record"), "mine\n");
}

TEST_F(Kept, FilesOfAnEarlierCheckAreReplaced) {
  const tpn::CheckOptions options{8, {}, "", 1, folder()};
  const Explored question{circle(3), propertyOf("p1")};
  checked(question, options);
  const std::string first = place_.read("kept/k5.cnf");
  place_.write("kept/k5.cnf", "old");
  place_.write("kept/k5.err", "old");
  checked(question, options);
  EXPECT_EQ(place_.read("kept/k5.cnf"), first);
  EXPECT_FALSE(std::filesystem::exists(place_.folder() / "kept/k5.err"));
}

TEST_F(Kept, FilesOfSeveralChecksAreAllKnown) {
  const Explored question{circle(3), propertyOf("p1")};
  checked(question, {8, {}, "", 1, folder()});
  checked(Explored{circle(3), propertyOf("p-1")}, {8, {}, "", 1, folder()});  // writes k1 only
  EXPECT_NO_THROW(checked(question, {8, {}, "cadical", 1, folder()}));
}

TEST_F(Kept, TemporaryFolderGoesWithTheObject) {
  std::string name;
  {
    KeptFiles files("");
    name = files.name(1);
    files.begin(1);
    std::ofstream(name + ".cnf") << "x";
    files.forget(1);
    EXPECT_FALSE(std::filesystem::exists(name + ".cnf"));
    std::ofstream(name + ".out") << "x";
  }
  EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(name).parent_path()));
}

// Above 500000 variables of the path the numbers of the clause file fold.
TEST_F(Kept, BoundsFitUpTo500000Variables) {
  NetTimedModel model;
  tpn::encode(circle(3), propertyOf("p1"), tpn::LocationCoding::workbench, model);
  const auto length = static_cast<int>(model.getSymStateLen());
  const int last = 500000 / length - 1;
  EXPECT_TRUE(tpn::fitsClauseFile(model, last));
  EXPECT_FALSE(tpn::fitsClauseFile(model, last + 1));
}

// A limit on the size of files makes them end where a full disk would.
class LimitedFiles {
 public:
  explicit LimitedFiles(std::uintmax_t bytes) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit small{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~LimitedFiles() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  LimitedFiles(const LimitedFiles&) = delete;
  LimitedFiles& operator=(const LimitedFiles&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

TEST_F(Kept, ClauseFileThatLacksItsLastLineIsNoticed) {
  const Explored question{circle(3), propertyOf("p1")};
  checked(question, {2, {}, "", 1, folder()});
  const std::string whole = place_.read("kept/k2.cnf");
  const std::size_t lastLine = whole.rfind('\n', whole.size() - 2) + 1;
  const LimitedFiles limited(lastLine);
  EXPECT_THAT(
      [&] {
        checked(question, {2, {}, "", 1, folder()});
      },
      testing::ThrowsMessage<std::runtime_error>(
          HasSubstr("k2.cnf could not be written completely: File too large")));
}

TEST_F(Kept, MapThatCannotBeWrittenIsNoticed) {
  for (const std::string solver : {"", "cadical"}) {
    place_.makeFolder("kept");
    std::filesystem::create_symlink("/dev/full", place_.folder() / "kept/k2.lck");
    EXPECT_THAT(
        [&] {
          checked(Explored{circle(3), propertyOf("p1")}, {8, {}, solver, 1, folder()});
        },
        testing::ThrowsMessage<std::runtime_error>(
            HasSubstr("k2.lck could not be written completely: No space left")));
    std::filesystem::remove_all(folder());
  }
}

TEST(BoundFiles, AreThoseOfABound) {
  for (const char* name : {"k1.cnf", "k23.lck", "k5.out", "k5.err", "k5.result"})
    EXPECT_TRUE(tpn::isBoundFile(name)) << name;
  for (const char* name :
       {"", "k", "k.cnf", "k1", "k1.txt", "k1x.cnf", "j1.cnf", "1.cnf", "k1.cnf~"})
    EXPECT_FALSE(tpn::isBoundFile(name)) << name;
}

}  // namespace
