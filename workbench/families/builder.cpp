#include "workbench/families/builder.hpp"

#include <algorithm>
#include <utility>

namespace tpn {

std::size_t NetworkBuilder::process(const std::string& name,
                                    const std::vector<std::string>& locations) {
  const std::size_t index = net_.processes.size();
  net_.processes.push_back({{0}, {}});
  if (!name.empty()) net_.names.processes[index] = name;
  for (std::size_t location = 0; location < locations.size(); ++location)
    if (!locations[location].empty())
      net_.names.locations[{index, static_cast<int>(location)}] = locations[location];
  return index;
}

void NetworkBuilder::transition(const std::string& name, const Interval& interval,
                                std::vector<Move> moves) {
  std::sort(moves.begin(), moves.end(),
            [](const Move& a, const Move& b) { return a.process < b.process; });
  for (const Move& move : moves)
    net_.processes.at(move.process).locations.insert({move.source, move.target});
  if (!name.empty()) net_.names.transitions[net_.transitions.size()] = name;
  net_.transitions.push_back({interval, std::move(moves)});
}

void NetworkBuilder::label(std::size_t process, int location,
                           std::initializer_list<int> propositions) {
  net_.processes.at(process).labels[location].insert(propositions);
}

void NetworkBuilder::proposition(int proposition, const std::string& name) {
  net_.names.propositions[proposition] = name;
}

Network NetworkBuilder::finished() {
  std::erase_if(net_.names.locations, [&](const auto& named) {
    const auto& [process, location] = named.first;
    return !net_.processes[process].locations.contains(location);
  });
  return std::exchange(net_, {});
}

std::string numbered(const std::string& name, int number) { return name + std::to_string(number); }

}  // namespace tpn
