// The networks of a campaign, one after the other: files, families, and what sweeps make of them.

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "workbench/campaign/campaign.hpp"
#include "workbench/campaign/job.hpp"
#include "workbench/network/network.hpp"

namespace tpn {

// What is worked on: a network's file and what is changed in it.
struct Instance {
  std::string bytes;
  std::string suffix;     // by which its form is told
  Network net;            // before it is changed
  std::string name;       // for people
  std::int64_t size = 0;  // a family's, or the number of processes
};

// Throws std::runtime_error, one line, where one cannot be had.
Instance instanceIn(const std::string& named);
void forEachInstance(const NetworkEntry& entry, const std::function<void(const Instance&)>& take);

// Every combination of the values of the sweeps; the last one changes fastest.
void forEachChange(const std::vector<Sweep>& sweeps,
                   const std::function<void(const std::vector<Swept>&)>& take);

struct AskedText {
  std::string name;   // for people
  std::string place;  // where it stands: a file, or the question itself
  std::string text;
};

std::vector<AskedText> questionsAbout(const NetworkEntry& entry, const Instance& instance);

}  // namespace tpn
