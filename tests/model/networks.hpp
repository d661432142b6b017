// Networks for the tests, and the way from a text to a model: through a file, as the program goes.

#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

#include "model/tpnmodel.hpp"

// A folder of its own, gone with the object.
class Folder {
 public:
  Folder() {
    std::string path = (std::filesystem::temp_directory_path() / "zervan-XXXXXX").string();
    if (mkdtemp(path.data()) == nullptr) throw std::runtime_error("no folder " + path);
    path_ = path;
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  std::string operator/(const std::string& name) const { return (path_ / name).string(); }

  void write(const std::string& name, const std::string& text) const {
    std::ofstream(path_ / name, std::ios::binary) << text;
  }

  std::string read(const std::string& name) const {
    std::ifstream file(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

 private:
  std::filesystem::path path_;
};

using Model = std::unique_ptr<NetTimedModel>;

// The tables as read; the widths are not computed.
inline Model readModel(const std::string& network) {
  const Folder folder;
  folder.write("net.tpn", network);
  Model model = std::make_unique<NetTimedModel>();
  model->readNetwork(folder / "net");
  return model;
}

inline Model modelOf(const std::string& network) {
  Model model = readModel(network);
  model->compNrOfBits();
  return model;
}

// Lines "t e l" of the transitions section, then whole process blocks.
inline std::string network(const std::string& transitions, const std::string& processes) {
  return "a network\ntransitions\n" + transitions + "endtran\n" + processes + "end\n";
}

inline std::string process(const std::string& moves, const std::string& valuation = "") {
  return "process\n" + moves + "valuation\n" + valuation + "endval\nend\n";
}

// Two processes that share transition 2.
inline std::string twoProcesses() {
  return network("1 0 3\n2 1 2\n3 2 5\n",
                 process("1 0 1\n2 1 0\n", "0 1\n1 2\n") + process("2 0 1\n3 1 0\n", "1 3\n"));
}

// Neither processes nor transitions.
inline std::string emptyNetwork() { return network("", ""); }

// Three processes; three, five and one locations; an open interval, an earliest time above the
// latest, a transition of all processes, self loops, and one location number beyond its bits.
inline std::string threeProcesses() {
  return network("1 0 2\n2 1 -1\n3 2 1\n4 1 1\n5 0 0\n",
                 process("1 0 1\n2 1 2\n4 2 0\n", "0 1\n2 1 2\n") +
                     process("2 0 4\n3 4 3\n4 1 9\n5 2 2\n", "9 1\n3 2\n4 4 2\n") +
                     process("4 0 0\n", "0 3\n"));
}

// Small enough for all assignments of two states: 8 variables a state.
inline std::string tinyNetwork() {
  return network("1 0 0\n2 0 -1\n", process("1 0 1\n2 1 0\n", "1 1\n"));
}

// Small enough for all assignments of one state, 16 variables, with two clocks.
inline std::string tinyPair() {
  return network("1 0 0\n2 0 -1\n",
                 process("1 0 1\n2 1 1\n", "0 1\n") + process("1 0 1\n", "1 1 2\n"));
}
