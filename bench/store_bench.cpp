// The formula store's index against an ordered map and a hash map: building a table of nodes whose
// operands are recent nodes, as formulas have them, and finding every one of them again.

#include <map>
#include <random>
#include <unordered_map>

#include "bench/ratios.hpp"
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
  for (auto _ : state) {
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
  for (auto _ : state)
    for (const Triple& key : source) benchmark::DoNotOptimize(index.slot(key, nodes));
}

BENCHMARK(insert<OrderedMap>)->Name("insert:ordered map")->Arg(100000)->Arg(1000000);
BENCHMARK(insert<HashMap>)->Name("insert:hash map")->Arg(100000)->Arg(1000000);
BENCHMARK(insert<NodeIndex>)->Name("insert:node index")->Arg(100000)->Arg(1000000);
BENCHMARK(find<OrderedMap>)->Name("find:ordered map")->Arg(100000)->Arg(1000000);
BENCHMARK(find<HashMap>)->Name("find:hash map")->Arg(100000)->Arg(1000000);
BENCHMARK(find<NodeIndex>)->Name("find:node index")->Arg(100000)->Arg(1000000);

}  // namespace

int main(int argc, char** argv) { return runBenchmarks(argc, argv); }
