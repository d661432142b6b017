// What is written is read again as it was.

#include "workbench/network/writer.hpp"

#include <gtest/gtest.h>

#include "tests/workbench/network/bignets.hpp"
#include "tests/workbench/network/smallnets.hpp"
#include "workbench/network/strictread.hpp"

namespace tpn {
namespace {

// A file's processes have the locations that their moves mention, and labels on those.
Network writable(SmallNets& nets) {
  Network net = nets.next();
  net.title = nets.upTo(1) == 0 ? "transitions" : "a title, \x80 in it";
  keepMentioned(net);
  for (Process& process : net.processes)
    for (const int location : process.locations)
      for (int q = nets.number(3); q > 0; --q) process.labels[location].insert(nets.number(20));
  return net;
}

// About every second thing has a name, any bytes but line ends.
void addNames(Network& net, SmallNets& nets) {
  int count = 0;
  const auto add = [&](std::string& name) {
    name = nets.upTo(1) == 0 ? "n" : "";
    name += std::to_string(count++);
    for (int i = nets.number(3); i > 0; --i) name += "a{}\\ _\r\x80"[nets.upTo(7)];
  };
  for (std::size_t p = 0; p < net.processes.size(); ++p) {
    if (nets.upTo(1) == 0) add(net.names.processes[p]);
    for (const int location : net.processes[p].locations)
      if (nets.upTo(1) == 0) add(net.names.locations[{p, location}]);
  }
  for (std::size_t t = 0; t < net.transitions.size(); ++t)
    if (nets.upTo(1) == 0) add(net.names.transitions[t]);
  for (const int q : propositions(net))
    if (nets.upTo(1) == 0) add(net.names.propositions[q]);
}

// Without location 0, or with a gap, the file is not in order: those are left out.
bool inOrder(const Network& net) {
  for (std::size_t p = 0; p < net.processes.size(); ++p) {
    bool zero = false;
    bool moves = false;
    for (const Transition& t : net.transitions)
      for (const Move& move : t.moves)
        if (move.process == p) {
          moves = true;
          zero = zero || move.source == 0 || move.target == 0;
        }
    if (moves && !zero) return false;
  }
  return true;
}

std::optional<Network> readAgain(const Network& net) {
  Diagnostics found;
  return readNetwork("net", networkFile(net), found);
}

TEST(NetworkFile, IsReadAsTheSameNetwork) {
  SmallNets nets(1);
  int compared = 0;
  for (int i = 0; i < 2000; ++i) {
    Network net = writable(nets);
    if (i % 2 == 1) addNames(net, nets);
    if (!inOrder(net)) continue;
    const auto read = readAgain(net);
    ASSERT_TRUE(read) << networkFile(net);
    ASSERT_EQ(*read, net) << networkFile(net);
    ++compared;
  }
  EXPECT_GT(compared, 500);
}

TEST(NetworkFile, LooksLikeThis) {
  EXPECT_EQ(networkFile(twoProcesses()),
            "two\ntransitions\n1 1 2\n2 0 3\n3 2 -1\nendtran\n"
            "process\n1 0 1\n3 1 0\nvaluation\n1 7\nendval\nend\n"
            "process\n2 0 1\n3 1 0\nvaluation\n1 8 9\nendval\nend\nend\n");
}

TEST(NetworkFile, EndsWithNamesWhereThereAreAny) {
  Network net = twoProcesses();
  const std::string without = networkFile(net);
  net.names.processes[1] = "{atleast}";
  net.names.locations[{0, 1}] = "busy";
  net.names.transitions[2] = "both";
  net.names.propositions[8] = "true";
  EXPECT_EQ(networkFile(net), without +
                                  "names\nprocess 2 {\\{atleast\\}}\nlocation 1 1 busy\n"
                                  "transition 3 both\nproposition 8 {true}\n");
}

TEST(NetworkFile, HoldsLargeNetworks) {
  for (const Network& net : {manyProcesses(500), ring(20000), parallel(5000)})
    EXPECT_EQ(readAgain(net), net);
}

TEST(NetworkFile, CannotSayThatATokenIsPutDownOrRead) {
  Network net = twoProcesses();
  net.transitions[2].moves[1].counts = false;
  EXPECT_THROW(networkFile(net), std::runtime_error);
  net.transitions[2].moves[1] = {1, 1, 1, true, false};
  EXPECT_THROW(networkFile(net), std::runtime_error);
}

TEST(NetworkFile, MayHoldNoProcess) {
  Network nothing;
  nothing.title = "nothing";
  EXPECT_EQ(readAgain(nothing), nothing);
}

TEST(NetworkFileDeathTest, RefusesWhatAFileCannotSay) {
  Network net = twoProcesses();
  net.title = "two\nlines";
  EXPECT_DEATH(networkFile(net), "isTitle");
  net = twoProcesses();
  net.processes[0].locations.insert(2);
  EXPECT_DEATH(networkFile(net), "locations");
  net = twoProcesses();
  net.transitions[0].moves.clear();
  EXPECT_DEATH(networkFile(net), "moves");
  net = twoProcesses();
  net.names.processes[0] = "";
  EXPECT_DEATH(networkFile(net), "name");
}

}  // namespace
}  // namespace tpn
