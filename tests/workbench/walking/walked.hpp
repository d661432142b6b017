// Walks in words, and a network that gets stuck.

#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/workbench/network/smallnets.hpp"
#include "workbench/walking/walk.hpp"

namespace tpn {

// "1 after 3/2, ..."
inline std::string steps(const Walked& walked) {
  std::string text;
  for (const Step& step : walked.run.steps)
    text += (text.empty() ? "" : ", ") + std::to_string(number(step.transition)) + " after " +
            step.delay.text();
  EXPECT_EQ(walked.run.goal, walked.run.steps.size());
  return text;
}

// Transition 1 has to fire by 2, but not before 3.
inline Network impatient() {
  Network net = twoProcesses();
  net.transitions = {{{3, 2}, {{0, 0, 1}}}, {{5, {}}, {{1, 0, 1}}}};
  return net;
}

}  // namespace tpn
