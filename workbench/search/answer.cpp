#include "workbench/search/answer.hpp"

#include "workbench/base/printable.hpp"
#include "workbench/network/shown.hpp"
#include "workbench/runs/deadend.hpp"
#include "workbench/runs/replay.hpp"

namespace tpn {

namespace {

std::string transitions(int count) {
  return std::to_string(count) + (count == 1 ? " transition" : " transitions");
}

// The k that zervan needs for runs of so many.
std::string pathLength(int count) {
  return " (k = " + std::to_string(boundOf(static_cast<std::size_t>(count))) + ")";
}

std::string reachableText(const Answer& a) {
  const int length = static_cast<int>(a.run->steps.size());
  std::string text = "reachable in " + transitions(length) + pathLength(length) + "\n";
  for (const auto& [bound, reason] : a.unanswered)
    text += "k = " + std::to_string(bound) + " was not answered: " + printable(reason) + "\n";
  if (a.shortest) return text;
  return text + (a.noRunUpTo < 0 ? "a shorter run may exist\n"
                                 : "none of up to " + std::to_string(a.noRunUpTo) + " does it\n");
}

std::string undecidedText(const Answer& a) {
  std::string text = "undecided: " + printable(a.reason);
  if (a.noRunUpTo >= 0)
    text += (a.reason.empty() ? "" : "; ") + ("no run of up to " + transitions(a.noRunUpTo)) +
            pathLength(a.noRunUpTo) + " does it";
  else if (a.reason.empty())
    text += "nothing was asked";
  return text + "\n";
}

std::string lengthText(const Answer& a) {
  const int length = static_cast<int>(a.run->steps.size());
  return length == 0 ? "at the start" : "after " + transitions(length);
}

// All lengths below the first bound without an answer have one.
int answeredBelow(const Verdict& v) {
  if (v.shortest) return static_cast<int>(v.run->steps.size()) - 1;
  return v.unanswered.empty() ? -1 : transitionsWithin(v.unanswered.front().bound) - 1;
}

}  // namespace

const char* kindName(Answer::Kind kind) {
  if (kind == Answer::reachable) return "reachable";
  if (kind == Answer::unsafe) return "unsafe";
  return kind == Answer::unreachable ? "unreachable" : "undecided";
}

std::string unsafety(const Network& net, const Goal& goal, const Run& run) {
  if (!asksSafety(goal)) return "";
  const TimedState last = replay(net, goal, run).states.back();
  const auto found = collision(net, last);
  if (!found || holds(net, withoutSafety(goal), last)) return "";
  const std::string when = found->delay > 0 ? "after a delay of " + found->delay.text() + " " : "";
  return when + "transition " + shownTransition(net, found->transition) +
         " would put a second token on " + shownProcess(net, found->move.process);
}

Answer answerOf(const Verdict& v) {
  Answer answer;
  answer.reason = v.reason;
  answer.unanswered = v.unanswered;
  if (v.answer == Verdict::reachable) {
    answer.kind = Answer::reachable;
    answer.run = v.run;
    answer.shortest = v.shortest;
    answer.noRunUpTo = answeredBelow(v);
  } else {
    if (v.answer == Verdict::unreachable) answer.kind = Answer::unreachable;
    answer.noRunUpTo = transitionsWithin(v.bound);
  }
  return answer;
}

std::string headline(const Answer& a) {
  if (a.kind == Answer::reachable) return reachableText(a);
  if (a.kind == Answer::undecided) return undecidedText(a);
  if (a.kind == Answer::unsafe)
    return "the net is not safe: " + lengthText(a) + ", " + printable(a.reason) + "\n";
  return "unreachable" + (a.reason.empty() ? "" : ": " + printable(a.reason)) + "\n";
}

}  // namespace tpn
