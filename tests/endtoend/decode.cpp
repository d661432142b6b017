#include "tests/endtoend/decode.hpp"

#include <sstream>
#include <stdexcept>

namespace {

// Takes numbers from the model, variable after variable.
class Reader {
 public:
  Reader(const std::vector<bool>& model, int highestVariable)
      : model_(model), occurring_(static_cast<std::size_t>(highestVariable)) {}

  std::int64_t number(int bits) {
    std::int64_t value = 0;
    for (int b = 0; b < bits; ++b) value |= std::int64_t{nextBit()} << b;
    return value;
  }

  std::vector<std::int64_t> numbers(std::size_t count, int bits) {
    std::vector<std::int64_t> values;
    for (std::size_t i = 0; i < count; ++i) values.push_back(number(bits));
    return values;
  }

 private:
  bool nextBit() {
    const std::size_t v = next_++;
    return v <= occurring_ && v < model_.size() && model_[v];
  }

  const std::vector<bool>& model_;
  std::size_t occurring_;
  std::size_t next_ = 1;
};

RunState readState(Reader& reader, const VariableMap& map) {
  RunState found{};
  for (const int bits : map.locationBits)
    found.state.locations.push_back(static_cast<int>(reader.number(bits)));
  const std::size_t slots = map.locationBits.size() + 1;  // the delay, then the clocks
  const std::vector<std::int64_t> integers = reader.numbers(slots, map.integerBits);
  reader.number(map.fractionBits);  // the split value means nothing to the network
  const std::vector<std::int64_t> fractions = reader.numbers(slots, map.fractionBits);
  const auto value = [&](std::size_t slot) {
    return (integers[slot] << map.fractionBits) + fractions[slot];
  };
  found.delay = value(0);
  for (std::size_t slot = 1; slot < slots; ++slot) found.state.clocks.push_back(value(slot));
  return found;
}

}  // namespace

VariableMap parseMap(const std::string& text) {
  std::istringstream in(text);
  VariableMap map{};
  std::size_t processes = 0;
  std::size_t clocks = 0;
  int invariantTerms = 0;
  in >> processes;
  for (std::size_t p = 0; in && p < processes; ++p) {
    int bits = 0;
    in >> bits;
    map.locationBits.push_back(bits);
  }
  in >> clocks >> map.integerBits >> map.fractionBits;
  in >> map.length >> map.highestVariable >> map.transitions >> invariantTerms;
  std::string rest;
  if (!in || in >> rest || clocks != processes) throw std::runtime_error("bad map:\n" + text);
  return map;
}

TimedRun decode(const VariableMap& map, const std::vector<bool>& model) {
  Reader reader(model, map.highestVariable);
  TimedRun run{Unit{1} << map.fractionBits, {}};
  for (int i = 0; i <= map.length; ++i) run.states.push_back(readState(reader, map));
  return run;
}
