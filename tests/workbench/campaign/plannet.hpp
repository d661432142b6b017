// Small networks and plans for the tests of this room.

#pragma once

#include <string>

#include "tests/driver/runprogram.hpp"
#include "workbench/campaign/collect.hpp"
#include "workbench/campaign/planning.hpp"
#include "workbench/campaign/work.hpp"

namespace tpn {

// A process that counts 0, 1, 2, 3 or falls back from 1 to 0; proposition 1 is at 3, 2 nowhere.
// Transition 1 takes from 1 to `latest` units where the watchman, who comes to 1 at 3 and has
// proposition 3 there, is the second process.
inline const std::string counting =
    "counting\ntransitions\n1 1 2\n2 0 1\n3 0 1\n4 0 1\n5 3 3\nendtran\n"
    "process\n1 0 1\n2 1 2\n3 2 3\n4 1 0\nvaluation\n3 1\nendval\nend\n"
    "process\n5 0 1\nvaluation\n1 3\nendval\nend\nend\n";

// One question about it, as it is planned.
inline OneQuestion aboutCounting(const std::string& question) {
  return {counting, ".tpn", question + "\n", "counting", question, 2};
}

class Plans : public Workplace {
 public:
  Plans() { write("counting.tpn", counting); }

  std::string in(const std::string& name) const { return folder() / name; }
  std::string plan() const { return in("plan"); }

  int campaign(const std::string& text) const {
    write("c.toml", text);
    Diagnostics warnings;
    return planCampaign(readCampaign(in("c.toml")), plan(), {}, warnings);
  }
  int cubes(const std::string& question, const std::vector<RunCube>& all, int most) const {
    Limits limits;
    limits.maxTransitions = most;
    return planCubes(aboutCounting(question), all, limits, plan(), {});
  }
  Worked work(int number) const {
    std::atomic<bool> stop{false};
    return tpn::work(plan(), number, stop);
  }
  Collection workAll() const {
    for (const int number : unanswered(plan())) work(number);
    return collect(plan());
  }
  void damage(int number) const {
    std::string text = contents(answerName(plan(), number));
    text[text.size() / 2] = static_cast<char>(text[text.size() / 2] ^ 1);
    std::ofstream(answerName(plan(), number), std::ios::binary) << text;
  }
};

}  // namespace tpn
