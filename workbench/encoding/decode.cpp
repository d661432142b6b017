#include "workbench/encoding/decode.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "workbench/runs/replay.hpp"
#include "workbench/runs/schedule.hpp"

namespace tpn {

namespace {

// One state as numbers; clocks in units of the last fractional bit.
struct Decoded {
  std::vector<std::int64_t> locations;  // codes
  std::vector<std::int64_t> clocks;
};

// The core's state over variables 1, 2, ...: it knows where the bits of each part lie.
class StateReader {
 public:
  explicit StateReader(const NetTimedModel& model)
      : model_(model), variables_(model.genSymState(1)) {}

  Decoded read(const std::vector<bool>& bits) const {
    Decoded state;
    for (std::size_t p = 1; p < model_.nrVertBits.size(); ++p)
      state.locations.push_back(
          number(bits, variables_.loc, model_.firstVertBit[p], model_.nrVertBits[p]));
    const ClockVal& clocks = variables_.clocks;
    for (int p = 1; p <= clocks.n; ++p)
      state.clocks.push_back(number(bits, clocks.intPart(p), 0, clocks.intPLen) << clocks.frPLen |
                             number(bits, clocks.frPart(p), 0, clocks.frPLen));
    return state;
  }

 private:
  static std::int64_t number(const std::vector<bool>& bits, const BoolFormVect& variables, int from,
                             int width) {
    std::int64_t n = 0;
    for (int b = 0; b < width; ++b) {
      const auto variable = static_cast<std::size_t>(variables[from + b].nr);
      n |= std::int64_t{bits.at(variable - 1)} << b;
    }
    return n;
  }

  const NetTimedModel& model_;
  SymState variables_;
};

class Decoder {
 public:
  Decoder(const Network& net, LocationCoding coding, const NetTimedModel& model)
      : net_(net), model_(model), reader_(model), codes_(net, coding), at_(initialLocations(net)) {}

  const Locations& at() const { return at_; }

  // What fired between two states; moves on to the second.
  std::size_t fire(const std::vector<bool>& before, const std::vector<bool>& after) {
    ++count_;
    const Decoded from = reader_.read(before);
    const Decoded to = reader_.read(after);
    const std::vector<bool> changed = changes(from, to);
    const auto count = std::count(changed.begin(), changed.end(), true);
    for (std::size_t t = 0; t < net_.transitions.size(); ++t) {
      const Transition& transition = net_.transitions[t];
      if (changesAmong(transition, changed) != count || !explains(transition, from, to)) continue;
      for (const Move& move : net_.transitions[t].moves) at_[move.process] = move.target;
      return t;
    }
    throw NoRun("no transition does what action " + std::to_string(count_) + " of it does");
  }

 private:
  // [process]: its location or its clock is another.
  static std::vector<bool> changes(const Decoded& from, const Decoded& to) {
    std::vector<bool> changed;
    for (std::size_t p = 0; p < from.clocks.size(); ++p)
      changed.push_back(from.locations[p] != to.locations[p] || from.clocks[p] != to.clocks[p]);
    return changed;
  }

  static std::ptrdiff_t changesAmong(const Transition& t, const std::vector<bool>& changed) {
    return std::count_if(t.moves.begin(), t.moves.end(),
                         [&](const Move& move) { return changed[move.process]; });
  }

  // As far as its own processes go.
  bool explains(const Transition& t, const Decoded& from, const Decoded& to) const {
    for (const Move& move : t.moves) {
      if (at_[move.process] != move.source || to.clocks[move.process] != 0) return false;
      if (codeIn(move.process, move.target) != to.locations[move.process]) return false;
    }
    return inTime(t, from);
  }

  bool inTime(const Transition& t, const Decoded& from) const {
    const auto clock = [&](const Move& a, const Move& b) {
      return from.clocks[a.process] < from.clocks[b.process];
    };
    const Move& resetLast = *std::min_element(t.moves.begin(), t.moves.end(), clock);
    const std::int64_t least = from.clocks[resetLast.process];
    return least >= t.interval.earliest << model_.frPLen &&
           (!t.interval.latest || least <= *t.interval.latest << model_.frPLen);
  }

  // As far as its bits can say.
  std::int64_t codeIn(std::size_t process, int location) const {
    const std::int64_t code = codes_.of(process, location);
    return code & ((std::int64_t{1} << model_.nrVertBits[process + 1]) - 1);
  }

  const Network& net_;
  const NetTimedModel& model_;
  StateReader reader_;
  LocationCodes codes_;
  Locations at_;
  int count_ = 0;
};

}  // namespace

std::vector<int> firstVariables(const NetTimedModel& model, int k) {
  std::vector<int> firsts;
  for (std::int64_t i = 0; i <= k; ++i)
    firsts.push_back(static_cast<int>(1 + i * model.getSymStateLen()));
  return firsts;
}

Run decode(const Network& net, const Property& property, LocationCoding coding,
           const NetTimedModel& model, const PathBits& path) {
  Decoder decoder(net, coding, model);
  std::vector<std::size_t> fired;
  std::optional<std::size_t> goal;
  const auto look = [&] {
    const std::set<int> propositions = propositionsAt(net, decoder.at());
    if (!goal && holds(property, StateFacts{propositions, decoder.at(), false}))
      goal = fired.size();
  };
  look();
  for (std::size_t i = 1; i + 1 < path.size(); i += 3) {
    fired.push_back(decoder.fire(path[i], path[i + 1]));
    look();
  }
  if (!goal) throw NoRun("no state of it has the property");
  const std::optional<Run> run = schedule(net, fired, *goal);
  if (!run) throw NoRun("there are no times for its transitions");
  const Replay replayed = replay(net, property, *run);
  if (!replayed.complaint.empty()) throw NoRun("it does not replay: " + replayed.complaint);
  return *run;
}

Run decodeFound(const Network& net, const Property& property, const NetTimedModel& model,
                const PathBits& path, int k) {
  try {
    return decode(net, property, LocationCoding::workbench, model, path);
  } catch (const NoRun& e) {
    throw std::runtime_error(
        "this is a bug, please report it with both files: the solver's path for k = " +
        std::to_string(k) + " is no run: " + e.what());
  }
}

}  // namespace tpn
