// Where a number could not be read, what depends on it is not complained about.

#include "workbench/network/netchecks.hpp"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>

#include "workbench/network/called.hpp"

namespace tpn {

namespace {

constexpr int noLimit = -1;

std::string numbered(const std::string& what, int n) { return what + " " + std::to_string(n); }

bool has(const Field& field) { return field.value.has_value(); }

// --- Intervals. ---

// "time 4 of transition 2 vote": as far as it can be read.
std::string timeOf(const DeclarationLine& line, const char* what, int time, const Called& called) {
  const Field& transition = line.transition;
  return numbered(what, time) +
         (has(transition) ? " of " + called.transition(*transition.value) : "");
}

void checkTime(const DeclarationLine& line, bool latest, const Called& called, Report& report) {
  const Field& field = latest ? line.latest : line.earliest;
  if (!has(field)) return;
  const int time = *field.value;
  if (time < 0 && !(latest && time == noLimit))
    report.add(Rule::timeNegative, field.at,
               timeOf(line, "time", time, called) + " is negative" +
                   (latest ? "; only -1, for no limit, may be" : ""));
  if (time > mostConstant)
    report.add(Rule::timeTooLarge, field.at,
               timeOf(line, "time", time, called) + " is above " + std::to_string(mostConstant) +
                   ", the most that zervan can encode");
}

int largestLatest(const NetworkFile& file) {
  int largest = 0;
  for (const DeclarationLine& line : file.declarations)
    largest = std::max(largest, line.latest.value.value_or(0));
  return std::min(largest, static_cast<int>(mostConstant));
}

// Clocks of w bits hold constants below 2^w; those above the largest latest time come out wrong
// before that, for no single delay is longer.
void checkRange(const DeclarationLine& line, int largest, const Called& called, Report& report) {
  const int earliest = line.earliest.value.value_or(0);
  if (earliest <= largest || earliest > mostConstant) return;
  const auto bits = [](int n) { return std::bit_width(static_cast<unsigned>(n)); };
  const bool fits = bits(earliest) <= bits(2 * largest + 2);
  report.add(Rule::earliestTooLate, line.earliest.at,
             timeOf(line, "earliest time", earliest, called) + " exceeds " +
                 std::to_string(largest) + ", the largest latest time of all; zervan " +
                 (fits ? "may miss runs" : "aborts"));
}

void checkIntervals(const NetworkFile& file, const Called& called, Report& report) {
  const int largest = largestLatest(file);
  for (const DeclarationLine& line : file.declarations) {
    checkTime(line, false, called, report);
    checkTime(line, true, called, report);
    checkRange(line, largest, called, report);
    const int latest = line.latest.value.value_or(noLimit);
    const int earliest = line.earliest.value.value_or(0);
    if (latest >= 0 && earliest > latest)
      report.add(Rule::intervalEmpty, line.earliest.at,
                 timeOf(line, "earliest time", earliest, called) + " is above the latest, " +
                     std::to_string(latest) + "; the transition never happens");
  }
}

// --- Transitions. ---

class Transitions {
 public:
  Transitions(const NetworkFile& file, const Called& called, Report& report)
      : file_(file), called_(called), report_(report) {}

  void check(const Checkpoint& checkpoint) {
    for (const DeclarationLine& line : file_.declarations) declare(line.transition);
    for (std::size_t p = 0; p < file_.processes.size(); ++p) {
      checkpoint();
      use(file_.processes[p], number(p));
    }
    if (file_.complete && usesKnown_) reportUnused();
  }

 private:
  int count() const { return static_cast<int>(file_.declarations.size()); }

  void declare(const Field& field) {
    if (!has(field)) {
      declarationsKnown_ = false;
      return;
    }
    const int t = *field.value;
    const bool inRange = t >= 1 && t <= count();
    const auto [first, isNew] = declared_.emplace(t, field.at);
    declarationsKnown_ = declarationsKnown_ && inRange && isNew;
    if (!inRange)
      report_.add(Rule::transitionNumber, field.at,
                  called_.transition(t) + ": the numbers have to go from 1 to " +
                      std::to_string(count()) + ", the number of these lines");
    else if (!isNew)
      report_.add(Rule::transitionTwice, field.at,
                  called_.transition(t) + " has an interval already, in line " +
                      std::to_string(first->second.line));
  }

  // Declared, or meant by a declaration that went wrong.
  bool isKnown(int t) const {
    return declared_.count(t) != 0 || (!declarationsKnown_ && t >= 1 && t <= count());
  }

  void use(const ProcessBlock& block, int process) {
    std::map<int, Place> moves;
    for (const MoveLine& line : block.moves) {
      if (!has(line.transition)) {
        usesKnown_ = false;
        continue;
      }
      const int t = *line.transition.value;
      used_.insert(t);
      const auto [first, isNew] = moves.emplace(t, line.transition.at);
      if (!isKnown(t))
        report_.add(Rule::transitionUndeclared, line.transition.at,
                    called_.transition(t) + " has no interval; zervan lets it never happen");
      else if (!isNew)
        report_.add(Rule::moveTwice, line.transition.at,
                    called_.process(process) + " has a move for " + called_.transition(t) +
                        " already, in line " + std::to_string(first->second.line));
    }
  }

  void reportUnused() {
    for (const auto& [t, at] : declared_)
      if (used_.count(t) == 0)
        report_.add(Rule::transitionUnused, at,
                    called_.transition(t) + " is used by no process; zervan stops at it");
  }

  const NetworkFile& file_;
  const Called& called_;
  Report& report_;
  std::map<int, Place> declared_;  // where first
  std::set<int> used_;
  bool declarationsKnown_ = true;
  bool usesKnown_ = true;
};

// --- Locations. ---

class Places {
 public:
  Places(const ProcessBlock& block, int process, const Called& called, Report& report)
      : block_(block), process_(process), called_(called), report_(report) {}

  void check() {
    for (const MoveLine& line : block_.moves) {
      note(line.source);
      note(line.target);
    }
    for (const LabelLine& line : block_.labels) checkLabels(line);
    if (!known_ || places_.empty()) return;
    if (places_.count(0) == 0)
      report_.add(Rule::locationZero, block_.at,
                  called_.process(process_) + " has no location 0, where it starts");
    else
      checkNumbering();
  }

 private:
  void note(const Field& field) {
    if (!has(field)) {
      known_ = false;
    } else if (*field.value < 0) {
      known_ = false;
      report_.add(Rule::locationNegative, field.at, located(*field.value) + " is negative");
    } else {
      places_.emplace(*field.value, field.at);
    }
  }

  void checkLabels(const LabelLine& line) {
    for (const Field& q : line.propositions)
      if (has(q) && *q.value < 0)
        report_.add(Rule::propositionNegative, q.at,
                    called_.proposition(*q.value) + " is negative, which no property can say");
    if (!has(line.location) || !known_) return;
    const int location = *line.location.value;
    const bool only = places_.empty() && location == 0;  // a process that never moves is in 0
    if (places_.count(location) == 0 && !only)
      report_.add(Rule::labelUnknownLocation, line.location.at,
                  called_.location(process_, location) + " occurs in no move of " +
                      called_.process(process_));
  }

  // zervan keeps as many bits of a location as their count needs.
  void checkNumbering() {
    const auto count = static_cast<unsigned>(places_.size());
    const unsigned mask = (1U << std::bit_width(count - 1)) - 1;
    std::set<unsigned> taken;
    for (const auto& [location, at] : places_) {
      const unsigned kept = static_cast<unsigned>(location) & mask;
      if (taken.insert(kept).second) continue;
      report_.add(Rule::locationAlias, at,
                  located(location) + ": zervan takes it for " + std::to_string(kept) +
                      "; number the " + std::to_string(count) + " locations from 0 to " +
                      std::to_string(count - 1));
      return;
    }
    const auto& [largest, at] = *places_.rbegin();
    if (static_cast<unsigned>(largest) >= count)
      report_.add(Rule::locationGap, at,
                  located(largest) + ", but it has " + std::to_string(count) +
                      " only; number them from 0 to " + std::to_string(count - 1));
  }

  std::string located(int location) const {
    return called_.location(process_, location) + " of " + called_.process(process_);
  }

  const ProcessBlock& block_;
  int process_;  // its number
  const Called& called_;
  Report& report_;
  std::map<int, Place> places_;  // where first
  bool known_ = true;
};

// --- The network. ---

Transition transitionOf(const DeclarationLine& line) {
  Transition transition;
  transition.interval.earliest = *line.earliest.value;
  if (*line.latest.value != noLimit) transition.interval.latest = *line.latest.value;
  return transition;
}

Process processOf(const ProcessBlock& block) {
  Process process;
  process.locations.insert(0);
  for (const MoveLine& line : block.moves)
    process.locations.insert({*line.source.value, *line.target.value});
  for (const LabelLine& line : block.labels)
    for (const Field& q : line.propositions) process.labels[*line.location.value].insert(*q.value);
  return process;
}

}  // namespace

void checkNumbers(const NetworkFile& file, Report& report, const Checkpoint& checkpoint) {
  const Called called(file.names);
  checkIntervals(file, called, report);
  checkpoint();
  Transitions(file, called, report).check(checkpoint);
  for (std::size_t p = 0; p < file.processes.size(); ++p) {
    checkpoint();
    Places(file.processes[p], number(p), called, report).check();
  }
}

Network networkOf(const NetworkFile& file) {
  Network net;
  net.title = file.title;
  net.transitions.resize(file.declarations.size());
  const auto transition = [&net](const Field& t) -> Transition& {
    return net.transitions.at(static_cast<std::size_t>(*t.value) - 1);
  };
  for (const DeclarationLine& line : file.declarations)
    transition(line.transition) = transitionOf(line);
  for (std::size_t p = 0; p < file.processes.size(); ++p) {
    for (const MoveLine& line : file.processes[p].moves)
      transition(line.transition).moves.push_back({p, *line.source.value, *line.target.value});
    net.processes.push_back(processOf(file.processes[p]));
  }
  return net;
}

}  // namespace tpn
