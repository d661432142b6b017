// From a solver's answer to a clause file of the core to a run.

#include <algorithm>
#include <array>
#include <charconv>
#include <sstream>
#include <stdexcept>

#include "translation/reachtran.hpp"
#include "workbench/encoding/decode.hpp"
#include "workbench/encoding/encode.hpp"
#include "workbench/encoding/pattern.hpp"
#include "workbench/search/check.hpp"
#include "workbench/solvers/answer.hpp"

namespace tpn {

namespace {

// What a variable map says that a network does not.
struct Map {
  std::vector<int> locationBits;
  int integerBits = 0;
  int fractionBits = 0;
  int length = 0;
  int highestVariable = 0;  // 0: the property is false everywhere
  int transitions = 0;
};

[[noreturn]] void badMap(int line) {
  throw std::runtime_error("the variable map is broken in line " + std::to_string(line));
}

int mapNumber(const std::string& word, int line) {
  int n = 0;
  const char* const end = word.data() + word.size();
  const auto [next, failure] = std::from_chars(word.data(), end, n);
  if (failure != std::errc() || next != end || n < 0) badMap(line);
  return n;
}

// The numbers of each of the six lines.
using MapLines = std::array<std::vector<int>, 6>;

MapLines mapLines(const std::string& text) {
  std::istringstream in(text);
  MapLines lines;
  std::size_t at = 0;
  for (std::string line; std::getline(in, line); ++at) {
    const int number = static_cast<int>(at) + 1;
    if (at == lines.size()) badMap(number);
    std::istringstream words(line);
    for (std::string word; words >> word;) lines[at].push_back(mapNumber(word, number));
  }
  if (at < lines.size()) throw std::runtime_error("the variable map is cut off: it has 6 lines");
  return lines;
}

Map readMap(const std::string& text) {
  const MapLines lines = mapLines(text);
  for (const std::size_t i : {0U, 3U, 4U})
    if (lines[i].size() != 1) badMap(static_cast<int>(i) + 1);
  if (lines[1].size() != static_cast<std::size_t>(lines[0][0])) badMap(2);
  if (lines[2].size() != 3) badMap(3);
  if (lines[5].size() != 2) badMap(6);
  if (lines[3][0] < 1) badMap(4);
  return {lines[1], lines[2][1], lines[2][2], lines[3][0], lines[4][0], lines[5][0]};
}

bool fits(const Map& map, const NetTimedModel& model) {
  return std::equal(map.locationBits.begin(), map.locationBits.end(), model.nrVertBits.begin() + 1,
                    model.nrVertBits.end()) &&
         map.integerBits == model.intPLen && map.fractionBits == model.frPLen &&
         map.transitions == model.nrOfTrans;
}

// The formulas of a path over two states: what step i mod 3 asks, the initial state, the property.
class PathCheck {
 public:
  explicit PathCheck(const NetTimedModel& model) : pattern_(build(model)) {}

  // What is wrong with the path, or empty.
  std::string violation(const PathBits& path) const {
    bool seen = false;
    for (std::size_t i = 0; i < path.size(); ++i) {
      const bool last = i + 1 == path.size();
      const std::vector<bool> values = pattern_.evaluate(pair(path[i], path[last ? i : i + 1]));
      if (i == 0 && !values[initial]) return "state 0 is not the initial one";
      if (!last && !values[i % 3])
        return "step " + std::to_string(i + 1) + " (" + kinds[i % 3] + ") is none";
      seen = seen || values[property];
    }
    return seen ? "" : "no state has the property";
  }

 private:
  enum Root : std::size_t { time, action, adjust, initial, property };
  static constexpr std::array<const char*, 3> kinds{"time passes", "a transition fires",
                                                    "clocks are adjusted"};

  static Pattern build(const NetTimedModel& model) {
    BoolForm::emptyStore();
    const auto length = static_cast<int>(model.getSymStateLen());
    const SymState from = model.genSymState(1);
    const SymState to = model.genSymState(1 + length);
    const std::vector<BoolForm> roots{model.timeSucc(from, to), model.actionSucc(from, to),
                                      model.adjustSucc(from, to), model.fI(0, from),
                                      EctlTransl(model, 1).transl(*model.formula, 0)};
    Pattern result(2 * length, roots);
    BoolForm::emptyStore();
    return result;
  }

  static std::vector<bool> pair(const std::vector<bool>& from, const std::vector<bool>& to) {
    std::vector<bool> values{false};
    values.insert(values.end(), from.begin(), from.end());
    values.insert(values.end(), to.begin(), to.end());
    return values;
  }

  Pattern pattern_;
};

struct Values {
  PathBits path;
  std::size_t missing = 0;  // the first variable that is left out, 0 where none is
};

Values valuesOf(const Map& map, const NetTimedModel& model, const SolverAnswer& answer) {
  const auto length = static_cast<std::size_t>(model.getSymStateLen());
  Values values{PathBits(static_cast<std::size_t>(map.length) + 1), 0};
  std::size_t variable = 0;
  for (std::vector<bool>& state : values.path)
    for (std::size_t j = 0; j < length; ++j) {
      const int value = answer.value(++variable);
      const bool occurs = variable <= static_cast<std::size_t>(map.highestVariable);
      if (value == 0 && occurs && values.missing == 0) values.missing = variable;
      state.push_back(value > 0 && occurs);
    }
  return values;
}

Run runIn(const Network& net, const Property& property, Layout layout, const NetTimedModel& model,
          const Map& map, const SolverAnswer& answer) {
  const Values values = valuesOf(map, model, answer);
  std::string wrong = PathCheck(model).violation(values.path);
  try {
    if (wrong.empty()) return decode(net, property, layout, model, values.path);
  } catch (const NoRun& e) {
    wrong = e.what();
  }
  if (values.missing != 0) wrong += "; variable " + std::to_string(values.missing) + " is left out";
  throw std::runtime_error("the answer is no run of this network to this property: " + wrong);
}

// The core's sums would not hold the earliest times of this network: it writes no file then.
bool writable(const Network& net, const NetTimedModel& model) {
  return std::all_of(net.transitions.begin(), net.transitions.end(), [&](const Transition& t) {
    return t.interval.earliest < std::int64_t{1} << model.intPLen;
  });
}

}  // namespace

std::optional<Run> traced(const Network& net, const Property& property, const std::string& map,
                          const std::string& answer) {
  const Map layout = readMap(map);
  const SolverAnswer said = readAnswer(answer);
  for (const Layout kind : {Layout::core, Layout::workbench}) {
    NetTimedModel model;
    encode(net, property, kind, model);
    if (!fits(layout, model) || !writable(net, model)) continue;
    const std::int64_t variables = (std::int64_t{layout.length} + 1) * model.getSymStateLen();
    if (variables < layout.highestVariable || variables >= varNrLimit) break;
    if (said.status == SolverAnswer::unsatisfiable) return std::nullopt;
    if (said.status == SolverAnswer::unknown)
      throw std::runtime_error("the solver gave up: this is no answer");
    if (layout.highestVariable == 0)
      throw std::runtime_error(
          "the answer is to another question: the clauses of this map are "
          "plainly unsatisfiable");
    return runIn(net, property, kind, model, layout, said);
  }
  throw std::runtime_error("the variable map is of another network");
}

}  // namespace tpn
