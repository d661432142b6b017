// The formula store. Its index against an ordered map and a hash map: building a table of nodes
// whose operands are recent nodes, as formulas have them, and finding every one of them again. And
// blocks of nodes that repeat: built again and again, or copied.

#include <algorithm>
#include <map>
#include <random>
#include <unordered_map>

#include "bench/ratios.hpp"
#include "boolform/boolform.hpp"
#include "boolform/nodeindex.hpp"

namespace {

// Distinct keys; operands lie within the last few thousand nodes.
std::vector<Triple> keys(int count) {
  std::mt19937 random(1);
  std::map<Triple, int> seen;
  std::vector<Triple> result;
  while (static_cast<int>(result.size()) < count) {
    const int newest = NodeIndex::firstNr + static_cast<int>(result.size());
    const auto operand = [&] {
      const int nr = newest - 1 - static_cast<int>(random() % 4000);
      return (random() & 1U) != 0 ? nr : -nr;
    };
    const int left = operand();
    const Triple key{1, left, operand()};
    if (seen.emplace(key, newest).second) result.push_back(key);
  }
  return result;
}

struct HashOfTriple {
  std::size_t operator()(const Triple& t) const {
    const auto left = static_cast<std::uint64_t>(static_cast<std::uint32_t>(t.left));
    return std::hash<std::uint64_t>()(left << 32 | static_cast<std::uint32_t>(t.right));
  }
};

// A standard map behind the index's interface.
template <class Map>
class Tree {
 public:
  int& slot(const Triple& key, const std::vector<Triple>& /*nodes*/) { return map_[key]; }

 private:
  Map map_;
};

using OrderedMap = Tree<std::map<Triple, int>>;
using HashMap = Tree<std::unordered_map<Triple, int, HashOfTriple>>;

template <class Index>
void fill(Index& index, const std::vector<Triple>& source, std::vector<Triple>& nodes) {
  for (const Triple& key : source) {
    int& slot = index.slot(key, nodes);
    nodes.push_back(key);
    slot = NodeIndex::firstNr + static_cast<int>(nodes.size()) - 1;
  }
}

template <class Index>
void insert(benchmark::State& state) {
  const std::vector<Triple> source = keys(static_cast<int>(state.range(0)));
  while (state.KeepRunning()) {
    Index index;
    std::vector<Triple> nodes;
    fill(index, source, nodes);
    benchmark::DoNotOptimize(nodes.data());
  }
}

template <class Index>
void find(benchmark::State& state) {
  const std::vector<Triple> source = keys(static_cast<int>(state.range(0)));
  Index index;
  std::vector<Triple> nodes;
  fill(index, source, nodes);
  while (state.KeepRunning())
    for (const Triple& key : source) benchmark::DoNotOptimize(index.slot(key, nodes));
}

// A block of nodes over variables of its own, to be followed by the same over the next variables.
struct Block {
  static constexpr int variables = 200;
  std::vector<Triple> nodes;

  explicit Block(int size) {
    std::mt19937 random(1);
    const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    for (int i = 0; i < size; ++i) {  // no two with the same operands: the left one is the block's
      const int left = i < variables ? 1 + i : firstNodeNr + i - 1;
      const int right = i < variables ? -1 - below(variables) : -(firstNodeNr + below(i - 1));
      nodes.push_back({bfCon, right, left});
    }
  }
  Distance distance() const { return {variables, static_cast<int>(nodes.size())}; }

  void build(int time) const {
    const Distance up = time * distance();
    for (const Triple& key : nodes) {
      const Triple here = up.moved(key);
      BoolForm(BoolForm::ofNr(here.left), BoolForm::ofNr(here.right), here.op);
    }
  }
};

// Blocks of a tenth of all nodes, but of 3000 nodes at most.
template <class Repeat>
void repeat(benchmark::State& state, Repeat rest) {
  const int all = static_cast<int>(state.range(0));
  const Block block(std::min(all / 10, 3000));
  const int times = all / block.distance().nodes;
  while (state.KeepRunning()) {
    state.PauseTiming();
    BoolForm::emptyStore();
    block.build(0);
    block.build(1);
    state.ResumeTiming();
    rest(block, times);
    if (static_cast<int>(BoolForm::tv.size()) != times * block.distance().nodes)
      state.SkipWithError("not as many nodes as there should be");
  }
}

void again(benchmark::State& state) {
  repeat(state, [](const Block& block, int times) {
    for (int i = 2; i < times; ++i) block.build(i);
  });
}

void copied(benchmark::State& state) {
  repeat(state, [](const Block& block, int times) {
    if (BoolForm::lastRepeat(block.distance())) BoolForm::repeatLast(block.distance(), times - 2);
  });
}

BENCHMARK(insert<OrderedMap>)->Name("insert:ordered map")->Arg(1000)->Arg(100000)->Arg(1000000);
BENCHMARK(insert<HashMap>)->Name("insert:hash map")->Arg(1000)->Arg(100000)->Arg(1000000);
BENCHMARK(insert<NodeIndex>)->Name("insert:node index")->Arg(1000)->Arg(100000)->Arg(1000000);
BENCHMARK(find<OrderedMap>)->Name("find:ordered map")->Arg(1000)->Arg(100000)->Arg(1000000);
BENCHMARK(find<HashMap>)->Name("find:hash map")->Arg(1000)->Arg(100000)->Arg(1000000);
BENCHMARK(find<NodeIndex>)->Name("find:node index")->Arg(1000)->Arg(100000)->Arg(1000000);
BENCHMARK(again)->Name("repeat:built again")->Arg(1000)->Arg(100000)->Arg(1000000);
BENCHMARK(copied)->Name("repeat:copied")->Arg(1000)->Arg(100000)->Arg(1000000);

}  // namespace

int main(int argc, char** argv) { return runBenchmarks(argc, argv); }
