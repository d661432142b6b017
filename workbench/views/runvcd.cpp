// A run as a value change dump (IEEE 1364), for GTKWave and the like.
//
// How times become ticks: vcdscale.hpp.

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <optional>
#include <string_view>

#include "workbench/base/printable.hpp"
#include "workbench/network/account.hpp"
#include "workbench/runs/deadend.hpp"
#include "workbench/views/vcdscale.hpp"
#include "workbench/views/viewparts.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

namespace {

// 10^-digits seconds.
std::string tickName(int digits) {
  if (digits < 0) return "1 ns";
  static constexpr std::array<const char*, 6> units{"s", "ms", "us", "ns", "ps", "fs"};
  static constexpr std::array<const char*, 3> multiples{"1 ", "10 ", "100 "};
  const int unit = (digits + 2) / 3;
  return std::string(multiples.at(static_cast<std::size_t>(3 * unit - digits))) +
         units.at(static_cast<std::size_t>(unit));
}

std::string binary(std::int64_t value) {
  std::string digits;
  do {
    digits.insert(digits.begin(), static_cast<char>('0' + value % 2));
    value /= 2;
  } while (value != 0);
  return "b" + digits + " ";
}

// The shortest decimal that reads back as the same double.
std::string real(const Rational& r) {
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), r.value()).ptr;
  return "r" + std::string(buffer.data(), end) + " ";
}

// Declares signals, then takes values and writes down those that are new.
class Dump {
 public:
  std::size_t declare(const std::string& type, int bits, const std::string& name) {
    const std::size_t signal = values_.size();
    text_ +=
        "$var " + type + " " + std::to_string(bits) + " " + code(signal) + " " + name + " $end\n";
    values_.emplace_back();
    return signal;
  }
  void enter(const std::string& scope) { text_ += "$scope module " + scope + " $end\n"; }
  void leave() { text_ += "$upscope $end\n"; }
  void raw(const std::string& line) { text_ += line + "\n"; }

  // `value` as it stands before the signal's code.
  void set(std::size_t signal, const std::string& value) {
    if (values_[signal] == value) return;
    values_[signal] = value;
    text_ += value + code(signal) + "\n";
  }
  void trigger(std::size_t event) { text_ += "1" + code(event) + "\n"; }

  const std::string& text() const { return text_; }

 private:
  // A short name of printable characters, as the format wants it.
  static std::string code(std::size_t signal) {
    std::string result;
    for (std::size_t rest = signal + 1; rest > 0; rest = (rest - 1) / 94)
      result += static_cast<char>('!' + (rest - 1) % 94);
    return result;
  }

  std::string text_;
  std::vector<std::string> values_;
};

constexpr std::array<std::string_view, 5> ownSignals{"step", "transition", "transition_name",
                                                     "fired", "property"};

// What a viewer takes for a name, in place of one that may be anything; with the number where
// letters are lost or the name is that of a signal of ours, so that two stay two.
template <class Key>
std::string identifier(const std::map<Key, std::string>& names, const Key& key,
                       const std::string& prefix, int number) {
  const auto named = names.find(key);
  if (named == names.end()) return prefix + std::to_string(number);
  const bool taken =
      std::find(ownSignals.begin(), ownSignals.end(), named->second) != ownSignals.end();
  if (!taken && writtenName(named->second) == named->second) return named->second;
  std::string clean = named->second;
  const auto isWord = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
  };
  std::replace_if(
      clean.begin(), clean.end(), [&](char c) { return !isWord(c); }, '_');
  return "_" + clean + "_" + std::to_string(number);
}

// The value of a text, without blanks.
std::string word(const std::string& name) {
  std::string text = printable(name);
  std::replace(text.begin(), text.end(), ' ', '_');
  return "s" + text + " ";
}

// The signals of a network, and how a state is written to them.
class Signals {
 public:
  Signals(Dump& dump, const Network& net, const Property& property)
      : dump_(dump), net_(net), property_(property) {
    dump_.enter("network");
    step_ = dump_.declare("integer", 32, "step");
    transition_ = dump_.declare("integer", 32, "transition");
    if (!net.names.transitions.empty()) fires_ = dump_.declare("string", 1, "transition_name");
    fired_ = dump_.declare("event", 1, "fired");
    holds_ = dump_.declare("wire", 1, "property");
    for (const int q : propositions(net))
      wires_[q] = dump_.declare("wire", 1, identifier(net.names.propositions, q, "p", q));
    for (std::size_t p = 0; p < net.processes.size(); ++p) {
      dump_.enter(identifier(net.names.processes, p, "process_", number(p)));
      locations_.push_back(dump_.declare("integer", 32, "location"));
      const auto isHere = [p](const auto& named) { return named.first.first == p; };
      if (std::any_of(net.names.locations.begin(), net.names.locations.end(), isHere))
        places_[p] = dump_.declare("string", 1, "location_name");
      clocks_.push_back(dump_.declare("real", 64, "clock"));
      dump_.leave();
    }
    dump_.leave();
  }

  void fire(std::size_t step, int transition) {
    dump_.set(step_, binary(static_cast<std::int64_t>(step)));
    dump_.set(transition_, binary(transition));
    if (fires_)
      dump_.set(*fires_, transition == 0 ? word("-")
                                         : word(transitionName(
                                               net_, static_cast<std::size_t>(transition) - 1)));
    if (step > 0) dump_.trigger(fired_);
  }

  void state(const TimedState& state) {
    const std::set<int> now = propositionsAt(net_, state.locations);
    dump_.set(holds_, holds(net_, property_, state) ? "1" : "0");
    for (const auto& [q, wire] : wires_) dump_.set(wire, now.contains(q) ? "1" : "0");
    for (std::size_t p = 0; p < locations_.size(); ++p)
      dump_.set(locations_[p], binary(state.locations[p]));
    for (const auto& [p, place] : places_)
      dump_.set(place, word(locationName(net_, p, state.locations[p])));
    clocks(state.clocks, 0);
  }

  void clocks(const std::vector<Rational>& clocks, const Rational& delay) {
    for (std::size_t p = 0; p < clocks_.size(); ++p) dump_.set(clocks_[p], real(clocks[p] + delay));
  }

 private:
  Dump& dump_;
  const Network& net_;
  const Property& property_;
  std::size_t step_ = 0;
  std::size_t transition_ = 0;  // the number of the last one to fire; 0 before the first
  std::size_t fired_ = 0;       // an event: tells apart two steps by one transition
  std::size_t holds_ = 0;
  std::optional<std::size_t> fires_;           // its name, where transitions have any
  std::map<int, std::size_t> wires_;           // by proposition
  std::map<std::size_t, std::size_t> places_;  // by process: names of locations
  std::vector<std::size_t> locations_;
  std::vector<std::size_t> clocks_;
};

// A "$" could end a comment.
std::string remark(std::string text) {
  text = printable(text);
  std::replace(text.begin(), text.end(), '$', '_');
  return "  " + text;
}

// What stands before the signals.
void writeHead(Dump& dump, const Network& net, const VcdScale& scale,
               const std::vector<std::string>& goal) {
  const std::string slots = std::to_string(scale.slots);
  dump.raw("$comment");
  dump.raw(remark(net.title));
  for (const std::string& line : goal) dump.raw(remark(line));
  dump.raw("  One time unit is " + std::to_string(scale.ticks()) + " ticks" +
           (scale.digits < 0 ? "" : ": shown as one second") + ".");
  dump.raw("  Times are exact: floor(tick / " + slots + ") / " + std::to_string(scale.parts) + ".");
  dump.raw("  Of the " + slots +
           " ticks of an instant, tick 0 shows the clocks when time has passed,");
  dump.raw("  tick 1 its first step, tick 2 the second, which waits no longer, and so on.");
  dump.raw("$end");
  dump.raw("$timescale " + tickName(scale.digits) + " $end");
}

std::vector<std::string> goalLines(const Network& net, const Property& property, const Run& run,
                                   const Replay& replay) {
  if (asksNothing(property)) return {};
  std::vector<std::string> lines{"Goal: " + shortProperty(property, 400) + ", after step " +
                                 std::to_string(run.goal) + "."};
  if (leavesOpen(property))
    lines.push_back(
        "Held: " + shortened(goalAccount(net, property, replay.states[run.goal]), ", ", 24) + ".");
  return lines;
}

}  // namespace

std::string runVcd(const Network& net, const Property& property, const Run& run) {
  const Replay replay = replayed(net, property, run);
  const VcdScale scale = vcdScaleFor(replay.times);
  Dump dump;
  writeHead(dump, net, scale, goalLines(net, property, run, replay));
  Signals signals(dump, net, property);
  dump.raw("$enddefinitions $end\n#0\n$dumpvars");
  signals.fire(0, 0);
  signals.state(replay.states[0]);
  dump.raw("$end");

  std::int64_t slot = 0;
  for (std::size_t i = 0; i < run.steps.size(); ++i) {
    const Rational& now = replay.times[i + 1];
    if (now != replay.times[i]) {
      slot = 0;
      dump.raw("#" + std::to_string(scale.tick(now, slot)));
      signals.clocks(replay.states[i].clocks, run.steps[i].delay);
    }
    dump.raw("#" + std::to_string(scale.tick(now, ++slot)));
    signals.fire(i + 1, number(run.steps[i].transition));
    signals.state(replay.states[i + 1]);
  }
  // A last tick, so that viewers show the last state at all.
  dump.raw("#" + std::to_string(scale.tick(replay.times.back(), scale.slots - 1)));
  return dump.text();
}

}  // namespace tpn
