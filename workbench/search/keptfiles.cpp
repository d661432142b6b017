#include "workbench/search/keptfiles.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <streambuf>

#include "translation/reachtran.hpp"
#include "workbench/base/files.hpp"
#include "workbench/encoding/pattern.hpp"
#include "workbench/encoding/statelength.hpp"
#include "workbench/solvers/boundfiles.hpp"

namespace tpn {

namespace {

namespace fs = std::filesystem;

constexpr const char* recordName = "tpn-check.record";

std::string temporaryFolder() {
  std::error_code none;
  fs::path parent = fs::temp_directory_path(none);
  if (none) parent = "/tmp";
  std::string name = (parent / "tpn-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr)
    throw std::runtime_error("no folder for temporary files in " + parent.string() + ": " +
                             std::strerror(errno));
  return name;
}

std::string keptFolder(const std::string& name) {
  std::error_code failure;
  fs::create_directories(name, failure);
  if (!failure && !fs::is_directory(name, failure))
    failure = std::make_error_code(std::errc::not_a_directory);
  if (!failure && access(name.c_str(), W_OK | X_OK) != 0)
    failure = std::error_code(errno, std::generic_category());
  if (failure) throw std::runtime_error("cannot write into " + name + ": " + failure.message());
  return name;
}

// One line of the record; the first one has this length whatever the process.
std::string holderLine() {
  std::string line = "process " + std::to_string(getpid());
  line.resize(30, ' ');
  return line + "\n";
}

void mustBeWhole(const Written& file) {
  if (file.whole()) return;
  throw std::runtime_error(file.file + " could not be written" +
                           (file.opened ? " completely: " : ": ") + file.failure.message());
}

// The core reports its progress on the standard streams.
class Silence {
 public:
  Silence() : out_(std::cout.rdbuf(&nothing_)), err_(std::cerr.rdbuf(&nothing_)) {}
  ~Silence() {
    std::cout.rdbuf(out_);
    std::cerr.rdbuf(err_);
  }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;

 private:
  struct Nothing : std::streambuf {
    int overflow(int c) override { return traits_type::not_eof(c); }
  };
  Nothing nothing_;
  std::streambuf* out_;
  std::streambuf* err_;
};

}  // namespace

bool isBoundFile(std::string_view name) {
  const std::size_t suffix = name.find_first_not_of("0123456789", 1);
  return name.starts_with('k') && suffix > 1 && suffix != std::string_view::npos &&
         std::find(suffixes.begin(), suffixes.end(), name.substr(suffix)) != suffixes.end();
}

KeptFiles::KeptFiles(const std::string& keep)
    : folder_(keep.empty() ? temporaryFolder() : keptFolder(keep)), temporary_(keep.empty()) {
  if (temporary_) return;
  try {
    lock();
    refuseForeignFiles();
  } catch (...) {
    close(record_);
    throw;
  }
}

KeptFiles::~KeptFiles() {
  std::error_code ignored;
  if (temporary_) fs::remove_all(folder_, ignored);
  if (record_ >= 0) close(record_);  // gives up the lock
}

void KeptFiles::lock() {
  const std::string file = folder_ + "/" + recordName;
  record_ = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666);
  if (record_ < 0)
    throw std::runtime_error("cannot write into " + folder_ + ": " + std::strerror(errno));
  const bool locked = flock(record_, LOCK_EX | LOCK_NB) == 0;
  const int reason = errno;
  std::istringstream lines(readFile(file));
  std::string holder;
  std::getline(lines, holder);
  holder.erase(holder.find_last_not_of(' ') + 1);
  if (!holder.empty() && !holder.starts_with("process "))
    throw std::runtime_error(file + " is in the way: no check has written it");
  if (!locked)
    throw std::runtime_error(
        folder_ + " cannot be used: " +
        (reason == EWOULDBLOCK ? (holder.empty() ? "another check" : holder) + " keeps files there"
                               : std::strerror(reason)));
  for (std::string name; std::getline(lines, name);) ours_.insert(name);
  const std::string mine = holderLine();
  if (pwrite(record_, mine.data(), mine.size(), 0) != static_cast<ssize_t>(mine.size()))
    throw std::runtime_error("cannot write into " + folder_ + ": " + std::strerror(errno));
  lseek(record_, 0, SEEK_END);
}

void KeptFiles::refuseForeignFiles() const {
  for (const auto& entry : fs::directory_iterator(folder_)) {
    const std::string name = entry.path().filename();
    std::error_code none;
    if (isBoundFile(name) && entry.is_regular_file(none) && !ours_.contains(name))
      throw std::runtime_error(entry.path().string() +
                               " is in the way: no check has written it, and none will replace it");
  }
}

void KeptFiles::record(const std::string& file) {
  if (temporary_ || !ours_.insert(file).second) return;
  const std::string line = file + "\n";
  if (write(record_, line.data(), line.size()) != static_cast<ssize_t>(line.size()))
    throw std::runtime_error("cannot write into " + folder_ + ": " + std::strerror(errno));
}

void KeptFiles::begin(int k) {
  for (const char* const suffix : suffixes) record(stem(k) + suffix);
  removeFiles(k);
}

void KeptFiles::removeFiles(int k) const {
  std::error_code ignored;
  for (const char* const suffix : suffixes) {
    const std::string file = name(k) + suffix;
    if (fs::is_regular_file(file, ignored)) fs::remove(file, ignored);
  }
}

void KeptFiles::forget(int k) const {
  if (temporary_) removeFiles(k);
}

bool writeClauses(const NetTimedModel& model, int k, const std::string& name) {
  const Silence silence;
  BoolForm::emptyStore();
  model.nrInvTerms = 0;
  const WrittenRun written = EctlTransl(model, k).checkEctlFormula(name);
  BoolForm::emptyStore();
  mustBeWhole(written.clauses);
  mustBeWhole(written.map);
  return written.variables > 0;
}

bool fitsClauseFile(const NetTimedModel& model, int k) {
  return (std::int64_t{k} + 1) * model.getSymStateLen() <= mostUnfolded;
}

}  // namespace tpn
