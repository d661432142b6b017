#include "workbench/base/fileplan.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <optional>
#include <stdexcept>

namespace tpn {

namespace fs = std::filesystem;

namespace {

std::string identity(const struct stat& found) {
  return std::to_string(found.st_dev) + ":" + std::to_string(found.st_ino);
}

// Of a folder; its name where there is none, for nothing can be written there anyway.
std::string folderIdentity(const fs::path& folder) {
  struct stat found {};
  const fs::path named = folder.empty() ? fs::path(".") : folder;
  if (stat(named.c_str(), &found) == 0) return identity(found);
  return fs::absolute(named).lexically_normal().string();
}

// Where symbolic links lead that end in nothing.
fs::path followed(fs::path name) {
  std::error_code none;
  constexpr int mostLinks = 40;  // more of them the system does not follow either
  for (int i = 0; i < mostLinks && fs::is_symlink(name, none); ++i) {
    const fs::path target = fs::read_symlink(name, none);
    name = target.is_absolute() ? target : name.parent_path() / target;
  }
  return name;
}

// Nothing for what is no regular file and will be none.
std::optional<std::string> identityOf(const std::string& name) {
  struct stat found {};
  if (stat(name.c_str(), &found) != 0) {
    const fs::path end = followed(name);
    return folderIdentity(end.parent_path()) + "/" + end.filename().string();
  }
  if (!S_ISREG(found.st_mode)) return std::nullopt;
  return identity(found);
}

// The system's reason why this could not be opened for writing; empty where there is none.
std::string obstacle(const std::string& name) {
  const fs::path end = followed(name);
  std::error_code none;
  if (fs::is_directory(end, none)) return std::strerror(EISDIR);
  const fs::path folder = end.has_parent_path() ? end.parent_path() : fs::path(".");
  if (!fs::exists(end, none) && fs::exists(folder, none) && !fs::is_directory(folder, none))
    return std::strerror(ENOTDIR);
  const fs::path& asked = fs::exists(end, none) ? end : folder;
  return access(asked.c_str(), W_OK) == 0 ? "" : std::strerror(errno);
}

// Where it is redirected to is for whoever redirects it to know.
bool isStream(const std::string& name) {
  for (const std::string_view whole : {"-", "/dev/stdout", "/dev/stderr"})
    if (name == whole) return true;
  return name.starts_with("/dev/fd/") || name.starts_with("/proc/self/fd/");
}

}  // namespace

void FilePlan::reads(const std::string& name) {
  if (const auto file = identityOf(name)) taken_.emplace(*file, "the input " + name);
}

void FilePlan::writes(const std::string& name) {
  const std::string why = refusal(name);
  if (!why.empty()) throw std::runtime_error(why);
  if (isStream(name)) return;
  if (const auto file = identityOf(name)) taken_.emplace(*file, "the output " + name);
}

void FilePlan::writesLike(const std::string& folder, const Match& match) {
  std::error_code none;
  for (const auto& entry : fs::directory_iterator(folder, none))
    if (match(entry.path().filename().string())) writes(entry.path().string());
  folders_.push_back({folderIdentity(folder), match, folder});
}

std::string FilePlan::refusal(const std::string& name) const {
  if (isStream(name)) return "";
  const std::string begin = name + ": cannot be written: ";
  if (const auto file = identityOf(name)) {
    const auto at = taken_.find(*file);
    if (at != taken_.end()) return begin + "it is " + at->second;
  }
  const fs::path end = followed(name);
  for (const Folder& folder : folders_) {
    if (folder.identity != folderIdentity(end.parent_path())) continue;
    if (folder.match(end.filename().string()))
      return begin + "it is one of the files kept in " + folder.name;
    if (!fs::exists(folder.name)) return "";  // it is going to be made
  }
  const std::string reason = obstacle(name);
  return reason.empty() ? "" : begin + reason;
}

}  // namespace tpn
