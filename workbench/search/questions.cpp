#include "workbench/search/questions.hpp"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <stdexcept>

#include "translation/reachtran.hpp"
#include "workbench/solvers/clausefile.hpp"

namespace tpn {

namespace {

namespace fs = std::filesystem;

constexpr std::int64_t mostVariables = 500000;

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

}  // namespace

Questions::Questions(const std::string& keep)
    : folder_(keep.empty() ? temporaryFolder() : keptFolder(keep)), temporary_(keep.empty()) {}

Questions::~Questions() {
  std::error_code ignored;
  if (temporary_) fs::remove_all(folder_, ignored);
}

void Questions::forget(int k) const {
  if (!temporary_) return;
  std::error_code ignored;
  for (const char* const suffix : {".cnf", ".lck", ".out", ".err", ".result"})
    fs::remove(name(k) + suffix, ignored);
}

bool writeQuestion(const NetTimedModel& model, int k, const std::string& name) {
  std::error_code ignored;
  // What an earlier check left there must not pass for an answer to this one.
  for (const char* const suffix : {".cnf", ".lck", ".out", ".err", ".result"})
    if (fs::is_regular_file(name + suffix, ignored)) fs::remove(name + suffix, ignored);
  EctlTransl(model, k).checkEctlFormula(name);
  return verifyWritten(name).variables > 0;
}

bool fitsClauseFile(const NetTimedModel& model, int k) {
  return (std::int64_t{k} + 1) * model.getSymStateLen() <= mostVariables;
}

}  // namespace tpn
