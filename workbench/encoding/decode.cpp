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

class Reader {
 public:
  explicit Reader(const std::vector<bool>& bits) : bits_(bits) {}

  std::int64_t number(int width) {
    std::int64_t n = 0;
    for (int b = 0; b < width; ++b) n |= std::int64_t{bits_.at(next_++)} << b;
    return n;
  }

 private:
  const std::vector<bool>& bits_;
  std::size_t next_ = 0;
};

// docs/formats.md, The clause file, has the order.
Decoded read(const NetTimedModel& model, const std::vector<bool>& bits) {
  Reader reader(bits);
  Decoded state;
  for (std::size_t p = 1; p < model.nrVertBits.size(); ++p)
    state.locations.push_back(reader.number(model.nrVertBits[p]));
  reader.number(model.intPLen);  // the delay
  for (int p = 0; p < model.nrOfClocks; ++p)
    state.clocks.push_back(reader.number(model.intPLen) << model.frPLen);
  reader.number(model.frPLen);  // the split value
  reader.number(model.frPLen);  // the delay
  for (std::int64_t& clock : state.clocks) clock += reader.number(model.frPLen);
  return state;
}

class Decoder {
 public:
  Decoder(const Network& net, Layout layout, const NetTimedModel& model)
      : net_(net), model_(model), codes_(net, layout), at_(initialLocations(net)) {}

  const Locations& at() const { return at_; }

  // What fired between two states; moves on to the second.
  std::size_t fire(const std::vector<bool>& before, const std::vector<bool>& after) {
    ++count_;
    const Decoded from = read(model_, before);
    const Decoded to = read(model_, after);
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
    const Move& youngest = *std::min_element(t.moves.begin(), t.moves.end(), clock);
    const std::int64_t least = from.clocks[youngest.process];
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
  LocationCodes codes_;
  Locations at_;
  int count_ = 0;
};

}  // namespace

Run decode(const Network& net, const Property& property, Layout layout, const NetTimedModel& model,
           const PathBits& path) {
  Decoder decoder(net, layout, model);
  std::vector<std::size_t> fired;
  std::optional<std::size_t> goal;
  const auto look = [&] {
    if (!goal && holds(property, propositionsAt(net, decoder.at()))) goal = fired.size();
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
    return decode(net, property, Layout::workbench, model, path);
  } catch (const NoRun& e) {
    throw std::runtime_error(
        "this is a bug, please report it with both files: the solver's path for k = " +
        std::to_string(k) + " is no run: " + e.what());
  }
}

}  // namespace tpn
