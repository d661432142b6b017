// Processes that a test has not started itself.

#pragma once

#include "tests/driver/runprogram.hpp"

// Has the process ended, or does it within two seconds?
inline bool ends(pid_t pid) {
  for (int wait = 0; wait < 200; ++wait) {
    if (kill(pid, 0) != 0) return true;
    // Dead, and not yet collected by whoever has inherited it.
    if (contents("/proc/" + std::to_string(pid) + "/stat").find(") Z ") != std::string::npos)
      return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return false;
}
