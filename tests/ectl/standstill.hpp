// Scans that never end: `run` is called in a child process until an alarm ends it. A child that
// comes to an end of its own, however late, fails the test; a slow machine cannot make it fail.

#pragma once

#include <gtest/gtest.h>
#include <sys/time.h>

#include <csignal>

// SIGALRM after 300 ms.
inline void setAlarm() {
  const itimerval soon{{0, 0}, {0, 300000}};
  setitimer(ITIMER_REAL, &soon, nullptr);
}

template <class Run>
void expectStandstill(Run run) {
  EXPECT_EXIT(
      {
        setAlarm();
        run();
      },
      testing::KilledBySignal(SIGALRM), "^$");
}
