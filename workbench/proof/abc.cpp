#include "workbench/proof/abc.hpp"

#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "workbench/base/child.hpp"
#include "workbench/base/files.hpp"
#include "workbench/base/programpath.hpp"
#include "workbench/proof/abcanswer.hpp"
#include "workbench/proof/checker.hpp"
#include "workbench/runs/replay.hpp"

namespace tpn {

namespace {

namespace fs = std::filesystem;

constexpr const char* program = "berkeley-abc";
constexpr std::size_t mostClauses = 1000000;

std::string pathOfAbc() {
  std::string path = programPath(program);
  if (!path.empty()) return path;
  throw std::runtime_error("there is no program berkeley-abc (the package of that name has it)");
}

// Goes with the object.
class Folder {
 public:
  Folder() : name_((fs::temp_directory_path() / "tpn-XXXXXX").string()) {
    if (mkdtemp(name_.data()) == nullptr)
      throw std::runtime_error("no folder for temporary files: " +
                               std::string(std::strerror(errno)));
  }
  ~Folder() {
    std::error_code ignored;
    fs::remove_all(name_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  const std::string& name() const { return name_; }
  std::string read(const char* file) const { return readFile(name_ + "/" + file); }
  bool has(const char* file) const { return fs::exists(name_ + "/" + file); }

 private:
  std::string name_;
};

// Its names of files have no folder, and so nothing that its command language would take apart.
constexpr const char* script =
    "read_aiger model.aig; pdr -d -I invariant; print_status; write_cex -a run";

// False where it was stopped.
bool runAbc(const Folder& folder, const std::function<bool()>& stop) {
  const std::string path = pathOfAbc();
  Child child([&]() -> int {
    fs::current_path(folder.name());
    become({path, "-q", script}, "out", "err");
  });
  while (child.running()) {
    if (stop && stop()) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  if (child.signal() != 0) throw std::runtime_error("berkeley-abc was ended by a signal");
  return true;
}

AbcAnswer reached(const Network& net, const Goal& goal, const Folder& folder, std::size_t inputs) {
  AbcAnswer answer{AbcAnswer::reachable, {}, {}, ""};
  answer.run = runOf(net, readChoices(folder.read("run"), inputs));
  const Replay checked = replay(net, goal, *answer.run);
  if (!checked.complaint.empty())
    throw std::runtime_error("berkeley-abc found no run: " + checked.complaint);
  return answer;
}

AbcAnswer proved(const Network& net, const Goal& goal, const Folder& folder,
                 const MachineCircuit& machine, const std::function<bool()>& stop) {
  std::optional<Certificate> certificate =
      folder.has("invariant") ? readInvariant(folder.read("invariant"), machine, mostClauses)
                              : Certificate{};
  if (!certificate)
    return {AbcAnswer::undecided, {}, {}, "berkeley-abc's invariant has too many clauses in units"};
  const Recheck checked = recheck(net, goal, *certificate, stop);
  if (checked.result == Recheck::stopped)
    return {AbcAnswer::undecided, {}, {}, "berkeley-abc's invariant was not rechecked in time"};
  if (checked.result == Recheck::refuted)
    throw std::runtime_error("berkeley-abc's invariant does not hold: " + checked.complaint);
  return {AbcAnswer::unreachable, {}, std::move(certificate), ""};
}

}  // namespace

AbcAnswer askAbc(const Network& net, const Goal& goal, const std::function<bool()>& stop) {
  const MachineCircuit machine = makeMachineCircuit(net, goal);
  const Folder folder;
  writeFile(folder.name() + "/model.aig", binaryAiger(machine.circuit, ""));
  if (!runAbc(folder, stop)) return {AbcAnswer::undecided, {}, {}, "stopped"};
  const std::string out = folder.read("out");
  const auto says = [&](const char* what) { return out.find(what) != std::string::npos; };
  if (says("Status = 0") && folder.has("run"))
    return reached(net, goal, folder, machine.circuit.inputs().size());
  if (says("Property proved") && says("Status = 1"))
    return proved(net, goal, folder, machine, stop);
  return {AbcAnswer::undecided, {}, {}, "berkeley-abc came to no answer"};
}

}  // namespace tpn
