#include "tests/endtoend/network.hpp"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

namespace {

bool proposition(const Network& net, const State& s, int number) {
  return std::any_of(net.labels.begin(), net.labels.end(), [&](const Label& label) {
    return label.proposition == number && s.locations[label.process] == label.location;
  });
}

// A stack of truth values for a postfix text.
class Truths {
 public:
  void push(bool b) { values_.push_back(b); }
  bool pop() {
    if (values_.empty()) throw std::invalid_argument("property: an operand is missing");
    const bool top = values_.back();
    values_.pop_back();
    return top;
  }
  bool empty() const { return values_.empty(); }

 private:
  std::vector<bool> values_;
};

// The digits from `at` on, which is moved behind them.
int number(const std::string& text, std::size_t& at) {
  std::string digits;
  while (at < text.size() && std::isdigit(static_cast<unsigned char>(text[at])) != 0)
    digits += text[at++];
  return std::stoi(digits);
}

void writeProcess(std::ostream& out, const Network& net, std::size_t process) {
  out << "process\n";
  for (std::size_t t = 0; t < net.transitions.size(); ++t)
    for (const Move& move : net.transitions[t].moves)
      if (move.process == process) out << t + 1 << " " << move.source << " " << move.target << "\n";
  out << "valuation\n";
  for (const Label& label : net.labels)
    if (label.process == process) out << label.location << " " << label.proposition << "\n";
  out << "endval\nend\n";
}

}  // namespace

State initialState(const Network& net) {
  return {std::vector<int>(net.processes, 0), std::vector<std::int64_t>(net.processes, 0)};
}

int largestLatest(const Network& net) {
  int largest = 0;
  for (const Transition& t : net.transitions) largest = std::max(largest, t.latest);
  return largest;
}

int largestConstant(const Network& net) {
  int largest = largestLatest(net);
  for (const Transition& t : net.transitions) largest = std::max(largest, t.earliest);
  return largest;
}

bool enabled(const Transition& t, const State& s) {
  return std::all_of(t.moves.begin(), t.moves.end(),
                     [&](const Move& move) { return s.locations[move.process] == move.source; });
}

bool inTime(const Transition& t, const State& s, Unit unit) {
  return t.latest == noLatest || std::any_of(t.moves.begin(), t.moves.end(), [&](const Move& move) {
           return s.clocks[move.process] <= t.latest * unit;
         });
}

bool mayFire(const Transition& t, const State& s, Unit unit) {
  const bool ready = std::all_of(t.moves.begin(), t.moves.end(), [&](const Move& move) {
    return s.clocks[move.process] >= t.earliest * unit;
  });
  return ready && enabled(t, s) && inTime(t, s, unit);
}

State fired(const Transition& t, const State& s) {
  State after = s;
  for (const Move& move : t.moves) {
    after.locations[move.process] = move.target;
    after.clocks[move.process] = 0;
  }
  return after;
}

bool invariant(const Network& net, const State& s, Unit unit) {
  return std::all_of(net.transitions.begin(), net.transitions.end(),
                     [&](const Transition& t) { return !enabled(t, s) || inTime(t, s, unit); });
}

bool propertyHolds(const Network& net, const State& s) {
  const std::string& text = net.property;
  Truths truths;
  for (std::size_t at = 0; at < text.size();) {
    const char item = text[at++];
    if (item == 'T') {
      truths.push(true);
    } else if (item == 'p') {
      const bool negated = at < text.size() && text[at] == '-';
      if (negated) ++at;
      truths.push(proposition(net, s, number(text, at)) != negated);
    } else if (item == '&' || item == '+') {
      const bool right = truths.pop();
      const bool left = truths.pop();
      truths.push(item == '&' ? left && right : left || right);
    } else {
      throw std::invalid_argument("property: unknown item in " + text);
    }
  }
  const bool value = truths.pop();
  if (!truths.empty()) throw std::invalid_argument("property: an operand too many in " + text);
  return value;
}

std::string networkFile(const Network& net) {
  std::ostringstream out;
  out << "network\ntransitions\n";
  for (std::size_t t = 0; t < net.transitions.size(); ++t)
    out << t + 1 << " " << net.transitions[t].earliest << " " << net.transitions[t].latest << "\n";
  out << "endtran\n";
  for (std::size_t p = 0; p < net.processes; ++p) writeProcess(out, net, p);
  out << "end\n";
  return out.str();
}
