// What a command is going to read and to write. An output that would destroy an input, or another
// output, is refused before anything runs.
//
// Files are compared by what they are, not by name: hard links, symbolic links (dangling ones too)
// and detours through folders are the same file. Devices, pipes and standard streams can take any
// number of outputs.

#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tpn {

class FilePlan {
 public:
  // Inputs come before outputs.
  void reads(const std::string& name);

  // Throws std::runtime_error where this file is taken, or cannot be written as things are: no such
  // folder, no permission.
  void writes(const std::string& name);

  // Files that lie in this folder, or will: those whose names match. Throws as writes does.
  using Match = std::function<bool(std::string_view name)>;
  void writesLike(const std::string& folder, const Match& match);

  // Why a file may not be written, in one line; empty where it may.
  std::string refusal(const std::string& name) const;

 private:
  struct Folder {
    std::string identity;
    Match match;
    std::string name;
  };

  std::map<std::string, std::string> taken_;  // by identity: what it is, "the input NAME"
  std::vector<Folder> folders_;
};

}  // namespace tpn
