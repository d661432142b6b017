#include "workbench/walking/walk.hpp"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <cstring>
#include <exception>
#include <fstream>
#include <istream>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "workbench/base/spelling.hpp"
#include "workbench/network/shown.hpp"
#include "workbench/runs/deadend.hpp"
#include "workbench/runs/replay.hpp"
#include "workbench/views/views.hpp"
#include "workbench/walking/statetext.hpp"
#include "workbench/walking/walkcommands.hpp"

namespace tpn {

namespace {

std::string plural(std::size_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

bool isNumber(const std::string& word) {
  return word.find_first_not_of("0123456789") == std::string::npos;
}

// A number too long to be one is larger than any that is asked for.
std::size_t value(const std::string& digits) {
  std::size_t result = 0;
  std::istringstream(digits) >> result;
  return result;
}

// --- Views. ---

// What went wrong, or empty.
std::string written(const std::string& file, const std::string& text) {
  errno = 0;
  std::ofstream out(file, std::ios::binary);
  out << text;
  out.close();
  return out ? "" : "cannot write '" + file + "': " + std::strerror(errno);
}

// --- A session. ---

class Session {
 public:
  Session(const Network& net, std::ostream& out, const Look& look, FileVeto veto = nullptr)
      : net_(net), out_(out), look_(look), veto_(std::move(veto)), past_(unmoved(net)) {}

  // Does what the line says; what is wrong with it, or empty. Then `changed` tells whether the
  // state is another, `ended` whether this was the last command.
  std::string perform(const std::string& line) {
    changed = false;
    const Words command = commandWords(line);
    if (command.empty()) return "";
    const std::string& verb = command.front();
    if (isNumber(verb)) return fire(command);
    if (const auto named = transitionNamed(line)) {
      Words fired = commandWords(line.substr(named->length));
      fired.insert(fired.begin(), std::to_string(number(named->transition)));
      return fire(fired);
    }
    if (verb == "undo") return undo(command);
    if (const RunView* view = runViewCalled(verb)) return print(*view, fileIn(line));
    return plain(command);
  }

  void show() const {
    out_ << "time " << past_.times.back().text() << ", after " << plural(steps_.size(), "step")
         << "\n";
    showState(net_, state(), look_.width, out_);
  }

  Run run() const { return {steps_, steps_.size()}; }

  bool changed = false;
  bool ended = false;

 private:
  const TimedState& state() const { return past_.states.back(); }

  std::string unknown(const std::string& verb) const {
    std::vector<std::string> names;
    for (const auto& [transition, name] : net_.names.transitions)
      names.push_back(writtenName(name));
    const std::string near = nearest(verb, names);
    return "unknown command '" + verb + "'; " +
           (near.empty() ? "try help" : "there is the transition " + near);
  }

  std::string plain(const Words& command) {
    const std::string& verb = command.front();
    if (!isCommand(verb)) return unknown(verb);
    if (command.size() > 1) return verb + " takes nothing";
    if (verb == "show") show();
    if (verb == "help") out_ << helpText();
    ended = verb == "quit";
    return "";
  }

  // The transition that a line begins with the name of. What is no command of another kind may be
  // written without braces.
  struct Named {
    std::size_t transition = 0;
    std::size_t length = 0;  // of the line up to behind the name
  };
  std::optional<Named> transitionNamed(const std::string& line) const {
    const std::size_t begin = std::min(line.find_first_not_of(" \t"), line.size());
    const auto read = readName(std::string_view(line).substr(begin));
    if (!read || (line[begin] != '{' && isCommand(read->name))) return std::nullopt;
    for (const auto& [transition, name] : net_.names.transitions)
      if (name == read->name) return Named{transition, begin + read->length};
    return std::nullopt;
  }

  std::string fire(const Words& command) {
    if (command.size() > 2) return "a transition takes one delay at most";
    const std::size_t chosen = value(command[0]);
    if (chosen < 1 || chosen > net_.transitions.size())
      return "there is no transition " + command[0];
    Step step{0, chosen - 1};
    if (command.size() == 2) {
      const auto delay = Rational::read(command[1]);
      if (!delay) return "'" + command[1] + "' is no delay; write 2, 0.5 or 7/3";
      step.delay = *delay;
    } else if (const auto delays = window(net_, state(), step.transition)) {
      step.delay = delays->from;
    }
    return take(step);
  }

  // When a transition that did not fire could, to go on with after why it did not.
  std::string when(std::size_t transition) const {
    if (!enabled(net_.transitions[transition], state().locations)) return "";
    if (const auto delays = window(net_, state(), transition))
      return "; it fires with " + delaysText(delays);
    return "; it cannot fire " + hindrance(net_, state(), transition);
  }

  std::string take(const Step& step) {
    std::string complaint = extend(net_, step, past_);
    if (!complaint.empty()) return complaint + when(step.transition);
    steps_.push_back(step);
    try {
      // What is shown next has to fit as well: a delay of 1/9223372036854775807 does, 2 less it
      // does not.
      windows(net_, state());
    } catch (const std::overflow_error& error) {
      takeBack();
      return error.what();
    }
    changed = true;
    return "";
  }

  std::string undo(const Words& command) {
    if (command.size() > 2 || (command.size() == 2 && !isNumber(command[1])))
      return "undo takes a count at most";
    const std::size_t count = command.size() == 2 ? value(command[1]) : 1;
    if (count > steps_.size())
      return "there " + std::string(steps_.size() == 1 ? "is" : "are") + " only " +
             plural(steps_.size(), "step") + " to undo";
    for (std::size_t i = 0; i < count; ++i) takeBack();
    changed = count > 0;
    return "";
  }

  void takeBack() {
    steps_.pop_back();
    past_.states.pop_back();
    past_.times.pop_back();
  }

  std::string print(const RunView& view, const std::string& file) {
    try {
      std::string refused = veto_ && !file.empty() ? veto_(file) : "";
      if (!refused.empty()) return refused;
      const std::string text =
          view.print(net_, anything(), run(), file.empty() ? look_ : Look{.all = look_.all});
      if (!file.empty()) return written(file, text);
      out_ << text;
      return "";
    } catch (const std::exception& error) {  // times too fine for this view: the walk goes on
      return error.what();
    }
  }

  const Network& net_;
  std::ostream& out_;
  Look look_;
  FileVeto veto_;  // may be none
  std::vector<Step> steps_;
  Replay past_;  // of these steps
};

}  // namespace

std::string stuck(const Network& net, const TimedState& state) {
  const auto fires = [](const std::optional<Window>& delays) { return delays.has_value(); };
  const auto isEnabled = [&](const Transition& t) { return enabled(t, state.locations); };
  const std::vector<std::optional<Window>> all = windows(net, state);
  if (std::any_of(all.begin(), all.end(), fires)) return "";
  if (std::none_of(net.transitions.begin(), net.transitions.end(), isEnabled))
    return "stuck: no transition is enabled";
  if (const auto found = collision(net, state))
    return "stuck: transition " + shownTransition(net, found->transition) +
           " would put a second token on " + shownProcess(net, found->move.process);
  // Any other that is enabled and cannot fire is kept from it by a latest time.
  const auto longest = longestDelay(net, state);
  assert(longest);
  return "stuck: time stops after " + longest->text() + ", and no transition can fire until then";
}

Property anything() { return {"T", {{PropertyItem::truth, 0}}}; }

Walked walk(const Network& net, std::istream& in, std::ostream& out, const Look& look,
            const FileVeto& veto) {
  Session session(net, out, look, veto);
  session.show();
  while (!session.ended) {
    out << "> " << std::flush;
    std::string line;
    if (!std::getline(in, line)) {
      out << "\n";
      break;
    }
    const std::string complaint = session.perform(line);
    if (!complaint.empty()) out << "error: " << complaint << "\n";
    if (session.changed) session.show();
  }
  out << std::flush;
  return {session.run(), "", ""};
}

Walked walkScript(const Network& net, const std::string& name, std::istream& in, std::ostream& out,
                  const Look& look) {
  Session session(net, out, look);
  std::string line;
  std::string complaint;
  int count = 0;
  while (complaint.empty() && !session.ended && std::getline(in, line)) {
    ++count;
    complaint = session.perform(line);
  }
  Walked walked{session.run(), "", ""};
  if (!complaint.empty())
    walked.error.append(name)
        .append(":")
        .append(std::to_string(count))
        .append(": error: ")
        .append(complaint);
  return walked;
}

}  // namespace tpn
