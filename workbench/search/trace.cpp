#include "workbench/search/trace.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "translation/reachtran.hpp"
#include "workbench/encoding/decode.hpp"
#include "workbench/encoding/encode.hpp"
#include "workbench/encoding/pattern.hpp"
#include "workbench/network/plain.hpp"
#include "workbench/solvers/answer.hpp"

namespace tpn {

namespace {

// What a variable map says.
struct Map {
  std::vector<int> locationBits;
  int clocks = 0;
  int integerBits = 0;
  int fractionBits = 0;
  int length = 0;
  int highestVariable = 0;  // 0: the property is false everywhere
  int transitions = 0;
  int invariantTerms = 0;  // a signed 32-bit number that has wrapped where there are too many
};

[[noreturn]] void badMap(int line) {
  throw std::runtime_error("the variable map is broken in line " + std::to_string(line));
}

int mapNumber(const std::string& word, int line) {
  int n = 0;
  const char* const end = word.data() + word.size();
  const auto [next, failure] = std::from_chars(word.data(), end, n);
  if (failure != std::errc() || next != end) badMap(line);
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
  constexpr std::array<std::size_t, 6> counts{1, 0, 3, 1, 1, 2};
  const MapLines lines = mapLines(text);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::size_t count = i == 1 ? static_cast<std::size_t>(lines[0][0]) : counts[i];
    const auto negative =
        std::count_if(lines[i].begin(), lines[i].end(), [](int n) { return n < 0; });
    const bool mayWrap = i == 5 && negative == 1 && lines[i].back() < 0;
    if (lines[i].size() != count || (negative > 0 && !mayWrap)) badMap(static_cast<int>(i) + 1);
  }
  if (lines[3][0] < 1) badMap(4);
  return {lines[1],    lines[2][0], lines[2][1], lines[2][2],
          lines[3][0], lines[4][0], lines[5][0], lines[5][1]};
}

bool fits(const Map& map, const NetTimedModel& model) {
  return std::equal(map.locationBits.begin(), map.locationBits.end(), model.nrVertBits.begin() + 1,
                    model.nrVertBits.end()) &&
         map.clocks == model.nrOfClocks && map.integerBits == model.intPLen &&
         map.fractionBits == model.frPLen && map.transitions == model.nrOfTrans;
}

// The formulas of a path over two states: what step i mod 3 asks, the initial state, the property.
class PathCheck {
 public:
  // Of paths of that length. One step is no action: such a path can be of a network whose actions
  // cannot be written down, their earliest times beyond the clocks' range.
  PathCheck(const NetTimedModel& model, int length) : pattern_(build(model, length)) {}

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

  static Pattern build(const NetTimedModel& model, int k) {
    BoolForm::emptyStore();
    const auto length = static_cast<int>(model.getSymStateLen());
    const SymState from = model.genSymState(1);
    const SymState to = model.genSymState(1 + length);
    const BoolForm timePasses = model.timeSucc(from, to);
    const BoolForm fires = k > 1 ? model.actionSucc(from, to) : BoolForm(false);
    const BoolForm adjusts = model.adjustSucc(from, to);
    const BoolForm begins = model.fI(0, from);
    const BoolForm holds = EctlTransl(model, 1).transl(*model.formula, 0);
    Pattern result(2 * length, {timePasses, fires, adjusts, begins, holds});
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

// The invariant terms of all steps of a path: those of the target state, of time and action steps.
int invariantTerms(const NetTimedModel& model, int k) {
  BoolForm::emptyStore();
  model.nrInvTerms = 0;
  model.invariant(model.genSymState(1));
  BoolForm::emptyStore();
  const std::int64_t steps = (std::int64_t{k} + 2) / 3 + (std::int64_t{k} + 1) / 3;
  return static_cast<int>(static_cast<unsigned>(steps) * static_cast<unsigned>(model.nrInvTerms));
}

// The network, laid out in one of the two ways, as the map describes it.
class TracedPath {
 public:
  TracedPath(const Network& net, const Property& property, LocationCoding coding, const Map& map)
      : net_(net), property_(property), coding_(coding), map_(map) {
    encode(net, property, coding, model_);
  }

  // Can the map be this network's?
  bool fits() const {
    return tpn::fits(map_, model_) && writable() && variables() >= map_.highestVariable &&
           variables() < varNrLimit && map_.invariantTerms == invariantTerms(model_, map_.length);
  }

  // The run in the answer. Throws NoRun.
  Run run(const SolverAnswer& answer) const {
    int missing = 0;  // the first variable that is left out, 0 where none is
    const auto value = [&](int variable) {
      const int said = answer.value(static_cast<std::size_t>(variable));
      const bool occurs = variable <= map_.highestVariable;
      if (said == 0 && occurs && missing == 0) missing = variable;
      return said > 0 && occurs;
    };
    const PathBits path = pathBits(firstVariables(model_, map_.length),
                                   static_cast<int>(model_.getSymStateLen()), value);
    std::string wrong = PathCheck(model_, map_.length).violation(path);
    try {
      if (wrong.empty()) return decode(net_, property_, coding_, model_, path);
    } catch (const NoRun& e) {
      wrong = e.what();
    }
    if (missing != 0) wrong += "; variable " + std::to_string(missing) + " is left out";
    throw NoRun("the answer is no run of this network to this property: " + wrong);
  }

 private:
  // The core writes no file where an action's earliest time is beyond the range of the clocks; a
  // path of one step has no action.
  bool writable() const {
    return map_.length == 1 ||
           std::all_of(net_.transitions.begin(), net_.transitions.end(), [&](const Transition& t) {
             return t.interval.earliest < std::int64_t{1} << model_.intPLen;
           });
  }
  std::int64_t variables() const {
    return (std::int64_t{map_.length} + 1) * model_.getSymStateLen();
  }

  const Network& net_;
  const Property& property_;
  LocationCoding coding_;
  const Map& map_;
  NetTimedModel model_;
};

Verdict foundIn(Run run, int length) {
  Verdict v;
  v.answer = Verdict::reachable;
  v.bound = length;
  v.run = std::move(run);
  return v;
}

Verdict noneIn(int length) {
  Verdict v;
  v.answer = Verdict::unreached;
  v.reason =
      "the answer is about runs of " + std::to_string(length) + " steps, not about shorter ones";
  return v;
}

}  // namespace

// Both layouts may fit the map, as it has no location numbers. What the bits mean as a run tells
// them apart, and where they are a run in both, each is one of the network.
Verdict traced(const Network& network, const Property& asked, const std::string& map,
               const std::string& answer) {
  const Network net = isPlain(asked) ? network : labelledFor(network, asked);
  const Property property = plain(net, asked);
  const Map of = readMap(map);
  const SolverAnswer said = readAnswer(answer);
  std::optional<NoRun> complaint;
  for (const LocationCoding coding : {LocationCoding::core, LocationCoding::workbench}) {
    const TracedPath path(net, property, coding, of);
    if (!path.fits()) continue;
    if (said.status == SolverAnswer::unsatisfiable) return noneIn(of.length);
    if (said.status == SolverAnswer::unknown)
      throw std::runtime_error("the solver gave up: this is no answer");
    if (of.highestVariable == 0)
      throw std::runtime_error(
          "the answer is to another question: the clauses of this map are "
          "plainly unsatisfiable");
    try {
      return foundIn(path.run(said), of.length);
    } catch (const NoRun& e) {
      if (!complaint) complaint = e;
    }
  }
  if (complaint) throw NoRun(*complaint);
  throw std::runtime_error("the variable map is of another network");
}

}  // namespace tpn
