#include "tests/endtoend/judge.hpp"

#include <utility>

#include "tests/endtoend/decode.hpp"
#include "tests/endtoend/runcheck.hpp"
#include "tests/endtoend/solver.hpp"

namespace {

std::string mapComplaint(const Network& net, const VariableMap& map, int k) {
  if (map.locationBits.size() != net.processes) return "wrong number of processes";
  if (map.transitions != static_cast<int>(net.transitions.size()))
    return "wrong number of transitions";
  return map.length == k ? "" : "wrong path length";
}

std::string answerComplaint(const Network& net, const VariableMap& map, const Answer& answer,
                            bool reachable) {
  if (answer.satisfiable != reachable)
    return answer.satisfiable ? "satisfiable, but not reachable" : "unsatisfiable, but reachable";
  return answer.satisfiable ? complaint(net, decode(map, answer.model)) : "";
}

}  // namespace

Judge::Judge(Network net) : net_(std::move(net)) {
  sandbox_.write("net.tpn", networkFile(net_));
  sandbox_.write("phi.tpn", net_.property + "\n");
}

std::string Judge::verdict(int k, bool reachable) const {
  const std::string length = std::to_string(k);
  const int status = sandbox_.run({ZERVAN_BINARY, "net", "phi", length});
  if (status != 0) return "exit status " + std::to_string(status);
  const VariableMap map = parseMap(sandbox_.read("netk" + length + ".lck"));
  const std::string badMap = mapComplaint(net_, map, k);
  if (!badMap.empty()) return "variable map: " + badMap;
  const Answers answers = solve(sandbox_, "netk" + length + ".cnf");
  const std::string first = answerComplaint(net_, map, answers.cadical, reachable);
  if (!first.empty()) return "cadical: " + first;
  const std::string second = answerComplaint(net_, map, answers.minisat, reachable);
  return second.empty() ? "" : "minisat: " + second;
}
